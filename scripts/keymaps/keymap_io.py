"""Reading and writing keymap files.

A keymap file holds one entry a line as "<om>" + key + " " + output + "</om>"; the loader
skips the first line and every line without both markers, so the first line names the
scheme and comment lines (without markers) may explain the file to a person editing it.
Files are UTF-8 with a mark and CR LF line ends, which the program's file reader detects.
"""

import os

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DATA = os.path.join(REPO, "data", "Sorvin")
TYPER = os.path.join(DATA, "Indic Direct Typer")
KEYMAP_FOLDER = os.path.join(TYPER, "qmLFKs-txts-xmls")
INPS_FOLDER = os.path.join(TYPER, "inps")
CHARTS_FOLDER = os.path.join(TYPER, "help", "charts")

LINE_FEED_MARK = "|`~`|"


def KeymapPath(lfk, folder=KEYMAP_FOLDER):
    return os.path.join(folder, "QuilomPlus-" + lfk + ".xml")


def _CheckEntry(key, output):
    if not key or " " in key:
        raise ValueError("a key must be non-empty and hold no blank: %r" % key)
    if "<om>" in key + output or "</om>" in key + output:
        raise ValueError("entry holds a marker: %r" % key)


def JoiningLine(switch, text, firstRange, secondRange=(0, 0)):
    """The line that carries a language's joining values: the switch, the joining text and
    two ranges of code points, in hexadecimal."""
    codes = "+".join("%04X" % ord(c) for c in text) or "-"
    ranges = " ".join("%04X-%04X" % r for r in (firstRange, secondRange))
    return "<joining>%d %s %s</joining>" % (1 if switch else 0, codes, ranges)


def WriteKeymap(path, title, entries, comments=(), joining=None):
    """Writes `entries` (an ordered list or dict of key -> output) under a title line.

    A later entry with the same key as an earlier one replaces it, so generators can refine
    a general rule with its exceptions by simply adding them afterwards.
    """
    merged = {}
    for key, output in (entries.items() if isinstance(entries, dict) else entries):
        _CheckEntry(key, output)
        merged[key] = output
    lines = ['<?xml version="1.0" encoding="utf-8"?> <!-- ' + title + " -->"]
    for comment in comments:
        if "<om>" in comment or "</om>" in comment:
            raise ValueError("comment holds a marker")
        lines.append("<!-- " + comment + " -->" if comment else "")
    if joining:
        lines.append(joining)
    lines.append("<keymap>")
    for key, output in merged.items():
        lines.append("<om>" + key + " " + output.replace("\n", LINE_FEED_MARK) + "</om>")
    lines.append("</keymap>")
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(b"\xef\xbb\xbf" + "\r\n".join(lines).encode("utf-8") + b"\r\n")
    return merged


def ReadKeymap(path):
    """Returns the entries of a keymap file as the program's loader sees them, in file order."""
    with open(path, "rb") as f:
        raw = f.read()
    if raw.startswith(b"\xef\xbb\xbf"):
        text = raw[3:].decode("utf-8")
    elif raw.startswith(b"\xff\xfe"):
        text = raw[2:].decode("utf-16-le")
    else:
        text = raw.decode("utf-8")
    entries = []
    for line in text.split("\r\n")[1:]:
        start, end = line.find("<om>"), line.find("</om>")
        if start < 0 or end < 0:
            continue
        fields = line[start + 4:end].split(" ")
        entries.append((fields[0], " ".join(fields[1:]).replace(LINE_FEED_MARK, "\n")))
    return entries
