#!/usr/bin/env python3
"""Lists, from the Unicode character database, the letters and signs of each Indic
language's script (and Tamil's, for every Tamil scheme), for the test that every one of them can be typed.

Left out: characters with a canonical decomposition (the nukta letters; text holds them as
base + nukta, which the keymaps type) and the length marks that only occur inside two-part
vowel signs (typed as the whole sign). Writes tests/translit/keymaps_script_letters.txt.
"""

import os
import sys
import unicodedata

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from indic_scripts import SCRIPTS, Script  # noqa: E402
from keymap_io import REPO  # noqa: E402

OUT = os.path.join(REPO, "tests", "translit", "keymaps_script_letters.txt")


# Tamil's digits, numbers and signs are typed as they are written, so its list holds them too.
TAMIL = Script("TAMIL", (0x0B80, 0x0BFF))
TAMIL_CATEGORIES = ("Lo", "Mn", "Mc", "Nd", "No", "So", "Sc")
# The modern letters of Greek, and the letters and vowel marks of the Arabic alphabet.
GREEK = Script("GREEK", (0x0386, 0x03CE))
ARABIC = Script("ARABIC", (0x0621, 0x0670))


def Letters(script, categories=("Lo", "Mn", "Mc")):
    for code in range(script.block[0], script.block[1] + 1):
        ch = chr(code)
        if unicodedata.category(ch) not in categories:
            continue
        if unicodedata.decomposition(ch) or "LENGTH MARK" in unicodedata.name(ch):
            continue
        yield code, unicodedata.name(ch)


def main():
    with open(OUT, "w", encoding="utf-8", newline="\n") as f:
        f.write("# language, code point, name (Unicode %s)\n" % unicodedata.unidata_version)
        for language, script in SCRIPTS.items():
            for code, name in Letters(script):
                f.write("%s\t%04X\t%s\n" % (language, code, name))
        for language, script, categories in (("Tamil", TAMIL, TAMIL_CATEGORIES),
                                             ("Greek", GREEK, ("Lu", "Ll")),
                                             ("Arabic", ARABIC, ("Lo", "Mn"))):
            for code, name in Letters(script, categories):
                f.write("%s\t%04X\t%s\n" % (language, code, name))


if __name__ == "__main__":
    main()
