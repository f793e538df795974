// The Tamil99 keymap typed through the real loader and engine: the standard's typing rules,
// real words, and the variant that "ConsecutiveAgaraUyirmeys" = "0" selects.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "keymaps_typist.hpp"

namespace quilom::testing {
namespace {

constexpr char16_t kTamil99[] = u"Tamil-Unicode-TamilNet99";

struct Typed {
  const char* keys;
  const char* tamil;
};

void ExpectTypes(KeymapTypist& typist, const std::vector<Typed>& rows) {
  for (const auto& row : rows) EXPECT_EQ(typist.TypeUtf8(row.keys), row.tamil) << row.keys;
}

TEST(Tamil99Keymap, LoadsWithoutAMessage) {
  KeymapTypist typist(kTamil99);
  EXPECT_EQ(typist.outcome, translit::LoadOutcome::Loaded);
  EXPECT_TRUE(typist.messages.empty());
}

TEST(Tamil99Keymap, FollowsTheStandardsTypingRules) {
  KeymapTypist typist(kTamil99);
  ExpectTypes(typist, {
                          {"hf", "க்"},                  // pulli
                          {"kq", "மா"},                  // vowel sign
                          {"hc", "கொ"},                  // two-part sign
                          {"hh", "க்க"},                 // same consonant twice
                          {"hhh", "க்கக"},               // the rule rests for one key
                          {"hhhh", "க்கக்க"},
                          {"has", "கஇ"},                 // அ confirms and stops joining
                          {"hah", "கக"},
                          {"hahh", "கக்க"},
                          {"bh", "ங்க"},                 // soft then its hard consonant
                          {";ll", "ந்தத"},
                          {";al", "நத"},
                          {"][ po kj iu", "ஞ்ச ண்ட ம்ப ன்ற"},
                          {"qs", "ஆஇ"},                  // vowel after a vowel
                          {"jqs", "பாஇ"},                // vowel after a vowel sign
                          {"hfq", "க்ஆ"},                // vowel after a pulli
                          {"hhq ;ls", "க்கா ந்தி"},      // the pair takes the vowel sign
                          {"hhf", "க்க்"},
                          {"hm", "கர"},                  // unrelated consonants do not join
                      });
}

TEST(Tamil99Keymap, TypesGranthaAytahmAndDisplacedPunctuation) {
  KeymapTypist typist(kTamil99);
  ExpectTypes(typist, {
                          {"Q W E R", "ஸ ஷ ஜ ஹ"},
                          {"T Tq TT", "க்ஷ க்ஷா க்ஷ்க்ஷ"},
                          {"Y Ys", "ஸ்ரீ ஸ்ரீஇ"},  // the fixed syllable takes no vowel sign
                          {"F", "ஃ"},
                          {"M", "/"},
                      });
}

TEST(Tamil99Keymap, TypesEverydayWords) {
  KeymapTypist typist(kTamil99);
  ExpectTypes(typist, {
                          {"vphhkf", "வணக்கம்"},
                          {"lks/f", "தமிழ்"},
                          {"akkq", "அம்மா"},
                          {"jpokf", "பண்டம்"},
                          {"s;ls'q", "இந்தியா"},
                          {"hufh", "கற்க"},
                          {"jhhkf", "பக்கம்"},
                          {"g/dlldhhs", "எழுத்துக்கி"},
                      });
}

TEST(Tamil99Keymap, AgaraRuleOffTypesTheVowelAItself) {
  KeymapTypist typist(kTamil99, ShippedKeymapFolder() / "ConsecutiveAgaraUyirmeys-0");
  ASSERT_EQ(typist.outcome, translit::LoadOutcome::Loaded);
  ExpectTypes(typist, {
                          {"ha", "கஅ"},
                          {"has", "கஅஇ"},
                          {"hah", "கஅக"},
                          {"hha", "க்கஅ"},
                          {"hh hhh jqs", "க்க க்கக பாஇ"},  // the pulli rules stay
                      });
}

// Every letter of the Tamil block that Tamil text is written with can be typed.
TEST(Tamil99Keymap, ReachesEveryTamilLetter) {
  KeymapTypist typist(kTamil99);
  std::set<char16_t> typed;
  for (size_t i = 1; i < typist.tables->phoneticKeys.size(); ++i) {
    for (const char16_t ch : typist.Type(typist.tables->phoneticKeys[i])) typed.insert(ch);
  }
  // Not on the Tamil99 keys: the old length mark and ஶ, the digits and the signs of 2010.
  const std::set<char16_t> absent = {0x0BB6, 0x0BD7};
  for (char16_t ch = 0x0B83; ch <= 0x0BCD; ++ch) {
    const bool assigned = !(ch == 0x0B84 || (ch >= 0x0B8B && ch <= 0x0B8D) || ch == 0x0B91 ||
                            (ch >= 0x0B96 && ch <= 0x0B98) || ch == 0x0B9B || ch == 0x0B9D ||
                            (ch >= 0x0BA0 && ch <= 0x0BA2) || (ch >= 0x0BA5 && ch <= 0x0BA7) ||
                            (ch >= 0x0BAB && ch <= 0x0BAD) || (ch >= 0x0BBA && ch <= 0x0BBD) ||
                            (ch >= 0x0BC3 && ch <= 0x0BC5) || ch == 0x0BC9);
    if (assigned && !absent.count(ch)) EXPECT_TRUE(typed.count(ch)) << std::hex << int(ch);
  }
}

}  // namespace
}  // namespace quilom::testing
