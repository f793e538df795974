#include "converter/english_likeness.hpp"

#include <gtest/gtest.h>

#include "text/utf.hpp"

namespace quilom::converter {
namespace {

TEST(EnglishLikeness, EnglishProseReadsAsEnglish) {
  for (const std::u16string_view text : {
           u"Hello world",
           u"Please call me back when you get this message.",
           u"NOTICE: The office will remain closed on Monday.",
           u"We'll see; it's late, and the well-known shop is shut.",  // the word before ";" costs
           u"Version 2.4 fixes 12 bugs (see page 7).",
       }) {
    EXPECT_GE(EnglishLikeness(text), 0.8) << text::Utf16ToUtf8(text);
  }
}

// The legacy encodings that keep glyphs under ASCII write capitals and punctuation inside words.
TEST(EnglishLikeness, AsciiLegacyTamilDoesNot) {
  for (const std::u16string_view text : {
           u"mk;kh tPl;bly; ,Uf;fpwhh;.",  // Bamini
           u"ehs;",                        // a semicolon ends no English word
           u"L'Weh Y'X'Ve",                // an apostrophe ends English words only in contractions
           u"tHe ThE",                     // capitals after small letters
           u"brf; kpdh",                   // words without a vowel
       }) {
    EXPECT_LE(EnglishLikeness(text), 0.3) << text::Utf16ToUtf8(text);
  }
}

TEST(EnglishLikeness, UnfamiliarLetterPairsCostAndNumbersAreNeutral) {
  EXPECT_LT(EnglishLikeness(u"xqzv jkq"), 0.5);
  EXPECT_EQ(EnglishLikeness(u"12 345, 6.7%"), 0.0);
  EXPECT_EQ(EnglishLikeness(u"the 12 345"), 1.0);
  EXPECT_EQ(EnglishLikeness(u""), 0.0);
}

// Bamini writes அவை as "mit": a short word that is not a common one never reads as flawless English.
TEST(EnglishLikeness, ShortUncommonWordsAreWeakerEvidence) {
  EXPECT_LT(EnglishLikeness(u"mit"), 1.0);
  EXPECT_GT(EnglishLikeness(u"mit"), 0.8);
  EXPECT_EQ(EnglishLikeness(u"the"), 1.0);
  EXPECT_EQ(EnglishLikeness(u"garden"), 1.0);
}

}  // namespace
}  // namespace quilom::converter
