"""A small model of the program's typing engine, for the generators' own checks.

It follows the engine's rule: the longest typed tail that is a key wins, the whole output is
re-rendered and only the difference is typed, and the buffer restarts when the keys since the
last match neither match nor begin any key. Joining texts and punctuation slots are left out:
the keymaps generated here do not rely on them. The unit tests check the real engine.
"""


def Utf16Key(text):
    return text.encode("utf-16-be")


class EngineModel:
    def __init__(self, entries):
        pairs = sorted(dict(entries).items(), key=lambda kv: Utf16Key(kv[0]))
        self.keys = [k for k, _ in pairs]
        self.outputs = [o for _, o in pairs]
        self.byFirst = {}
        for index, key in enumerate(self.keys):
            first, last = self.byFirst.get(key[0], (index, index))
            self.byFirst[key[0]] = (first, index)
        self.Reset()

    def Reset(self):
        self.typed = ""
        self.history = [""]
        self.lastPosition = 0
        self.lastEntry = None
        self.screen = ""

    def _Scan(self, start, tail):
        span = self.byFirst.get(tail[0])
        if span is None:
            return False, None
        first, last = span
        if start == self.lastPosition and self.lastEntry is not None:
            first = self.lastEntry
        prefix = False
        for j in range(first, last + 1):
            key = self.keys[j]
            if len(key) >= len(tail) and key.startswith(tail):
                prefix = True
                if key == tail:
                    return True, j
        return prefix, None

    def _Type(self, erase, text):
        if erase:
            self.screen = self.screen[:-erase]
        self.screen += text

    def Key(self, c):
        self.typed += c
        i = 1
        erase, tail = 0, c
        while i <= len(self.typed):
            prefix, match = self._Scan(i, self.typed[i - 1:])
            if match is not None:
                tail, erase = self.outputs[match], 0
                if i < len(self.typed):
                    erase, tail = Difference(self.history[-1], self.history[i - 1] + tail)
                self.lastPosition, self.lastEntry = i, match
                break
            if i == self.lastPosition and not prefix:
                self.typed, self.history = c, [""]
                self.lastPosition, self.lastEntry = 0, None
                i = 1
                continue
            i += 1
        previous = self.history[-1]
        self.history.append((previous[:-erase] if erase > 0 else previous) + tail)
        self._Type(erase, tail)

    def Type(self, keys):
        for c in keys:
            self.Key(c)
        return self.screen


def Difference(before, after):
    same = 0
    while same < min(len(before), len(after)) and before[same] == after[same]:
        same += 1
    return len(before) - same, after[same:]


def TypeWords(entries, keys):
    """Types `keys` with a fresh engine; blanks end words and reset the buffer, as a typist's
    space bar does (the space is typed through)."""
    model = EngineModel(entries)
    out = []
    for word in keys.split(" "):
        model.Reset()
        out.append(model.Type(word))
    return " ".join(out)
