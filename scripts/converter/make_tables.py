#!/usr/bin/env python3
"""Generates the converter's data files from the legacy-encoding mapping facts.

    python3 scripts/converter/make_tables.py [--facts DIR] [--out DIR]

Writes, into "data/Sorvin/Tamil Fonts Converter/":
  QuilomPlus-TamilFontEncodings.txt                 "Unicode", then the encodings below
  QuilomPlus-NonUniSearchPatterns.txt               font-name prefixes, one line per encoding
  QuilomPlus-TamilFontEncodings-DefaultFontToBeUsed.txt
  QuilomPlus-Unicode fonts.txt
  QuilomPlus-LegacyQuotes.txt                       quote characters, one line per encoding
  tables/<id>.txt                                   one conversion table per id 101 to 304
  Encoding notes.txt                                what each encoding cannot carry

Every file is UTF-16LE with its mark and CR LF line ends, as the program reads them.

Table ids follow the list positions (position p = 1 for the first legacy encoding):
  100 + p  legacy to Unicode, quotes made normal (straight)
  151 + p  legacy to Unicode, the font's quotes kept as they are (decorative)
  202 + p  Unicode to legacy, "IrRiRee Form" (the separate glyph for ர், ரி, ரீ where the
           font has one)
  253 + p  Unicode to legacy, ர், ரி, ரீ written with the plain ர glyph

The script checks what it writes: every syllable of the Unicode-to-legacy tables must come back
through the legacy-to-Unicode table; those that cannot are listed in the notes file.
"""

import argparse
import os
import string
import sys

ROOT = os.path.abspath(os.path.join(os.path.dirname(__file__), '..', '..'))

# (display name, facts file, font-name prefixes, default font)
ENCODINGS = [
    ('Anjal', 'anjal', ['Anjal'], 'AnjalIlakkanam'),
    ('Anu', 'anu', ['LT-TM-', 'Anu'], 'LT-TM-Roja'),
    ('Bamini', 'bamini', ['Bamini', 'Baamini'], 'Bamini'),
    ('Boomi', 'boomi', ['Boomi'], 'Boomi'),
    ('Dinakaran', 'dinakaran', ['Dinakaran'], 'Dinakaran'),
    ('Dinamani', 'dinamani', ['Dinamani'], 'Dinamani'),
    ('Dinathanthy', 'dinathanthy', ['Dinathanthy', 'DT-'], 'Dinathanthy'),
    ('Indica', 'indica', ['Indica'], 'Indica Tamil'),
    ('Indoweb', 'indoweb', ['Indoweb'], 'Indoweb'),
    ('Kavipriya', 'kavipriya', ['Kavipriya'], 'Kavipriya'),
    ('Libi', 'libi', ['Libi'], 'Libi'),
    ('Murasoli', 'murasoli', ['Murasoli'], 'Murasoli'),
    ('Nakkeeran', 'nakkeeran', ['Nakkeeran'], 'Nakkeeran'),
    ('Oldvikatan', 'oldvikatan', ['Vikatan'], 'Vikatan'),
    ('Pallavar', 'pallavar', ['Pallavar'], 'Pallavar'),
    ('Shreelipi', 'shreelipi', ['SHREE-TAM-', 'Shree-Tam-'], 'SHREE-TAM-0802'),
    ('Shreelipiavid', 'shreelipiavid', ['Avid'], 'Avid Tamil'),
    ('Softview', 'softview', ['Softview'], 'Softview'),
    ('Stmzh', 'stmzh', ['STMZH'], 'STMZH'),
    ('Tab', 'tab', ['TAB-', 'TAB_'], 'TAB-Anna'),
    ('Tace', 'tace', ['TACE'], 'TACE16'),
    ('Tam', 'tam', ['TAM-', 'TAM_', 'TAMu_'], 'TAMu_Kalyani'),
    ('Tscii', 'tscii', ['TSC'], 'TSCu_Paranar'),
    ('Vanavil', 'vanavil', ['Vanavil', 'VANAVIL'], 'Vanavil-Avvaiyar'),
    ('Webulagam', 'webulagam', ['Webulagam'], 'Webulagam'),
]

