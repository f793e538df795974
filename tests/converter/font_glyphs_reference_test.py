#!/usr/bin/python3
"""The TSCII and TAM tables against the glyphs of the fonts that draw those encodings.

    font_glyphs_reference_test.py QUILOM DATA_DIR

A legacy font keeps a glyph under each byte (its character map lists the byte's Windows-1252
character) and maps the Tamil code points to the same glyphs, joining them with its ligature
tables. So HarfBuzz, shaping a Unicode syllable with the font, tells which glyphs the syllable
is, and the character map tells which bytes draw them. For every syllable this checks that the
built `quilom convert` reads those bytes as the syllable, and that the bytes it writes for the
syllable draw the same glyphs. A byte is read for the glyph it maps to; the bytes we write
must draw the same glyphs or glyphs of the same outline (TSCu fonts draw இ both under AD and
under FE).

Exits 77 (skipped) when hb-shape or the fonts are missing, 1 on any difference or without
fontTools.
"""

import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile

SKIP = 77
FONT_ROOT = '/usr/share/fonts/truetype'
# Encoding name in the converter's list, and the fonts that draw it, held to every syllable.
ENCODINGS = [('Tscii', 'fonts-taml-tscu/TSCu_Paranar.ttf'), ('Tam', 'fonts-taml-tamu/TAMu_Kalyani.ttf'),
             ('Tam', 'fonts-taml-tamu/TAMu_Maduram.ttf')]
# Fonts of the same packages that are only reported on, with the reason.
REPORTED = {
    'TSCu_Comic.ttf': 'has no glyph under 96, 97, 98 (௭ ௮ ௯), draws ௧ at 81 with the glyph of க and keeps ணூ, ழூ '
                      'under other bytes',
    'TSCu_Times.ttf': 'shapes ௧ to the glyph of க and ணூ to the glyph under CF (ணு)',
    'TSCu_paranarb.ttf': 'keeps இ, ஊ and நூ under other bytes (95, B7)',
    'TSCu_paranari.ttf': 'shapes ொ and ௌ with the glyphs under B4 and B6 (ஒ, ஔ)',
    'TAMu_Kadampari.ttf': 'maps each Latin-1 character to the glyph of the next one (é to egrave)',
}
# Where a font's ligature tables fall short of the encoding, by encoding: the syllable, the
# reason. These are still read the font's way; we write the encoding's own glyph.
FONT_FAULTS = {
    'Tam': {
        '\u0ba3\u0bc2': 'TAMu fonts shape ணூ to the glyph of ணு (B5); TAM has ணூ at C8',
        '\u0b9e\u0bbf': 'TAMu fonts have no ligature for ஞி and draw the letter and the sign; TAM has it at 44',
        '\u0b9e\u0bc0': 'likewise ஞீ, at 5A in TAM',
        '\u0baf\u0bc0': 'likewise யீ, at 66 in TAM',
        '\u0bb3\u0bbf': 'likewise ளி, at 4F in TAM',
    },
}

CONSONANTS = [chr(c) for c in (0x0B95, 0x0B99, 0x0B9A, 0x0B9E, 0x0B9F, 0x0BA3, 0x0BA4, 0x0BA8, 0x0BAA, 0x0BAE,
                               0x0BAF, 0x0BB0, 0x0BB2, 0x0BB5, 0x0BB4, 0x0BB3, 0x0BB1, 0x0BA9, 0x0B9C, 0x0BB7,
                               0x0BB8, 0x0BB9)] + ['\u0b95\u0bcd\u0bb7']
SIGNS = ['', '\u0bcd', '\u0bbe', '\u0bbf', '\u0bc0', '\u0bc1', '\u0bc2', '\u0bc6', '\u0bc7', '\u0bc8', '\u0bca',
         '\u0bcb', '\u0bcc']
OTHERS = [chr(c) for c in range(0x0B85, 0x0B95) if c not in (0x0B8B, 0x0B8C, 0x0B8D, 0x0B91)] + \
         ['\u0b83', '\u0bb8\u0bcd\u0bb0\u0bc0'] + [chr(c) for c in range(0x0BE6, 0x0BF3)]
