"""The Tamil letters the Tamil keymaps share (Unicode code points)."""

PULLI = "\u0bcd"
AYTHAM = "\u0b83"

# Independent vowel -> its sign after a consonant ("" for the inherent a).
VOWEL_SIGNS = {
    "அ": "", "ஆ": "ா", "இ": "ி", "ஈ": "ீ", "உ": "ு", "ஊ": "ூ",
    "எ": "ெ", "ஏ": "ே", "ஐ": "ை", "ஒ": "ொ", "ஓ": "ோ", "ஔ": "ௌ",
}
VOWELS = list(VOWEL_SIGNS)

CONSONANTS = ["க", "ங", "ச", "ஞ", "ட", "ண", "த", "ந", "ப", "ம",
              "ய", "ர", "ல", "வ", "ழ", "ள", "ற", "ன"]
GRANTHA = ["ஜ", "ஷ", "ஸ", "ஹ", "க்ஷ"]
SRI = "ஸ்ரீ"

# Soft consonant -> the hard consonant it is usually followed by.
SOFT_HARD = {"ங": "க", "ஞ": "ச", "ண": "ட", "ந": "த", "ம": "ப", "ன": "ற"}

TAMIL_DIGITS = "௦௧௨௩௪௫௬௭௮௯"


def Syllables():
    """Every letter a Tamil text is made of: vowels, aytham, dead consonants and every
    consonant with every vowel."""
    letters = list(VOWELS) + [AYTHAM, SRI]
    for consonant in CONSONANTS + GRANTHA:
        letters.append(consonant + PULLI)
        letters.extend(consonant + sign for sign in VOWEL_SIGNS.values())
    return letters
