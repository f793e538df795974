#!/usr/bin/env python3
"""Generates the ITRANS-style phonetic keymaps of the Indic languages.

A consonant key types the consonant with a virama (क्), so that consonant keys in a row make
a conjunct; a vowel key after it replaces the virama by the vowel's sign (the entry is the
whole syllable's keys, e.g. "kii" -> की), and "a" removes the virama. A vowel key anywhere
else types the independent vowel. Every syllable is an entry of its own, so the keymaps need
no joining text: their joining switch is off and the text is empty, which also leaves the
punctuation rule's extra edit harmless (it retypes the punctuation key itself).

With "chCh" = "1" in the typing settings the loader takes the variant in the sub-folder
"chCh-1", where c types the consonant of ca (च) and ch that of Cha (छ), the older ITRANS
spelling. Deliberate choices where ITRANS users differ: digits stay Latin digits (most modern text
uses them); "n" before a velar or palatal stays न (type ~N or ~n for the nasal letter).

Every way these keymaps type something else than m17n's itrans methods, with its reason, is in
"ITRANS keymap notes.txt" beside the keymaps; tests/translit/m17n holds the test that keeps it true.
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from indic_scripts import SCRIPTS  # noqa: E402
from keymap_io import KEYMAP_FOLDER, JoiningLine, KeymapPath, WriteKeymap  # noqa: E402

# Vowel keys -> the Unicode vowel name; "A" (the inherent a) has no sign.
VOWELS = [
    ("a", "A"), ("aa", "AA"), ("A", "AA"), ("i", "I"), ("ii", "II"), ("I", "II"),
    ("u", "U"), ("uu", "UU"), ("U", "UU"),
    ("RRi", "VOCALIC R"), ("R^i", "VOCALIC R"), ("RRI", "VOCALIC RR"), ("R^I", "VOCALIC RR"),
    ("LLi", "VOCALIC L"), ("L^i", "VOCALIC L"), ("LLI", "VOCALIC LL"), ("L^I", "VOCALIC LL"),
    ("ai", "AI"), ("au", "AU"),
]
NORTH_EO = [("e", "E"), ("o", "O"), ("E", "CANDRA E"), ("O", "CANDRA O")]
SOUTH_EO = [("e", "E"), ("E", "EE"), ("ee", "EE"), ("o", "O"), ("O", "OO"), ("oo", "OO")]

# Consonant keys -> the Unicode letter name.
CONSONANTS = [
    ("k", "KA"), ("kh", "KHA"), ("K", "KHA"), ("g", "GA"), ("gh", "GHA"), ("G", "GHA"),
    ("~N", "NGA"), ("N^", "NGA"),
    ("ch", "CA"), ("c", "CA"), ("Ch", "CHA"), ("chh", "CHA"), ("C", "CHA"),
    ("j", "JA"), ("jh", "JHA"), ("J", "JHA"), ("~n", "NYA"), ("JN", "NYA"),
    ("T", "TTA"), ("Th", "TTHA"), ("D", "DDA"), ("Dh", "DDHA"), ("N", "NNA"),
    ("t", "TA"), ("th", "THA"), ("d", "DA"), ("dh", "DHA"), ("n", "NA"),
    ("p", "PA"), ("ph", "PHA"), ("P", "PHA"), ("b", "BA"), ("bh", "BHA"), ("B", "BHA"),
    ("m", "MA"), ("y", "YA"), ("r", "RA"), ("l", "LA"), ("v", "VA"), ("w", "VA"),
    ("sh", "SHA"), ("Sh", "SSA"), ("shh", "SSA"), ("S", "SSA"), ("s", "SA"), ("h", "HA"),
    ("L", "LLA"), ("ld", "LLA"),
]
SOUTH_CONSONANTS = [("R", "RRA"), ("zh", "LLLA")]  # every script that has them
# Keys of letters written with a nukta: (key, precomposed letter name, base letter name).
NUKTA_LETTERS = [
    ("q", "QA", "KA"), (".kh", "KHHA", "KHA"), (".g", "GHHA", "GA"), ("z", "ZA", "JA"),
    (".j", "ZA", "JA"), ("f", "FA", "PHA"), (".ph", "FA", "PHA"), (".D", "DDDHA", "DDA"),
    (".Dh", "RHA", "DDHA"), ("Y", "YYA", "YA"),
]
# Conjuncts with keys of their own: key -> the letter names joined by virama.
CONJUNCTS = [("x", ["KA", "SSA"]), ("kSh", ["KA", "SSA"]), ("ksh", ["KA", "SSA"]),
             ("GY", ["JA", "NYA"]), ("j~n", ["JA", "NYA"]), ("dny", ["JA", "NYA"])]
# Malayalam's final consonants without a vowel (chillu letters).
CHILLU = [("N_", "CHILLU NN"), ("n_", "CHILLU N"), ("r_", "CHILLU RR"), ("l_", "CHILLU L"),
          ("L_", "CHILLU LL"), ("k_", "CHILLU K"), ("m_", "CHILLU M"), ("y_", "CHILLU Y"),
          ("zh_", "CHILLU LLL")]
# Letters of one language only: language -> key -> text.
SPECIAL = {
    # khanda ta; t.h as well, since these scripts write a vowelless t as khanda ta
    "Bengali": {"t_": "\u09ce", "t.h": "\u09ce"},
    "Assamese": {"t_": "\u09ce", "t.h": "\u09ce"},
    "Punjabi": {".n": "\u0a70", "^": "\u0a71",       # tippi, addak
                ".D": "\u0a5c", "OM": "\u0a74", "AUM": "\u0a74"},
}
SIGNS = [("M", ("ANUSVARA", "BINDI")), (".n", ("ANUSVARA", "BINDI")),
         (".N", ("CANDRABINDU", "ADAK BINDI")), ("H", ("VISARGA",)), (".h", ("VIRAMA",)),
         (".a", ("AVAGRAHA",))]


# "chCh" = "1" in the typing settings: the older ITRANS spelling, c for च and ch for छ.
CH_OLD_STYLE = [("c", "CA"), ("ch", "CHA"), ("Ch", "CHA"), ("chh", "CHA"), ("C", "CHA")]
CH_FOLDER = os.path.join(KEYMAP_FOLDER, "chCh-1")


# Letters whose Unicode name is a known error, corrected by an alias: U+0CDE is named KANNADA
# LETTER FA but is the historic LLLA (alias KANNADA LETTER LLLA), so it must never type f or .ph.
MISNAMED = {"\u0cde"}


def NuktaLetter(script, precomposed, base):
    """The letter of a nukta key: the script's own letter of that name, else base + nukta."""
    letter = script.Letter(precomposed)
    if letter in MISNAMED:
        letter = None
    if not letter and script.Nukta() and script.Letter(base):
        letter = script.Letter(base) + script.Nukta()
    return letter