UNICODE_FONTS = ['Latha', 'Vijaya', 'Nirmala UI', 'Arial Unicode MS', 'Noto Sans Tamil', 'Noto Serif Tamil',
                 'Lohit Tamil', 'Lohit Tamil Classical', 'TSCu_SaiIndira', 'Mukta Malar', 'Catamaran',
                 'Hind Madurai', 'Meera Inimai', 'Pavanam', 'Kavivanar', 'Tamil Sangam MN', 'InaiMathi']

# The characters the word processor shows for bytes 0x80 to 0x9F of Windows-1252. The five
# bytes that code page leaves undefined keep their C1 control character, as Windows shows them.
CP1252_HIGH = {
    0x80: 0x20AC, 0x82: 0x201A, 0x83: 0x0192, 0x84: 0x201E, 0x85: 0x2026, 0x86: 0x2020, 0x87: 0x2021,
    0x88: 0x02C6, 0x89: 0x2030, 0x8A: 0x0160, 0x8B: 0x2039, 0x8C: 0x0152, 0x8E: 0x017D, 0x91: 0x2018,
    0x92: 0x2019, 0x93: 0x201C, 0x94: 0x201D, 0x95: 0x2022, 0x96: 0x2013, 0x97: 0x2014, 0x98: 0x02DC,
    0x99: 0x2122, 0x9A: 0x0161, 0x9B: 0x203A, 0x9C: 0x0153, 0x9E: 0x017E, 0x9F: 0x0178,
}

# Every printable byte as the word processor shows it.
LEGACY_CODES = [chr(CP1252_HIGH.get(b, b)) for b in range(0x21, 0x100) if b not in (0x7F, 0xA0)]

VOWELS = [chr(c) for c in range(0x0B85, 0x0B95) if c not in (0x0B8B, 0x0B8C, 0x0B8D, 0x0B91)]
CONSONANTS = [chr(c) for c in (0x0B95, 0x0B99, 0x0B9A, 0x0B9E, 0x0B9F, 0x0BA3, 0x0BA4, 0x0BA8, 0x0BAA,
                               0x0BAE, 0x0BAF, 0x0BB0, 0x0BB2, 0x0BB5, 0x0BB4, 0x0BB3, 0x0BB1, 0x0BA9,
                               0x0B9C, 0x0BB7, 0x0BB8, 0x0BB9)] + ['\u0b95\u0bcd\u0bb7']
SIGNS = ['', '\u0bcd'] + [chr(c) for c in (0x0BBE, 0x0BBF, 0x0BC0, 0x0BC1, 0x0BC2, 0x0BC6, 0x0BC7, 0x0BC8,
                                         0x0BCA, 0x0BCB, 0x0BCC)]
SHRI = '\u0bb8\u0bcd\u0bb0\u0bc0'
AYTHAM = '\u0b83'
RA = '\u0bb0'
IR_RI_REE = [RA + '\u0bcd', RA + '\u0bbf', RA + '\u0bc0']

# Decomposed two-part vowel signs, made whole before a Unicode-to-legacy table looks for them.
RECOMPOSE = [('\u0bc6\u0bbe', '\u0bca'), ('\u0bc7\u0bbe', '\u0bcb'), ('\u0bc6\u0bd7', '\u0bcc')]

NUMERALS = [chr(c) for c in range(0x0BE6, 0x0BF3)]
LONE_SIGNS = SIGNS[1:] + ['\u0bd7']
# Printable ASCII: English words, digits and punctuation that Tamil prose carries along.
ASCII = [chr(c) for c in range(0x21, 0x7F)]
# The typographic marks word processors put into prose for quotes, dashes and lists.
TYPOGRAPHIC = ['\u2018', '\u2019', '\u201c', '\u201d', '\u2013', '\u2014', '\u2026', '\u2022']
# What the walk of each encoding covers, by the name the notes give it.
UNIT_KINDS = [('syllables', None), ('numerals', NUMERALS), ('signs', LONE_SIGNS), ('ASCII', ASCII),
              ('typographic marks', TYPOGRAPHIC)]

QUOTES = ["'", '"', '\u2018', '\u2019', '\u201c', '\u201d']


def Syllables():
    syllables = list(VOWELS) + [AYTHAM]
    for consonant in CONSONANTS:
        syllables += [consonant + sign for sign in SIGNS]
    syllables.append(SHRI)
    return syllables


def IsTamil(text):
    return any(0x0B80 <= ord(c) <= 0x0BFF for c in text)


