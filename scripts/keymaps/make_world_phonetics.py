#!/usr/bin/env python3
"""Generates the phonetic keymaps of the non-Indic languages.

- Arabic: the Buckwalter transliteration, one Latin key per Arabic letter or mark, so that
  every key is reversible and well known to those who type Arabic in Latin.
- Greek: the Greek keyboard's letter positions (a α, b β, g γ, ...), ";" before a vowel for the
  tonos, ":" for the dialytika, and w for the final ς.
- LatinScript&IPA: a letter followed by a mark key for accented Latin (a' á, c; ç, a* å,
  o/ ø ...; comma and full stop keep their own meaning after a letter),
  and "@" followed by a key for the symbols of the phonetic alphabet (@e ə, @S ʃ ...).
- English: typed as it stands, with typographic shortcuts (-- –, ... …, (c) ©, quotes).
- Roman: romanised Tamil with its diacritics (aa ā, N ṇ, zh ḻ, R ṟ, n- ṉ ...).
"""

import os
import sys
import unicodedata

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from keymap_io import JoiningLine, KeymapPath, WriteKeymap  # noqa: E402

BUCKWALTER = {
    "'": "ء", "|": "آ", ">": "أ", "&": "ؤ", "<": "إ", "}": "ئ", "A": "ا", "b": "ب", "p": "ة",
    "t": "ت", "v": "ث", "j": "ج", "H": "ح", "x": "خ", "d": "د", "*": "ذ", "r": "ر", "z": "ز",
    "s": "س", "$": "ش", "S": "ص", "D": "ض", "T": "ط", "Z": "ظ", "E": "ع", "g": "غ", "_": "ـ",
    "f": "ف", "q": "ق", "k": "ك", "l": "ل", "m": "م", "n": "ن", "h": "ه", "w": "و", "Y": "ى",
    "y": "ي", "F": "ً", "N": "ٌ", "K": "ٍ", "a": "َ", "u": "ُ", "i": "ِ", "~": "ّ", "o": "ْ",
    "`": "ٰ", "{": "ٱ", ",": "،", ";": "؛", "?": "؟",
}

GREEK_LETTERS = "a α b β g γ d δ e ε z ζ h η u θ i ι k κ l λ m μ n ν j ξ o ο p π r ρ s σ w ς " \
                "t τ y υ f φ x χ c ψ v ω"
GREEK_TONOS = {"α": "ά", "ε": "έ", "η": "ή", "ι": "ί", "ο": "ό", "υ": "ύ", "ω": "ώ",
               "Α": "Ά", "Ε": "Έ", "Η": "Ή", "Ι": "Ί", "Ο": "Ό", "Υ": "Ύ", "Ω": "Ώ"}
GREEK_DIALYTIKA = {"ι": "ϊ", "υ": "ϋ", "Ι": "Ϊ", "Υ": "Ϋ"}

LATIN_MARKS = {"`": "\u0300", "'": "\u0301", "^": "\u0302", "~": "\u0303", '"': "\u0308",
               ";": "\u0327", "=": "\u0304", "<": "\u030C", "*": "\u030A"}
LATIN_SPECIAL = {"o/": "ø", "O/": "Ø", "ss": "ß", "ae": "æ", "AE": "Æ", "oe": "œ", "OE": "Œ",
                 "l/": "ł", "L/": "Ł", "d/": "đ", "D/": "Đ", "th": "þ", "TH": "Þ", "dh": "ð",
                 "DH": "Ð", "!!": "¡", "??": "¿"}
IPA = {"@a": "ɑ", "@A": "æ", "@b": "β", "@c": "ç", "@d": "ð", "@e": "ə", "@E": "ɛ", "@3": "ɜ",
       "@g": "ɡ", "@G": "ɣ", "@h": "ɦ", "@i": "ɪ", "@I": "ɨ", "@j": "ʝ", "@l": "ɫ", "@L": "ʎ",
       "@m": "ɱ", "@n": "ŋ", "@N": "ɲ", "@o": "ɔ", "@O": "ø", "@Q": "œ", "@r": "ɹ", "@R": "ʁ",
       "@D": "ɾ", "@s": "ʃ", "@S": "ʂ", "@t": "θ", "@T": "ʈ", "@u": "ʊ", "@U": "ʉ", "@v": "ʋ",
       "@V": "ʌ", "@w": "ʍ", "@x": "χ", "@y": "ʏ", "@Y": "ɥ", "@z": "ʒ", "@Z": "ʐ", "@?": "ʔ",
       "@:": "ː", "@'": "ˈ", "@,": "ˌ", "@.": "̩", "@~": "̃", "@@": "@"}

