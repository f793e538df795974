#!/usr/bin/env python3
"""Writes the catalogue lists of inps/ from the keymap files that are installed.

Each line of a "Settings-Lfks-" list is the LFK (language-encoding-layout) and, after one
blank, its catalogue number: its position in the Original list. The number stays with the
LFK however a list is arranged, so a saved arrangement can always be traced back to the
catalogue entry it came from.

- Original: every installed keymap, in the order of the language, encoding and layout
  vocabularies (Unicode before the legacy encodings).
- Sorted: the same LFKs in ascending order of their names.
- Finalized: the list the main window offers: the Tamil schemes first, the Unicode ones
  before those of legacy encodings, then the other languages in vocabulary order.
- LangNames: the language names, one a line.
The files are UTF-16LE with a mark and CR LF line ends, as the program saves its lists.
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from keymap_io import INPS_FOLDER, KEYMAP_FOLDER  # noqa: E402

LANGUAGES = ["Tamil", "Hindi", "Sanskrit", "Telugu", "Kannada", "Malayalam", "Marathi",
             "Konkani", "Gujarati", "Bengali", "Punjabi", "Oriya", "Assamese", "Sourashtra",
             "Arabic", "Greek", "LatinScript&IPA", "English", "Roman"]
ENCODINGS = ["Unicode", "NonUnicode", "Stmzh", "Bamini", "Shreelipi", "Tab", "Tam", "Tscii"]
LAYOUTS = ["PhoneticTransliteration", "TamilNet99", "TypeWriterNew", "TypeWriterOld",
           "UserDefinedPhonetics1"]


def InstalledLfks(folder=KEYMAP_FOLDER):
    """The LFK of every keymap file, as the catalogue window lists them."""
    lfks = []
    for name in os.listdir(folder):
        stem, extension = os.path.splitext(name)
        if extension.lower() not in (".xml", ".txt") or not stem.startswith("QuilomPlus-"):
            continue
        if extension.lower() == ".txt" and name[10:17] == "-Tamil-":
            continue
        lfks.append(stem[len("QuilomPlus-"):])
    return lfks


def Parts(lfk):
    language, encoding, layout = lfk.split("-", 2)
    return language, encoding, layout


def VocabularyOrder(lfk):
    language, encoding, layout = Parts(lfk)
    def Position(items, value):
        return items.index(value) if value in items else len(items)
    return (Position(LANGUAGES, language), Position(ENCODINGS, encoding),
            Position(LAYOUTS, layout), lfk)


def WriteList(name, lines):
    text = "".join(line + "\r\n" for line in lines)
    with open(os.path.join(INPS_FOLDER, name), "wb") as f:
        f.write(b"\xff\xfe" + text.encode("utf-16-le"))


def Write():
    original = sorted(InstalledLfks(), key=VocabularyOrder)
    number = {lfk: i + 1 for i, lfk in enumerate(original)}
    def Rows(lfks):
        return ["%s %d" % (lfk, number[lfk]) for lfk in lfks]
    WriteList("Settings-Lfks-Original.txt", Rows(original))
    WriteList("Settings-Lfks-Sorted.txt", Rows(sorted(original, key=lambda s: s.encode("utf-16-be"))))
    WriteList("Settings-Lfks-Finalized.txt", Rows(original))
    WriteList("LangNames.txt", LANGUAGES)
    return original


if __name__ == "__main__":
    lfks = Write()
    print("catalogue: %d LFKs" % len(lfks))