# Characters some facts use for a glyph code that Windows-1252 shows differently: the facts
# give TSCII's ஃ (byte B7) as U+2219, which no Windows-1252 byte shows.
LOOKALIKES = {0x2219: 0x00B7}


def ShownAsWordProcessor(text):
    """Legacy text as a word processor shows the bytes: C1 codes that Windows-1252 defines become
    the character it defines for them."""
    return ''.join(chr(LOOKALIKES.get(ord(c), CP1252_HIGH.get(ord(c), ord(c)))) for c in text)


# TSCII's grantha letters (ஜ ஷ ஸ ஹ க்ஷ) by their byte's Windows-1252 character.
TSCII_GRANTHA = {'\u0192': '\u0b9c', '\u201e': '\u0bb7', '\u2026': '\u0bb8', '\u2020': '\u0bb9',
                 '\u2021': '\u0b95\u0bcd\u0bb7'}
# TSCII 1.7's vowel-sign glyphs read alone (A1-A3, A6-A8, AA, and the two-part signs), as glibc
# reads and writes them.
TSCII_LONE_SIGNS = [('\u00a1', '\u0bbe'), ('\u00a2', '\u0bbf'), ('\u00a3', '\u0bc0'), ('\u00a6', '\u0bc6'),
                    ('\u00a7', '\u0bc7'), ('\u00a8', '\u0bc8'), ('\u00aa', '\u0bd7'),
                    ('\u00a6\u00a1', '\u0bca'), ('\u00a7\u00a1', '\u0bcb'), ('\u00a6\u00aa', '\u0bcc'),
                    ('\u00a7\u00aa', '\u0bcc')]


def TsciiAlternatives(rows):
    """Forms other TSCII writers use (glibc's converter among them), read as well as TSCII 1.7's
    own: ௌ with the ே glyph in front (A7 ... AA); ஸு, ஸூ, ஹு, ஹூ as the letter's glyph (85, 86)
    or the dead consonant's (8A, 8B) with the sign; a grantha letter's prefix sign written after
    the letter (glibc writes ஜெ as 83 A6, ஜொ as 83 A6 A1); the vowel-sign glyphs alone; ௦ at
    80, which the facts lack."""
    extra = []
    for legacy, uni in rows:
        if uni.endswith('\u0bcc') and legacy.startswith('\u00a6') and legacy.endswith('\u00aa'):
            extra.append(('\u00a7' + legacy[1:], uni))
    # The letter's glyph with the sign is what TSCu fonts draw (and what we write); glibc writes
    # the dead consonant's glyph with the sign.
    for letter, dead, consonant in (('\u2026', '\u0160', '\u0bb8'), ('\u2020', '\u2039', '\u0bb9')):
        extra += [(letter + '\u00a4', consonant + '\u0bc1'), (letter + '\u00a5', consonant + '\u0bc2')]
        extra += [(dead + '\u00a4', consonant + '\u0bc1'), (dead + '\u00a5', consonant + '\u0bc2')]
    for glyph, letter in TSCII_GRANTHA.items():
        extra += [(glyph + '\u00a6\u00a1', letter + '\u0bca'), (glyph + '\u00a7\u00a1', letter + '\u0bcb'),
                  (glyph + '\u00a7\u00aa', letter + '\u0bcc'), (glyph + '\u00a6\u00aa', letter + '\u0bcc'),
                  (glyph + '\u00a6', letter + '\u0bc6'), (glyph + '\u00a7', letter + '\u0bc7'),
                  (glyph + '\u00a8', letter + '\u0bc8')]
    return extra + TSCII_LONE_SIGNS + [('\u20ac', '\u0be6')]


REGEX_SPECIAL = set('\\+*?.()[]{}|^$')


# Facts files that escaped every symbol, not only those a regular expression treats as special:
# Dinakaran's five backslashed codes (\/ \% \~ \= and $\%) are its comma, the ு glyph, ளூ,
# ழூ and ஜு, and no other mapping of it holds a backslash.
ESCAPES_EVERY_SYMBOL = {'dinakaran'}


def Unescape(legacy, everySymbol=False):
    """Some facts were copied from regular expressions: a backslash before a character that a
    regular expression treats as special is no glyph of the font."""
    out = []
    i = 0
    while i < len(legacy):
        if legacy[i] == '\\' and i + 1 < len(legacy) and (
                legacy[i + 1] in REGEX_SPECIAL or (everySymbol and legacy[i + 1] in string.punctuation)):
            i += 1
        out.append(legacy[i])
        i += 1
    return ''.join(out)