UNITS = OTHERS + [c + s for c in CONSONANTS for s in SIGNS]
# A line that is no valid UTF-8, so that the converter takes the input for legacy bytes whatever
# it would guess; its result is not looked at.
GUARD = b'\xff'


def Cp1252(byte):
    try:
        return bytes([byte]).decode('cp1252')
    except UnicodeDecodeError:
        return chr(byte)


class Font:
    def __init__(self, path):
        from fontTools.ttLib import TTFont
        self.path = path
        font = TTFont(path)
        glyf = font['glyf'] if 'glyf' in font else None
        self._key = {}
        for name in font.getGlyphOrder():
            self._key[name] = glyf[name].compile(glyf) if glyf is not None and name in glyf else name
        cmap = font.getBestCmap()
        self.glyphOfByte = {}
        self.bytesOfKey = {}
        for byte in range(0x21, 0x100):
            glyph = cmap.get(ord(Cp1252(byte)))
            if glyph and glyph != '.notdef':
                self.glyphOfByte[byte] = glyph
                self.bytesOfKey.setdefault(self._key[glyph], []).append(byte)
        self.byteOfGlyph = {}
        for byte, glyph in self.glyphOfByte.items():
            self.byteOfGlyph.setdefault(glyph, byte)

    def Key(self, glyph):
        return self._key.get(glyph, glyph)

    def Shape(self, units):
        """Each unit's glyph names, as HarfBuzz shapes it with this font."""
        with tempfile.NamedTemporaryFile('w', encoding='utf-8', suffix='.txt') as text:
            text.write('\n'.join(units) + '\n')
            text.flush()
            out = subprocess.run(['hb-shape', '--no-positions', '--no-clusters', '--text-file', text.name, self.path],
                                 check=True, capture_output=True, text=True).stdout
        return [line.strip()[1:-1].split('|') for line in out.splitlines()]

    def BytesFor(self, glyphs):
        """The bytes that draw `glyphs`, or None when one has no byte of its own."""
        out = []
        for glyph in glyphs:
            # The glyph's own byte; else one that draws the same outline (Tamil numerals share
            # outlines with letters, so the outline alone would pick the wrong byte).
            places = [self.byteOfGlyph[glyph]] if glyph in self.byteOfGlyph else self.bytesOfKey.get(self.Key(glyph))
            if not places:
                return None
            out.append(places[0])
        return bytes(out)

    def Draws(self, data):
        return [self.Key(self.glyphOfByte.get(b, '(byte %02X has no glyph)' % b)) for b in data]


def Convert(quilom, data, source, target, lines):
    with tempfile.TemporaryDirectory() as folder:
        given = os.path.join(folder, 'in.txt')
        result = os.path.join(folder, 'out.txt')
        with open(given, 'wb') as f:
            f.write(b'\n'.join(lines) + b'\n')
        # A syllable the table cannot write must not stop the others: it is replaced, and differs.
        keep = ['--unmappable', 'replace'] if source == 'Unicode' else []
        run = subprocess.run([quilom, '--data', data, 'convert', '--from', source, '--to', target] + keep +
                             [given, '-o', result], capture_output=True)
        # 3: written, with characters replaced; those lines then differ.
        if run.returncode not in (0, 3):
            raise RuntimeError('quilom convert --from %s --to %s failed: %s' % (source, target, run.stderr.decode()))
        with open(result, 'rb') as f:
            return f.read().replace(b'\r\n', b'\n').split(b'\n')


def NotedAsciiGaps(data, encoding):
    """The ASCII characters the notes say the encoding cannot carry."""
    path = os.path.join(data, 'Tamil Fonts Converter', 'Encoding notes.txt')
    with open(path, 'rb') as f:
        lines = f.read().decode('utf-16').split('\r\n')
    current = None
    for line in lines:
        if not line.startswith(' ') and '(list position' in line:
            current = line.split(' (')[0]
        elif current == encoding and line.startswith('  cannot carry ASCII: '):
            return set(chr(int(code, 16)) for code in re.findall(r'\(([0-9A-F]{4})\)', line))
    return set()


