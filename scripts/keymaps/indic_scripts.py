"""Letters of the Brahmic scripts by their Unicode names, so that one ITRANS table serves
every script that has the letter (the scripts share their letter names)."""

import unicodedata


class Script:
    def __init__(self, name, block, dravidianVowels=False, overrides=None):
        self.name = name                      # the Unicode script name: "DEVANAGARI" ...
        self.block = block                    # (first, last) code point of the script's block
        self.dravidianVowels = dravidianVowels  # e/o short and E/O long, as the south writes
        self.overrides = overrides or {}      # letter name -> the text this language uses

    def Char(self, kind, name):
        """The text of "<SCRIPT> <kind> <name>" (kind: LETTER, VOWEL SIGN, SIGN, OM ...),
        normalised to NFC so that nukta letters come as base + nukta; None when absent."""
        if name in self.overrides and kind == "LETTER":
            return self.overrides[name]
        full = " ".join(part for part in (self.name, kind, name) if part)
        try:
            return unicodedata.normalize("NFC", unicodedata.lookup(full))
        except KeyError:
            return None

    def Letter(self, name):
        return self.Char("LETTER", name)

    def Sign(self, *names):
        for name in names:
            text = self.Char("SIGN", name)
            if text:
                return text
        return None

    def VowelSign(self, name):
        return self.Char("VOWEL SIGN", name)

    def JoiningRanges(self):
        """The two runs of signs that join the letter before them: the first run of marks in the
        block (the nasal and visarga signs), and the vowel signs up to the virama."""
        code = self.block[0]
        while unicodedata.category(chr(code)) not in ("Mn", "Mc"):
            code += 1
        low = code
        while unicodedata.category(chr(code + 1)) in ("Mn", "Mc"):
            code += 1
        return (low, code), (ord(self.VowelSign("AA")), ord(self.Virama()))

    def Virama(self):
        return self.Sign("VIRAMA")

    def Nukta(self):
        return self.Sign("NUKTA")

    def Danda(self, double=False):
        own = self.Char("", "DOUBLE DANDA" if double else "DANDA")
        if own:
            return own
        return "\u0965" if double else "\u0964"


DEVANAGARI = Script("DEVANAGARI", (0x0900, 0x097F))
SCRIPTS = {
    "Hindi": DEVANAGARI,
    "Sanskrit": DEVANAGARI,
    "Marathi": DEVANAGARI,
    "Konkani": DEVANAGARI,
    "Gujarati": Script("GUJARATI", (0x0A80, 0x0AFF)),
    "Bengali": Script("BENGALI", (0x0980, 0x09FF), overrides={"VA": "\u09ac"}),
    "Assamese": Script("BENGALI", (0x0980, 0x09FF),
                       overrides={"RA": "\u09f0", "VA": "\u09f1"}),
    "Punjabi": Script("GURMUKHI", (0x0A00, 0x0A7F)),
    "Oriya": Script("ORIYA", (0x0B00, 0x0B7F)),
    "Telugu": Script("TELUGU", (0x0C00, 0x0C7F), dravidianVowels=True),
    "Kannada": Script("KANNADA", (0x0C80, 0x0CFF), dravidianVowels=True),
    "Malayalam": Script("MALAYALAM", (0x0D00, 0x0D7F), dravidianVowels=True),
    "Sourashtra": Script("SAURASHTRA", (0xA880, 0xA8DF), dravidianVowels=True),
}