# Mappings the facts get wrong, by facts file: (legacy, wrong Unicode, right Unicode or None to
# drop the line). Each was found by the round trip of real words and checked against the
# encoding's other lines.
FIXES = {
    # Like Bamini, 'h' is the ா glyph and ';' the pulli; the facts give them as பா and ப்.
    # 'p' and 'P' are the ி and ீ signs (fp is கி, fP is கீ).
    # '/' is the comma, given as a two-stage mapping ('/' to '0000' to ',') that the longest-first
    # order breaks and that would turn the digits 0000 into a comma.
    'dinakaran': [('h', '\u0baa\u0bbe', '\u0bbe'), (';', '\u0baa\u0bcd', '\u0bcd'),
                  ('p', '\u0baa\u0bbf', '\u0bbf'), ('P', '\u0baa\u0bc0', '\u0bc0'),
                  ('/', '0000', ','), ('0000', ',', None)],
    # As in its siblings, 'h' is the ா glyph (fh is கா), not பா.
    'murasoli': [('h', '\u0baa\u0bbe', '\u0bbe')],
    # 'û' is the ை prefix glyph (ûL is கை, ûb is க்ஷை), not க்ஷ.
    # '"' is the double quote, which the facts make a single one.
    'kavipriya': [('\u00fb', '\u0b95\u0bcd\u0bb7', '\u0bc8'), ('"', "'", None)],
    # 'Ø' is the ெ prefix glyph (ØB is யெ, ØðV is ணொ), never ய; so ØBV is யொ.
    'pallavar': [('\u00d8', '\u0baf', None), ('\u00d8BV', '\u0baf', '\u0baf\u0bca')],
    # '-' is the hyphen, which the facts delete ('&' is the font's other hyphen glyph).
    'libi': [('-', '', None)],
    # The ௌ length mark is AA, as in every other ௌ syllable; C7 is ள.
    'tscii': [('\u00a6\u2021\u00c7', '\u0b95\u0bcd\u0bb7\u0bcc', None)],
    # The prefix ெ glyph, ள and the ா glyph are ளொ, as for every other consonant.
    # 'ªë\÷' for ஞௌ holds a backslash that no other ௌ syllable has.
    'tam': [('\u00aa\u00f7\u00a3', '\u0bb3', '\u0bb3\u0bca'), ('\u0192', '\u2018', None),
            ('\u00aa\u00eb\\\u00f7', '\u0b9e\u0bcc', None)],
}

# Mappings the facts lack, by facts file, each checked against a font that draws the encoding.
ADDITIONS = {
    # TAMu fonts draw ங் at byte 83 (ƒ): hb-shape gives their glyph "florin" for ங்.
    # The forms below are read, while the glyphs of their own that the facts give are written:
    # TAMu fonts' ligature tables have no ஞி, ஞீ, யீ, ளி and draw the letter, then the sign's glyph
    # (A4 is ி, A6 is ீ in their character map).
    'tam': [('\u0192', '\u0b99\u0bcd'), ('\u00aa\u00eb\u00f7', '\u0b9e\u0bcc'),
            ('\u00eb\u00a4', '\u0b9e\u0bbf'), ('\u00eb\u00a6', '\u0b9e\u0bc0'),
            ('\u00f2\u00a6', '\u0baf\u0bc0'), ('\u00f7\u00a4', '\u0bb3\u0bbf')],
    # க்ஷௌ with the length mark at AA, as every other ௌ syllable and the TSCu fonts have it.
    'tscii': [('\u00a6\u2021\u00aa', '\u0b95\u0bcd\u0bb7\u0bcc')],
}


def ApplyFixes(name, rows, notes):
    fixed = []
    for legacy, uni in rows:
        for wrongLegacy, wrongUni, right in FIXES.get(name, []):
            if legacy == wrongLegacy and uni == wrongUni:
                notes.append('fixed the facts: %r was given as %s (%s), is %s' % (
                    legacy, wrongUni, Hex(wrongUni), 'no syllable' if right is None else '%s (%s)' % (right, Hex(right))))
                uni = right
                break
        if uni is not None:
            fixed.append((legacy, uni))
    return fixed


