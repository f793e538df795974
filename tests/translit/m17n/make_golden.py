#!/usr/bin/env python3
"""Makes the key lists the keymap tests type, and records what m17n's input methods (an
independent implementation of the same standards) type for them.

  make_golden.py HARNESS            rewrite the .tsv files (keys, then m17n's text)
  make_golden.py HARNESS --check    type the recorded keys again and compare with the files

HARNESS is the m17n_type program built from m17n_type.cpp. The Tamil words come from Debian's
aspell-ta dictionary (aspell -l ta dump master); other key lists are drawn at random with a
fixed seed, so the files only change when the generators change.
"""

import os
import random
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "..", "..", "scripts", "keymaps"))
import make_indic_itrans  # noqa: E402
import make_tamil99  # noqa: E402
import make_tamil_typewriter as typewriter  # noqa: E402
from engine_model import TypeWords  # noqa: E402
from indic_scripts import SCRIPTS  # noqa: E402
from tamil_letters import PULLI, SOFT_HARD, VOWEL_SIGNS  # noqa: E402

ITRANS_METHODS = {"Hindi": "hi", "Sanskrit": "sa", "Marathi": "mr", "Gujarati": "gu",
                  "Bengali": "bn", "Assamese": "as", "Punjabi": "pa", "Oriya": "or",
                  "Telugu": "te", "Kannada": "kn", "Malayalam": "ml"}


class Tamil99Typist:
    """Turns a Tamil word into the keys a Tamil99 typist presses: the automatic pulli where
    the standard gives it, அ's key where a consonant must not join what follows."""

    def __init__(self):
        self.consonantKey = {c: k for k, c in make_tamil99.CONSONANT_KEYS.items()}
        self.vowelKey = {v: k for k, v in make_tamil99.VOWEL_KEYS.items()}
        self.signKey = {VOWEL_SIGNS[v]: k for v, k in self.vowelKey.items() if VOWEL_SIGNS[v]}

    def Units(self, word):
        units, i = [], 0
        while i < len(word):
            if word.startswith("ஸ்ரீ", i):
                units.append({"keys": "Y"})
                i += 4
                continue
            base = "க்ஷ" if word.startswith("க்ஷ", i) else word[i]
            if base in self.consonantKey:
                i += len(base)
                unit = {"base": base, "sign": None, "dead": False}
                if i < len(word) and word[i] == PULLI:
                    unit["dead"], i = True, i + 1
                elif i < len(word) and word[i] in self.signKey:
                    unit["sign"], i = word[i], i + 1
                units.append(unit)
            elif word[i] in self.vowelKey:
                units.append({"keys": self.vowelKey[word[i]], "vowel": True})
                i += 1
            elif word[i] == "ஃ":
                units.append({"keys": "F"})
                i += 1
            else:
                return None
        return units

    @staticmethod
    def Pairs(first, second):
        return first == second or SOFT_HARD.get(first) == second

    def Keys(self, word):
        units = self.Units(word)
        if units is None:
            return None
        keys, previous = [], None
        for unit in units:
            bare = previous is not None and "base" in previous and not previous["dead"] \
                and previous["sign"] is None
            if "base" not in unit:
                if bare and unit.get("vowel"):
                    keys.append("a")
                keys.append(unit["keys"])
            else:
                pairs = previous is not None and "base" in previous and \
                    self.Pairs(previous["base"], unit["base"]) and not previous.get("second")
                if bare and pairs:
                    keys.append("a")
                elif pairs and previous["dead"]:
                    keys.pop()  # the pulli comes by itself
                    unit["second"] = True
                keys.append(self.consonantKey[unit["base"]])
                if unit["dead"]:
                    keys.append("f")
                elif unit["sign"]:
                    keys.append(self.signKey[unit["sign"]])
            previous = unit
        return "".join(keys)


class OldTypewriterTypist:
    """Turns a Tamil word into the keys of the old typewriter, in the machine's order."""

    PRE = {"ெ": "b", "ே": "n", "ை": "i"}
    SIGNS = "்ாிீுூெேைொோௌ"

    def __init__(self):
        self.consonantKey = {v: k for k, v in dict(typewriter.CONSONANTS, **{"]": "ஹ"}).items()}
        self.vowelKey = {v: k for k, v in typewriter.VOWELS.items()}
        self.uKey = {v[:-1]: k for k, v in typewriter.U_KEYS.items()}
        self.uuKey = {v[:-1]: k for k, v in typewriter.UU_KEYS.items()}

    def Syllable(self, base, sign):
        c = self.consonantKey[base]
        simple = {"": c, "்": ";" + c, "ா": c + "h", "ி": "p" + c, "ீ": "P" + c,
                  "ொ": "b" + c + "h", "ோ": "n" + c + "h", "ௌ": "b" + c + "s"}
        if sign in simple:
            return simple[sign]
        if sign in self.PRE:
            return self.PRE[sign] + c
        if sign == "ு":
            return self.uKey.get(base) or ("[" + c if base in "ஙஞபயவ" else c + "%")
        if base in self.uuKey:
            return self.uuKey[base]
        if base in "டமரழள":
            return ":" + self.uKey[base]
        if base in "ஞணதநலறன":
            return self.uKey[base] + "}"
        return "{" + c if base in "ஙபயவ" else c + "^"

    def Keys(self, word):
        keys, i = [], 0
        while i < len(word):
            if word.startswith("ஸ்ரீ", i):
                keys.append("_")
                i += 4
                continue
            base = "க்ஷ" if word.startswith("க்ஷ", i) else word[i]
            if base in self.consonantKey:
                i += len(base)
                sign = word[i] if i < len(word) and word[i] in self.SIGNS else ""
                i += len(sign)
                keys.append(self.Syllable(base, sign))
            elif word[i] in self.vowelKey or word[i] == "ஃ":
                keys.append(self.vowelKey.get(word[i], "`"))
                i += 1
            else:
                return None
        return "".join(keys)


