#!/usr/bin/env python3
"""Draws a chart (SVG) of every keymap in the keymap folder, from the keymap itself.

Each chart has the keyboard, where each key shows what it types by itself (unshifted below,
shifted above), a grid of the syllables a consonant key and a vowel key make together, and
the other key sequences of the keymap. Everything shown is computed by typing the keys
through a model of the engine, so the chart cannot disagree with the keymap it was drawn
from. Writes help/charts/<LFK>.svg.
"""

import html
import os
import sys
import unicodedata

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from engine_model import EngineModel  # noqa: E402
from keymap_io import CHARTS_FOLDER, KEYMAP_FOLDER, ReadKeymap  # noqa: E402

ROWS = [("`1234567890-=", "~!@#$%^&*()_+"), ("qwertyuiop[]\\", "QWERTYUIOP{}|"),
        ("asdfghjkl;'", 'ASDFGHJKL:"'), ("zxcvbnm,./", "ZXCVBNM<>?")]
KEY = 56
FONT = "Noto Sans, Lohit Tamil, Lohit Devanagari, Nirmala UI, Latha, Mangal, sans-serif"


class Chart:
    def __init__(self, entries):
        self.entries = dict(entries)
        self.model = EngineModel(entries)

    def Typed(self, keys):
        self.model.Reset()
        return self.model.Type(keys)

    def IsVowelKey(self, key):
        out = self.entries.get(key, "")
        return len(out) == 1 and "VOWEL" not in unicodedata.name(out, "") and \
            unicodedata.category(out) == "Lo" and ("LETTER A" in unicodedata.name(out, "") or
                                                   any(w in unicodedata.name(out, "") for w in
                                                       (" LETTER I", " LETTER U", " LETTER E",
                                                        " LETTER O", " LETTER AI", " LETTER AU",
                                                        " LETTER VOCALIC")))

    def IsConsonantKey(self, key):
        out = self.entries.get(key, "")
        if not out or self.IsVowelKey(key):
            return False
        last = out.rstrip("\u094d\u09cd\u0a4d\u0acd\u0b4d\u0bcd\u0c4d\u0ccd\u0d4d\ua8c4")[-1:]
        return bool(last) and unicodedata.category(last) == "Lo" and \
            unicodedata.name(last, "").split(" LETTER ")[-1] not in ("", "A") and \
            " LETTER " in unicodedata.name(last, "")

    def Grid(self):
        vowels = [k for k in self.entries if self.IsVowelKey(k)]
        consonants = [k for k in self.entries if self.IsConsonantKey(k) and len(k) <= 3 and
                      any(k + v in self.entries for v in vowels)]
        vowelSet = set(vowels)
        consonants = [k for k in consonants  # "ka" is a syllable, not a consonant key
                      if not any(k[:n] in self.entries and k[n:] in vowelSet for n in range(1, len(k)))]
        if not vowels or not consonants:
            return [], [], set()
        joined = set()
        columns, rows = Grouped(vowels, self.Typed), Grouped(consonants, self.Typed)
        for c in consonants:
            for v in vowels:
                if c + v in self.entries:
                    joined.add(c + v)
        return rows, columns, joined


def Grouped(keys, typed):
    """Keys that type the same text share one row or column: [(label, first key)]."""
    groups = {}
    for key in keys:
        groups.setdefault(typed(key), []).append(key)
    return [(" ".join(ks), ks[0]) for ks in groups.values()]


def Text(x, y, s, size=14, anchor="start", colour="#111"):
    return '<text x="%d" y="%d" font-size="%d" text-anchor="%s" fill="%s">%s</text>' % (
        x, y, size, anchor, colour, html.escape(s))


def Keyboard(chart, top):
    parts = []
    for r, (plain, shifted) in enumerate(ROWS):
        for i, (p, s) in enumerate(zip(plain, shifted)):
            x, y = 20 + r * KEY // 3 + i * (KEY + 4), top + r * (KEY + 4)
            parts.append('<rect x="%d" y="%d" width="%d" height="%d" rx="6" fill="#f4f4f0" '
                         'stroke="#888"/>' % (x, y, KEY, KEY))
            parts.append(Text(x + 4, y + 14, s, 11, colour="#777"))
            parts.append(Text(x + 4, y + KEY - 6, p, 11, colour="#777"))
            for key, dy in ((s, 22), (p, KEY - 8)):
                out = chart.Typed(key)
                if out != key:
                    parts.append(Text(x + KEY - 4, y + dy, out, 18, "end", "#8a1c1c"))
    return parts, top + 4 * (KEY + 4) + 20


def SyllableGrid(chart, top):
    rows, columns, joined = chart.Grid()
    if not rows:
        return [], top, joined
    parts = [Text(20, top, "Consonant key, then vowel key", 16)]
    cell, head = 46, 70
    top += 12
    for j, (label, _) in enumerate(columns):
        parts.append(Text(20 + head + j * cell + cell // 2, top + 14, label, 10, "middle", "#555"))
    for i, (label, ckey) in enumerate(rows):
        y = top + 22 + i * 26
        parts.append(Text(20, y + 16, label, 10, colour="#555"))
        for j, (_, vkey) in enumerate(columns):
            out = chart.Typed(ckey + vkey)
            parts.append(Text(20 + head + j * cell + cell // 2, y + 17, out, 16, "middle"))
    return parts, top + 40 + len(rows) * 26, joined


def OtherSequences(chart, top, joined):
    # "k.h" types what "k" types (the halant a consonant already has): listed once, as ".h"
    others = [k for k in chart.entries if len(k) > 1 and k not in joined and
              not (k.endswith(".h") and chart.entries.get(k[:-2]) == chart.entries[k])]
    if not others:
        return [], top
    parts = [Text(20, top, "Other key sequences", 16)]
    perColumn = 40
    for n, key in enumerate(others):
        x, y = 20 + (n // perColumn) * 150, top + 24 + (n % perColumn) * 22
        parts.append(Text(x, y, key, 12, colour="#555"))
        parts.append(Text(x + 60, y, chart.Typed(key).replace("\n", "⏎"), 16))
    return parts, top + 40 + min(len(others), perColumn) * 22


def Svg(lfk, entries):
    chart = Chart(entries)
    parts = [Text(20, 30, lfk, 20)]
    board, top = Keyboard(chart, 50)
    grid, top, joined = SyllableGrid(chart, top + 10)
    others, top = OtherSequences(chart, top + 10, joined)
    parts += board + grid + others
    width = max(900, 20 + 150 * (1 + max(0, len(others) // 2 - 1) // 40),
                110 + 46 * len(chart.Grid()[1]))
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" font-family="%s">\n'
            '<rect width="100%%" height="100%%" fill="white"/>\n%s\n</svg>\n'
            % (width, top + 20, FONT, "\n".join(parts)))


def Write():
    os.makedirs(CHARTS_FOLDER, exist_ok=True)
    written = []
    for name in sorted(os.listdir(KEYMAP_FOLDER)):
        if not (name.startswith("QuilomPlus-") and name.endswith(".xml")):
            continue
        lfk = name[len("QuilomPlus-"):-len(".xml")]
        svg = Svg(lfk, ReadKeymap(os.path.join(KEYMAP_FOLDER, name)))
        with open(os.path.join(CHARTS_FOLDER, lfk + ".svg"), "w", encoding="utf-8") as f:
            f.write(svg)
        written.append(lfk)
    return written


if __name__ == "__main__":
    print("charts: %d" % len(Write()))