def Hex(data):
    return ' '.join('%02X' % b for b in data)


def CheckFont(quilom, data, encoding, font):
    """Differences between our tables and the font, one line each."""
    shaped = dict(zip(UNITS, font.Shape(UNITS)))
    drawable = {u: g for u, g in shaped.items() if '.notdef' not in g and font.BytesFor(g) is not None}
    units = [u for u in UNITS if u in drawable]
    problems = []
    fontBytes = [font.BytesFor(drawable[u]) for u in units]
    read = Convert(quilom, data, encoding, 'Unicode', fontBytes + [GUARD])
    faults = FONT_FAULTS.get(encoding, {})
    for unit, legacy, back in zip(units, fontBytes, read):
        if back.decode('utf-8', 'replace') != unit and unit not in faults:
            problems.append('%s: the font draws %s (%s) with bytes %s; we read them as %s' % (
                encoding, unit, ' '.join(drawable[unit]), Hex(legacy), back.decode('utf-8', 'replace')))
    written = Convert(quilom, data, 'Unicode', encoding, [u.encode('utf-8') for u in units])
    for unit, ours in zip(units, written):
        want = [font.Key(g) for g in drawable[unit]]
        if font.Draws(ours) != want and unit not in faults:
            problems.append('%s: we write %s as %s, which the font draws as %s, not %s' % (
                encoding, unit, Hex(ours), ' '.join(font.glyphOfByte.get(b, '?') for b in ours),
                ' '.join(drawable[unit])))
    # An ASCII byte whose glyph the font uses for Tamil cannot carry the character: the notes
    # must say so.
    tamilGlyphs = set(g for glyphs in drawable.values() for g in glyphs)
    gaps = NotedAsciiGaps(data, encoding)
    for byte in range(0x21, 0x7F):
        if font.glyphOfByte.get(byte) in tamilGlyphs and chr(byte) not in gaps:
            problems.append('%s: the font draws Tamil with the glyph at %02X (%s), yet the notes say %s passes' % (
                encoding, byte, font.glyphOfByte[byte], chr(byte)))
    return len(units), problems


def main():
    if len(sys.argv) != 3:
        print(__doc__)
        return 2
    quilom, data = sys.argv[1], sys.argv[2]
    try:
        import fontTools  # noqa: F401
    except ImportError:
        print('%s has no fontTools: install python3-fonttools (scripts/install-deps.sh does)' % sys.executable)
        return 1
    if not shutil.which('hb-shape'):
        print('skipped: no hb-shape')
        return SKIP
    fonts = [(encoding, os.path.join(FONT_ROOT, name)) for encoding, name in ENCODINGS]
    if not all(os.path.exists(path) for _, path in fonts):
        print('skipped: the TSCII and TAM fonts are not under %s' % FONT_ROOT)
        return SKIP
    failures = 0
    for encoding, path in fonts:
        checked, problems = CheckFont(quilom, data, encoding, Font(path))
        print('%s, %s: %d units the font draws from bytes, %d differences' % (
            encoding, os.path.basename(path), checked, len(problems)))
        for problem in problems:
            print('  ' + problem)
        failures += len(problems)
        if checked < 290:
            print('  too few units to be a check: the font or its reading changed')
            failures += 1
    for encoding, pattern in (('Tscii', 'fonts-taml-tscu/*.ttf'), ('Tam', 'fonts-taml-tamu/*.ttf')):
        for path in sorted(glob.glob(os.path.join(FONT_ROOT, pattern))):
            if os.path.basename(path) in REPORTED:
                checked, problems = CheckFont(quilom, data, encoding, Font(path))
                print('not held to (it %s): %s, %s, %d differences in %d units' % (
                    REPORTED[os.path.basename(path)], encoding, os.path.basename(path), len(problems), checked))
    return 1 if failures else 0


if __name__ == '__main__':
    sys.exit(main())