def WordKeys(typist, entries, count, seed):
    """Keys of aspell-ta's words that the typist can spell and our keymap types back."""
    words = subprocess.run(["aspell", "-l", "ta", "dump", "master"], capture_output=True,
                           text=True, check=True).stdout.split()
    random.Random(seed).shuffle(words)
    chosen = []
    for word in words:
        keys = typist.Keys(word)
        if keys and TypeWords(entries, keys) == word:
            chosen.append(keys)
        if len(chosen) == count:
            break
    return chosen


def TamilWords(count):
    return WordKeys(Tamil99Typist(), make_tamil99.Entries(True), count, 99)


def RandomTamil99Keys(count):
    rng = random.Random(1999)
    consonants = list(make_tamil99.CONSONANT_KEYS)
    vowels = list(make_tamil99.VOWEL_KEYS)
    pool = consonants * 3 + vowels * 2 + ["f", "a", "a", "F", "Y"] + list(make_tamil99.SIGN_KEYS)
    pairs = [k + k for k in consonants] + ["bh", "][", ";l", "po", "kj", "iu"]
    lists = []
    for _ in range(count):
        keys = ""
        while len(keys) < rng.randint(2, 7):
            keys += rng.choice(pairs) if rng.random() < 0.25 else rng.choice(pool)
        lists.append(keys)
    return lists


# The keys every ITRANS flavour agrees on; the alternative spellings (B for bh, G for gh, the
# dotted nukta keys) differ between flavours and are tested by the keymap tests instead.
CORE_CONSONANTS = ["k", "kh", "g", "gh", "ch", "j", "jh", "~n", "T", "Th", "D", "Dh", "N",
                   "t", "th", "d", "dh", "n", "p", "ph", "b", "bh", "m", "y", "r", "l", "v",
                   "sh", "Sh", "s", "h", "x"]
CORE_VOWELS = ["a", "aa", "A", "i", "ii", "I", "u", "uu", "U", "RRi", "e", "ai", "o", "au"]


def RandomItransKeys(language, count):
    script = SCRIPTS[language]
    consonants = [k for k in CORE_CONSONANTS if k in make_indic_itrans.Consonants(script)]
    vowels = [k for k in CORE_VOWELS if k in make_indic_itrans.Vowels(script)]
    if script.dravidianVowels:
        vowels += ["E", "O", "ee", "oo"]
    rng = random.Random(sum(map(ord, language)))
    lists = []
    for _ in range(count):
        keys = ""
        for _ in range(rng.randint(1, 4)):
            onset = rng.choice([0, 1, 1, 1, 2])
            keys += "".join(rng.choice(consonants) for _ in range(onset))
            if rng.random() < 0.85:
                keys += rng.choice(vowels)
            if rng.random() < 0.08:
                keys += rng.choice(["M", "H", ".N"])
        lists.append(keys)
    return lists


def RunHarness(harness, method, keyLists):
    lang, name = method
    result = subprocess.run([harness, lang, name], input="\n".join(keyLists) + "\n",
                            capture_output=True, text=True, check=True)
    return result.stdout.split("\n")[:len(keyLists)]


def Golden():
    """file name -> (m17n method, key lists)"""
    golden = {"tamil99_words.tsv": (("ta", "tamil99"), TamilWords(3000)),
              "tamil99_random.tsv": (("ta", "tamil99"), RandomTamil99Keys(1500)),
              "typewriter_old_words.tsv": (("ta", "remington"),
                                           WordKeys(OldTypewriterTypist(), typewriter.OldEntries(),
                                                    2000, 5))}
    for language, code in ITRANS_METHODS.items():
        golden["itrans_%s.tsv" % language.lower()] = ((code, "itrans"),
                                                       RandomItransKeys(language, 1000))
    return golden


def ReadTsv(path):
    with open(path, encoding="utf-8") as f:
        return [line.rstrip("\n").split("\t") for line in f if not line.startswith("#")]


def main(argv):
    harness = argv[1]
    if len(argv) > 2 and argv[2] == "--check":
        failures = 0
        for name in sorted(os.listdir(HERE)):
            if not name.endswith(".tsv"):
                continue
            rows = ReadTsv(os.path.join(HERE, name))
            with open(os.path.join(HERE, name), encoding="utf-8") as f:
                method = tuple(f.readline().split()[1:3])
            typed = RunHarness(harness, method, [r[0] for r in rows])
            for (keys, recorded), now in zip(rows, typed):
                if recorded != now:
                    failures += 1
                    print("%s: %s recorded %s, m17n now types %s" % (name, keys, recorded, now))
        print("m17n check: %d differences" % failures)
        return 1 if failures else 0
    for name, (method, keyLists) in Golden().items():
        typed = RunHarness(harness, method, keyLists)
        with open(os.path.join(HERE, name), "w", encoding="utf-8") as f:
            f.write("# %s %s | keys, then the text m17n types for them\n" % method)
            for keys, text in zip(keyLists, typed):
                f.write("%s\t%s\n" % (keys, text))
        print("%s: %d lines" % (name, len(keyLists)))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
