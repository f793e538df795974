#!/usr/bin/env python3
"""Generates "Tamil-Unicode-UserDefinedPhonetics1", the scheme users are meant to edit.

It is a plain Tamil phonetic scheme written so that each line is easy to read and change:
a consonant key types the dead consonant (k -> க்), the same key followed by a vowel key types
the syllable (ka -> க, kaa -> கா). The file carries its own instructions as comment lines; the
program ignores every line without the entry markers.
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from keymap_io import KeymapPath, WriteKeymap  # noqa: E402
from tamil_letters import PULLI, VOWEL_SIGNS  # noqa: E402

LFK = "Tamil-Unicode-UserDefinedPhonetics1"

VOWELS = [("a", "அ"), ("aa", "ஆ"), ("A", "ஆ"), ("i", "இ"), ("ii", "ஈ"), ("I", "ஈ"),
          ("u", "உ"), ("uu", "ஊ"), ("U", "ஊ"), ("e", "எ"), ("ee", "ஏ"), ("E", "ஏ"),
          ("ai", "ஐ"), ("o", "ஒ"), ("oo", "ஓ"), ("O", "ஓ"), ("au", "ஔ")]
CONSONANTS = [("k", "க"), ("g", "க"), ("ng", "ங"), ("c", "ச"), ("ch", "ச"), ("nj", "ஞ"),
              ("T", "ட"), ("N", "ண"), ("t", "த"), ("th", "த"), ("w", "ந"), ("nh", "ந"),
              ("p", "ப"), ("b", "ப"), ("m", "ம"), ("y", "ய"), ("r", "ர"), ("l", "ல"),
              ("v", "வ"), ("z", "ழ"), ("zh", "ழ"), ("L", "ள"), ("R", "ற"), ("n", "ன"),
              ("j", "ஜ"), ("sh", "ஷ"), ("s", "ஸ"), ("S", "ஶ"), ("h", "ஹ"), ("x", "க்ஷ")]
OTHERS = [("q", "ஃ"), ("sri", "ஸ்ரீ")]

HELP = [
    "HOW TO EDIT THIS KEYMAP",
    "Each entry is one line: the entry marker om in angle brackets, the keys, one blank, the Tamil",
    "text, then the closing marker /om in angle brackets, exactly as on the lines below.",
    "Keys are case-sensitive Latin characters without blanks; the text may hold blanks.",
    "The longest run of keys you typed that is an entry wins, and the whole word is typed again",
    "from the entries, so: k gives the dead consonant, and the line for ka turns it into the syllable.",
    "To add a spelling, copy a line and change its keys (for example a line for kha beside kaa).",
    "To change a letter, change the text after the blank. |`~`| in a text types a line break.",
    "Lines without the markers, like this one, are notes and are ignored; the first line is the title.",
    "Save the file as text (UTF-8 or Unicode), keep its name, then choose the scheme again to load it.",
    "If the program reports that the data is not in order, the line it names lacks a blank after its",
    "keys or has its closing marker before its opening one.",
]


def Entries():
    entries = dict(VOWELS)
    entries.update(OTHERS)
    for key, consonant in CONSONANTS:
        entries[key] = consonant + PULLI
        for vowelKey, vowel in VOWELS:
            entries[key + vowelKey] = consonant + VOWEL_SIGNS[vowel]
    return entries


def Write():
    return WriteKeymap(KeymapPath(LFK), LFK, Entries(), HELP)


if __name__ == "__main__":
    print("%s: %d entries" % (LFK, len(Write())))