def ReadFacts(factsDir, name):
    rows = []
    with open(os.path.join(factsDir, name + '.tsv'), encoding='utf-8') as f:
        for line in f:
            if line.startswith('#'):
                continue
            fields = line.rstrip('\n').split('\t')
            legacy, uni = (fields[1], fields[0]) if name == 'stmzh' else (fields[0], fields[1])
            legacy = Unescape(legacy, name in ESCAPES_EVERY_SYMBOL)
            rows.append((legacy, uni))
    return rows


def ReplaceAllInOrder(text, pairs):
    for find, replacement in pairs:
        if find:
            text = text.replace(find, replacement)
    return text


class Encoding:
    def __init__(self, name, rows):
        self.name = name
        self.notes = []
        rows = rows + self._InferredSignGlyphs(rows)
        self.toUnicode = self._LegacyToUnicodePairs(rows)
        self.glyphCodes = set(c for find, _ in self.toUnicode for c in find)
        self.quotes = [q for q in QUOTES if q not in self.glyphCodes]
        self.candidates = self._Candidates(rows)

    def _InferredSignGlyphs(self, rows):
        # The facts list the grantha syllables with ு and ூ as whole sequences (consonant glyph,
        # then a sign glyph) but never the sign glyph alone, so ஸு, ஷூ... had no way through.
        # The sign's glyph is what follows the consonant's glyph in such a sequence.
        known = {}
        for legacy, uni in rows:
            known.setdefault(uni, legacy)
        inferred = {}
        for legacy, uni in rows:
            sign = uni[-1:]
            if sign in ('\u0bc1', '\u0bc2') and sign not in known and len(uni) >= 2:
                base = known.get(uni[:-1])
                if base and legacy.startswith(base) and len(legacy) > len(base) \
                        and not IsTamil(legacy[len(base):]):
                    inferred.setdefault(sign, legacy[len(base):])
        for sign, glyph in inferred.items():
            self.notes.append('added the lone sign %s (%s) as glyph %r, as its syllables write it'
                              % (sign, Hex(sign), glyph))
        return [(glyph, sign) for sign, glyph in inferred.items()]

    def _LegacyToUnicodePairs(self, rows):
        pairs = []
        seen = set()
        for legacy, uni in rows:
            if ' ' in legacy or ' ' in uni or not legacy:
                self.notes.append('dropped a mapping that holds a blank: %r -> %r' % (legacy, uni))
                continue
            if legacy == uni:
                continue
            for variant in dict.fromkeys([ShownAsWordProcessor(legacy), legacy]):
                if variant not in seen:
                    seen.add(variant)
                    pairs.append((variant, uni))
        # Longest find text first: a shorter sequence never breaks up a longer one that holds it.
        # The facts' own order does in places (a lone consonant or vowel-sign glyph listed
        # before the syllables it is part of); two-stage pairs, which repair text that earlier
        # pairs made, stay last in their order.
        direct = sorted((p for p in pairs if not IsTamil(p[0])), key=lambda p: -len(p[0]))
        repairs = [p for p in pairs if IsTamil(p[0])]
        # The separate forms of ர், ரி, ரீ go first: in several fonts their first glyph is the
        # ா glyph, so a longer pair such as "prefix sign + ப + ா" (பொ) would otherwise eat it
        # out of "prefix sign + ப" followed by ரி. A ா glyph followed by a vowel sign or pulli
        # is never ா, so nothing else is lost.
        plainRa = set(l for l, u in pairs if u == RA)
        special = [p for p in direct if p[1] in IR_RI_REE and not any(p[0].startswith(r) for r in plainRa)]
        # Likewise where the ௌ length mark is the ள glyph: ள with a vowel sign after it is
        # never the length mark, so those pairs go before the ௌ syllables (வெளி, not வௌ + ி).
        # ளொ and ளோ come before ளா, which holds their tail.
        auMarks = set(f[-1] for f, u in pairs if u.endswith('\u0bcc') and len(f) > 1)
        laGlyphs = set(f for f, u in pairs if u == '\u0bb3')
        if auMarks & laGlyphs:
            for ending in ('\u0bca\u0bcb', '\u0bbe\u0bbf\u0bc0\u0bc1\u0bc2\u0bcd'):
                special += [p for p in direct if p not in special and len(p[1]) == 2 and p[1][0] == '\u0bb3'
                            and p[1][1] in ending]
        direct = special + [p for p in direct if p not in special]
        return self._MoveReusedOutputsLast(direct + repairs)

    def _MoveReusedOutputsLast(self, pairs):
        # A plain-text run has no fonts to tell converted text from legacy text: a pair whose
        # replacement holds a glyph code of a later pair would have its output converted again.
        # Such pairs (they turn glyph codes into ASCII punctuation) go last.
        early, late = [], []
        for i, (find, uni) in enumerate(pairs):
            laterCodes = set(c for f, _ in pairs[i + 1:] for c in f)
            (late if not IsTamil(uni) and any(c in laterCodes for c in uni) else early).append((find, uni))
        return early + late

    def _Candidates(self, rows):
        candidates = {}
        for legacy, uni in rows:
            if IsTamil(legacy) or ' ' in legacy or not legacy or legacy == uni:
                continue
            shown = ShownAsWordProcessor(legacy)
            candidates.setdefault(uni, [])
            if shown not in candidates[uni]:
                candidates[uni].append(shown)
        return candidates

    def Decode(self, legacy):
        return ReplaceAllInOrder(legacy, self.toUnicode)

    def LegacyFor(self, syllable, irRiRee):
        options = list(self.candidates.get(syllable, []))
        options += self._Composed(syllable)
        # A soft hyphen (TSCII's old இ at AD) is hidden by word processors: never write it.
        working = sorted((o for o in options if self.Decode(o) == syllable), key=lambda o: '\u00ad' in o)
        if syllable in IR_RI_REE and len(working) > 1:
            plainRa = self.candidates.get(RA, [])
            plain = [o for o in working if any(o.startswith(r) for r in plainRa)]
            special = [o for o in working if o not in plain]
            if irRiRee and special:
                return special[0]
            if not irRiRee and plain:
                return plain[0]
        return working[0] if working else None

    def _Composed(self, syllable):
        # Syllables the facts do not list whole, built from the glyphs of their parts.
        if len(syllable) < 2 or syllable[-1] not in SIGNS:
            return []
        base, sign = syllable[:-1], syllable[-1]
        bases = self.candidates.get(base, [])
        signs = self.candidates.get(sign, [])
        composed = []
        for b in bases:
            for s in signs:
                composed += [s + b, b + s]
        if sign in '\u0bca\u0bcb\u0bcc':
            pre = {'\u0bca': '\u0bc6', '\u0bcb': '\u0bc7', '\u0bcc': '\u0bc6'}[sign]
            post = '\u0bd7' if sign == '\u0bcc' else '\u0bbe'
            for b in bases:
                for p in self.candidates.get(pre, []):
                    for q in self.candidates.get(post, []):
                        composed.append(p + b + q)
        return composed

    def PunctuationPairs(self):
        """ASCII characters and typographic marks whose code the font gives to a Tamil glyph (or
        reads as another character) are written where the font
        keeps them instead (Bamini's comma is '>'), where it has such a place. Each pair finds one
        character and comes before every Tamil pair, so nothing converts its output again."""
        pairs = []
        for mark in ASCII + TYPOGRAPHIC:
            if self.Decode(mark) == mark:
                continue
            places = [c for c in self.candidates.get(mark, []) if len(c) == 1 and self.Decode(c) == mark]
            places += [c for c in LEGACY_CODES if c != mark and self.Decode(c) == mark]
            if places:
                pairs.append((mark, places[0]))
        return pairs

    def ToLegacyPairs(self, irRiRee):
        pairs = self.PunctuationPairs() + list(RECOMPOSE)
        units = Syllables() + [u for u in self.candidates if IsTamil(u) and u not in Syllables()]
        chosen = []
        for order, unit in enumerate(units):
            legacy = self.LegacyFor(unit, irRiRee)
            if legacy is None:
                continue
            chosen.append((-len(unit), order, unit, legacy))
        chosen.sort()
        pairs += [(unit, legacy) for _, _, unit, legacy in chosen]
        return pairs


