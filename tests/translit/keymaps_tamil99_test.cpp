// The Tamil99 keymap typed through the real loader and engine: the standard's typing rules,
// its shifted keys, and the variant that "ConsecutiveAgaraUyirmeys" = "0" selects. Real words
// are compared with an independent implementation in keymaps_m17n_test.cpp.
#include <gtest/gtest.h>

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

TEST(Tamil99Keymap, FollowsTheStandardsTypingRules) {
  KeymapTypist typist(kTamil99);
  ExpectTypes(typist, {
                          {"hf", "க்"},     // pulli
                          {"kq", "மா"},    // vowel sign
                          {"hc", "கொ"},    // two-part sign
                          {"hh", "க்க"},    // same consonant twice
                          {"hhh", "க்கக"},  // the rule rests for one key
                          {"hhhh", "க்கக்க"},
                          {"has", "கஇ"},  // அ confirms and stops joining
                          {"hah", "கக"},
                          {"hahh", "கக்க"},
                          {"bh", "ங்க"},  // soft then its hard consonant
                          {";ll", "ந்தத"},
                          {";al", "நத"},
                          {"][ po kj iu", "ஞ்ச ண்ட ம்ப ன்ற"},
                          {"qs", "ஆஇ"},            // vowel after a vowel
                          {"jqs", "பாஇ"},          // vowel after a vowel sign
                          {"hfq", "க்ஆ"},           // vowel after a pulli
                          {"hhq ;ls", "க்கா ந்தி"},  // the pair takes the vowel sign
                          {"hhf", "க்க்"},
                          {"hm", "கர"},  // unrelated consonants do not join
                      });
}

TEST(Tamil99Keymap, TypesGranthaAythamSignsAndDisplacedPunctuation) {
  KeymapTypist typist(kTamil99);
  ExpectTypes(typist, {
                          {"Q W E R", "ஸ ஷ ஜ ஹ"},
                          {"T Tq TT", "க்ஷ க்ஷா க்ஷ்க்ஷ"},
                          {"U Us UU", "ஶ ஶி ஶ்ஶ"},  // on the key the standard leaves free
                          {"Y Ys", "ஸ்ரீ ஸ்ரீஇ"},      // the fixed syllable takes no vowel sign
                          {"F", "ஃ"},
                          {"M", "/"},
                          // The signs of 2010 on the shifted home and bottom rows; they join
                          // nothing, so a consonant before them stays as it is.
                          {"Z X C V B D A S N", "௳ ௴ ௵ ௶ ௷ ௸ ௹ ௺ ௐ"},
                          {"hA S1", "க௹ ௺1"},
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

}  // namespace
}  // namespace quilom::testing