ENGLISH = {"--": "–", "---": "—", "...": "…", "(c)": "©", "(r)": "®", "(tm)": "™", "<<": "«",
           ">>": "»", "``": "“", "''": "”", "->": "→", "<-": "←", "+-": "±", "!=": "≠"}

ROMAN_VOWELS = {"a": "a", "aa": "ā", "A": "ā", "i": "i", "ii": "ī", "I": "ī", "u": "u",
                "uu": "ū", "U": "ū", "e": "e", "ee": "ē", "E": "ē", "ai": "ai", "o": "o",
                "oo": "ō", "O": "ō", "au": "au"}
ROMAN_CONSONANTS = {"ng": "ṅ", "nj": "ñ", "T": "ṭ", "N": "ṇ", "zh": "ḻ", "L": "ḷ", "R": "ṟ",
                    "n-": "ṉ", "S": "ṣ", "sh": "ś", "q": "ḵ", "M": "ṁ", "H": "ḥ"}


def Arabic():
    return dict(BUCKWALTER)


def Greek():
    entries = {}
    pairs = GREEK_LETTERS.split()
    for key, letter in zip(pairs[::2], pairs[1::2]):
        entries[key] = letter
        if key != "w":
            entries[key.upper()] = letter.upper()
    for letter, accented in GREEK_TONOS.items():
        key = next(k for k, v in entries.items() if v == letter)
        entries[";" + key] = accented
    for letter, marked in GREEK_DIALYTIKA.items():
        key = next(k for k, v in entries.items() if v == letter)
        entries[":" + key] = marked
    # Both marks at once, in either order, as the Greek keyboard's two dead keys allow.
    for letter, marked in {"ι": "ΐ", "υ": "ΰ"}.items():
        key = next(k for k, v in entries.items() if v == letter)
        entries[";:" + key] = marked
        entries[":;" + key] = marked
    entries["q"] = ";"      # the Greek keyboard's semicolon key
    entries["Q"] = "·"      # ano teleia
    entries["?"] = ";"      # the Greek question mark
    return entries


def LatinAndIpa():
    entries = {}
    for base in "abcdeghijklmnorstuwxyzABCDEGHIJKLMNORSTUWXYZ":
        for markKey, mark in LATIN_MARKS.items():
            composed = unicodedata.normalize("NFC", base + mark)
            if len(composed) == 1:
                entries[base + markKey] = composed
    entries.update(LATIN_SPECIAL)
    entries.update(IPA)
    return entries


def English():
    return dict(ENGLISH)


def Roman():
    entries = dict(ROMAN_VOWELS)
    entries.update(ROMAN_CONSONANTS)
    return entries


# The characters that join the letter before them, for each language's joining ranges: the
# combining diacritical marks, and Arabic's vowel marks with its superscript alef. The joining
# switch stays off: every keymap here types whole precomposed letters.
COMBINING_MARKS = (0x0300, 0x036F)
LANGUAGES = {
    "Arabic": (Arabic, ((0x064B, 0x065F), (0x0670, 0x0670))),
    "Greek": (Greek, (COMBINING_MARKS, (0, 0))),
    "LatinScript&IPA": (LatinAndIpa, (COMBINING_MARKS, (0, 0))),
    "English": (English, (COMBINING_MARKS, (0, 0))),
    "Roman": (Roman, (COMBINING_MARKS, (0, 0))),
}


def Write():
    counts = {}
    for language, (entries, ranges) in LANGUAGES.items():
        lfk = language + "-Unicode-PhoneticTransliteration"
        comments = ["%s phonetic keymap; generated by scripts/keymaps/make_world_phonetics.py" % language]
        counts[lfk] = len(WriteKeymap(KeymapPath(lfk), lfk, entries(), comments,
                                      JoiningLine(False, "", *ranges)))
    return counts


if __name__ == "__main__":
    for lfk, count in Write().items():
        print("%s: %d entries" % (lfk, count))