def NormalQuotePairs(encoding):
    pairs = []
    for q in encoding.quotes:
        straight = "'" if q in "'\u2018\u2019" else '"'
        if q != straight:
            pairs.append((q, straight))
    return pairs


def WalkFailures(encoding, toLegacy, units):
    """Units the whole table leaves (partly) in Tamil, or that do not come back. A syllable with
    no glyph of its own may still be carried by its parts (க்ஷ as க் and ஷ)."""
    failures = []
    for unit in units:
        legacy = ReplaceAllInOrder(unit, toLegacy)
        if IsTamil(legacy) or encoding.Decode(legacy) != unit:
            failures.append(unit)
    return failures


def GapLines(failures):
    """The notes' lines of what a walk lost. The converter's tests read them back: every item
    ends with its code points in brackets."""
    lines = []
    for kind, _ in UNIT_KINDS:
        label = 'cannot carry' if kind == 'syllables' else 'cannot carry %s' % kind
        if failures[kind]:
            lines.append('  %s: %s' % (label, ', '.join('%s (%s)' % (u, Hex(u)) for u in failures[kind])))
    if not any(failures.values()):
        lines.append('  carries every syllable, numeral, sign, ASCII character and typographic mark.')
    return lines


# What ordinary prose holds besides Tamil: digits and the common punctuation.
PROSE_MARKS = '0123456789.,;:!?\'"()-/%'