def Consonants(script, oldCh=False):
    """key -> the consonant text (without virama) for every consonant the script has."""
    found = {}
    pairs = CONSONANTS + SOUTH_CONSONANTS + (CH_OLD_STYLE if oldCh else [])
    for key, name in pairs:
        letter = script.Letter(name)
        if key == "w" and script.Letter("WA"):
            letter = script.Letter("WA")
        if letter:
            found[key] = letter
    virama = script.Virama()
    for key, precomposed, base in NUKTA_LETTERS:
        letter = NuktaLetter(script, precomposed, base)
        if letter:
            found[key] = letter
    for key, names in CONJUNCTS:
        letters = [script.Letter(n) for n in names]
        if all(letters):
            found[key] = virama.join(letters)
    return found


def Vowels(script):
    """key -> (independent vowel, vowel sign) for every vowel the script has."""
    found = {}
    for key, name in VOWELS + (SOUTH_EO if script.dravidianVowels else NORTH_EO):
        letter = script.Letter(name) or script.Char("VOWEL", name)
        sign = "" if name == "A" else script.VowelSign(name)
        if letter is None and name in ("E", "O"):  # Gurmukhi has only the long e and o
            letter, sign = script.Letter(name * 2), script.VowelSign(name * 2)
        if letter and sign is not None:
            found[key] = (letter, sign)
    return found


def ConsonantEntries(key, consonant, vowels, virama):
    """The consonant alone (with its virama), with each vowel, and with ".h": ITRANS's halant
    after a consonant asks for the virama the consonant already has, not for a second one."""
    entries = {key: consonant + virama, key + ".h": consonant + virama}
    for vowelKey, (_, sign) in vowels.items():
        entries[key + vowelKey] = consonant + sign
    return entries


def Entries(language, oldCh=False):
    script = SCRIPTS[language]
    virama = script.Virama()
    entries = {}
    vowels = Vowels(script)
    for key, (letter, _) in vowels.items():
        entries[key] = letter
    for key, consonant in Consonants(script, oldCh).items():
        entries.update(ConsonantEntries(key, consonant, vowels, virama))
    for key, names in SIGNS:
        sign = script.Sign(*names)
        if sign:
            entries[key] = sign
    # "k." must not stop the buffer short of "k.D" or "k.n": the dot is a key of its own, so
    # the keys after it still find ".D", ".n" and the other dotted keys.
    entries["."] = "."
    if language == "Malayalam":
        for key, name in CHILLU:
            entries[key] = script.Letter(name)
    haaru = script.Char("CONSONANT SIGN", "HAARU")
    if haaru:
        entries[".H"] = haaru
    om = script.Char("", "OM") or script.Letter("OM")
    if om:
        entries["OM"] = entries["AUM"] = om
    entries["|"] = script.Danda()
    entries["||"] = script.Danda(double=True)
    for key, text in SPECIAL.get(language, {}).items():
        if key in entries and text[0] != entries[key][0]:
            del entries[key]  # a special letter replaces a general one: keep file order tidy
        entries[key] = text
        if language == "Punjabi" and key == ".D":
            entries.update(ConsonantEntries(key, text, vowels, virama))
            entries[key] = text
    return entries


def LanguageComments(language):
    return ["%s phonetic keymap (ITRANS)" % language,
            "Generated by scripts/keymaps/make_indic_itrans.py; a consonant key types the "
            "consonant with a virama, the vowel key after it joins as a sign."]


def Write():
    counts = {}
    for language, script in SCRIPTS.items():
        lfk = language + "-Unicode-PhoneticTransliteration"
        joining = JoiningLine(False, "", *script.JoiningRanges())
        WriteKeymap(KeymapPath(lfk, CH_FOLDER), lfk + " with chCh on", Entries(language, True),
                    LanguageComments(language) + ["c types the consonant of ca, ch that of Cha."],
                    joining)
        counts[lfk] = len(WriteKeymap(KeymapPath(lfk), lfk, Entries(language),
                                      LanguageComments(language), joining))
    return counts


if __name__ == "__main__":
    for lfk, count in Write().items():
        print("%s: %d entries" % (lfk, count))