def SummaryRow(name, failures):
    cells = [name]
    for kind, units in UNIT_KINDS:
        total = len(units or Syllables())
        cells.append('%d/%d' % (total - len(failures[kind]), total))
    lostMarks = ''.join(m for m in PROSE_MARKS if m in failures['ASCII'])
    lostLetters = sum(1 for u in failures['ASCII'] if u.isalpha())
    cells.append(lostMarks or '-')
    cells.append('%d of 52' % lostLetters if lostLetters else '-')
    return cells


def SummaryTable(rows):
    header = ['Encoding'] + [kind.split()[0] for kind, _ in UNIT_KINDS] + ['prose loses', 'English letters lost']
    widths = [max(len(r[i]) for r in [header] + rows) + 2 for i in range(len(header))]
    lines = ['What each encoding holds: units that come back from Unicode to the encoding and back',
             '(the same as the lists under each encoding below). A round trip of prose gives it back but for',
             'the digits and punctuation under "prose loses" and, in English words, the letters the font',
             'keeps Tamil glyphs under.']
    for row in [header] + rows:
        lines.append('  ' + ''.join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())
    return lines


def TableText(pairs):
    return '\r\n'.join(find + ' ' + replacement for find, replacement in pairs)


def WriteUtf16(path, text):
    with open(path, 'wb') as f:
        f.write(b'\xff\xfe' + text.encode('utf-16-le'))


def Hex(text):
    return ' '.join('%04X' % ord(c) for c in text)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('--facts', default='/work/shared/facts/encodings')
    parser.add_argument('--out', default=os.path.join(ROOT, 'data', 'Sorvin', 'Tamil Fonts Converter'))
    args = parser.parse_args()
    tablesDir = os.path.join(args.out, 'tables')
    os.makedirs(tablesDir, exist_ok=True)

    notes = [
        'The converter\'s tables, what each legacy encoding cannot carry, and what was changed in its mapping facts.',
        'Generated by scripts/converter/make_tables.py; syllables are listed with their code points.',
        '',
        'Tables: tables/<id>.txt, UTF-16LE with its mark, one pair a line ("find replacement"), applied in order',
        'as one replace-all per pair. For the encoding at list position p of QuilomPlus-TamilFontEncodings.txt:',
        '  100 + p  legacy to Unicode; the font\'s curly quotes become straight ones ("normal quotes")',
        '  151 + p  legacy to Unicode; the font\'s quotes are kept as they are ("decorative quotes")',
        '  202 + p  Unicode to legacy; ர், ரி, ரீ in the font\'s separate glyphs where it has them ("IrRiRee Form")',
        '  253 + p  Unicode to legacy; ர், ரி, ரீ written with the plain ர glyph and the sign',
        'Unicode-to-legacy tables convert Tamil letters, and the ASCII characters whose code the font gives to a',
        'Tamil glyph where the font keeps them elsewhere (Bamini\'s comma is ">"): those pairs find one character',
        'each and come first; typographic marks (curly quotes, dashes, ellipsis, bullet) likewise. Other ASCII',
        'and marks pass as they are; what then reads back as something else is listed under "cannot carry ASCII"',
        'and "cannot carry typographic marks". Decomposed vowel signs (U+0BC6 U+0BBE...) are joined first.',
        'QuilomPlus-LegacyQuotes.txt: line p holds the quote characters of encoding p (those its glyphs leave',
        'free), separated by five blanks.',
        '',
        'Not shipped: the romanisations among the facts (diacritic, roman, koeln, mylai) are transliteration schemes,',
        'not font encodings, and several of their mappings hold blanks, which a one-pair-a-line table cannot carry.',
        '',
        'TSCII is checked against glibc\'s TSCII 1.7 converter in both directions. glibc writes the prefix vowel',
        'signs of the grantha letters (ஜெ, ஷோ...) after the letter, in Unicode\'s order; fonts need them in front,',
        'as these tables write them, so glibc reads our ஜெ as ெஜ. We read glibc\'s order too (83 A6 is ஜெ), but',
        'where the letter, a prefix-sign glyph and a consonant follow each other (84 A7 B8) the standard\'s reading',
        '(ஷ கே) wins over glibc\'s (ஷே க), since text written the standard\'s way holds that order. glibc\'s other',
        'forms (A7 ... AA for ௌ, 8A and 8B with the u signs) and the vowel-sign glyphs alone are read as well.',
        '',
    ]
    quoteLines = []
    summary, sections = [], []
    for position, (name, facts, _, _) in enumerate(ENCODINGS, start=1):
        fixNotes = []
        rows = ApplyFixes(facts, ReadFacts(args.facts, facts), fixNotes)
        for legacy, uni in ADDITIONS.get(facts, []):
            fixNotes.append('added to the facts: %r is %s (%s)' % (legacy, uni, Hex(uni)))
            rows.append((legacy, uni))
        if facts == 'tscii':
            rows += TsciiAlternatives(rows)
        encoding = Encoding(name, rows)
        encoding.notes += fixNotes
        normal = encoding.toUnicode + NormalQuotePairs(encoding)
        WriteUtf16(os.path.join(tablesDir, '%d.txt' % (100 + position)), TableText(normal))
        WriteUtf16(os.path.join(tablesDir, '%d.txt' % (151 + position)), TableText(encoding.toUnicode))
        failures = {kind: [] for kind, _ in UNIT_KINDS}
        for base, irRiRee in ((202, True), (253, False)):
            pairs = encoding.ToLegacyPairs(irRiRee)
            WriteUtf16(os.path.join(tablesDir, '%d.txt' % (base + position)), TableText(pairs))
            for kind, units in UNIT_KINDS:
                for unit in WalkFailures(encoding, pairs, units or Syllables()):
                    if unit not in failures[kind]:
                        failures[kind].append(unit)
        quoteLines.append('     '.join(encoding.quotes))
        summary.append(SummaryRow(name, failures))
        sections.append('%s (list position %d, tables %d, %d, %d, %d):' % (name, position, 100 + position,
                                                                          151 + position, 202 + position,
                                                                          253 + position))
        sections += GapLines(failures)
        moved = encoding.PunctuationPairs()
        if moved:
            sections.append('  writes ASCII and marks at the font\'s own places for them: ' +
                            ', '.join('%s as %s' % (mark, place) for mark, place in moved))
        sections += ['  ' + n for n in encoding.notes]
        sections.append('')

    notes += SummaryTable(summary) + [''] + sections
    names = ['Unicode'] + [e[0] for e in ENCODINGS]
    patterns = ['Arial Unicode MS, Latha, Nirmala UI, Vijaya'] + [', '.join(e[2]) for e in ENCODINGS]
    defaults = ['Latha'] + [e[3] for e in ENCODINGS]
    out = args.out
    WriteUtf16(os.path.join(out, 'QuilomPlus-TamilFontEncodings.txt'), '\r\n'.join(names))
    WriteUtf16(os.path.join(out, 'QuilomPlus-NonUniSearchPatterns.txt'), '\r\n'.join(patterns))
    WriteUtf16(os.path.join(out, 'QuilomPlus-TamilFontEncodings-DefaultFontToBeUsed.txt'), '\r\n'.join(defaults))
    WriteUtf16(os.path.join(out, 'QuilomPlus-Unicode fonts.txt'), '\r\n'.join(UNICODE_FONTS))
    WriteUtf16(os.path.join(out, 'QuilomPlus-LegacyQuotes.txt'), '\r\n'.join([''] + quoteLines))
    WriteUtf16(os.path.join(out, 'Encoding notes.txt'), '\r\n'.join(notes))
    print('wrote %d encodings, %d tables into %s' % (len(ENCODINGS), 4 * len(ENCODINGS), out))
    return 0


if __name__ == '__main__':
    sys.exit(main())
