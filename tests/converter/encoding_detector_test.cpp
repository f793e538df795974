#include "converter/encoding_detector.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "converter/convert_checks.hpp"
#include "converter/encoding_list.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

std::filesystem::path Folder() { return testing::SourceDataRoot() / "Tamil Fonts Converter"; }

std::vector<std::u16string> Paragraphs() {
  std::ifstream file(std::filesystem::path(QUILOM_SOURCE_DIR) / "tests/converter/data/tamil_paragraphs.txt",
                     std::ios::binary);
  std::vector<std::u16string> paragraphs;
  std::string line;
  while (std::getline(file, line)) {
    if (!line.empty()) paragraphs.push_back(text::Utf8ToUtf16(line));
  }
  return paragraphs;
}

TEST(TamilWellFormedness, RewardsTamilAndPunishesBrokenSyllables) {
  EXPECT_GT(TamilWellFormedness(u"வணக்கம் தமிழ்"), 0.9);
  // A vowel sign with no consonant before it, a vowel inside a word, Latin letters stuck on.
  EXPECT_LT(TamilWellFormedness(u"ாவணக்கம் தஅமிழ்"), TamilWellFormedness(u"வணக்கம் தமிழ்") - 0.3);
  EXPECT_LT(TamilWellFormedness(u"வணfக்கம்"), TamilWellFormedness(u"வணக்கம்") - 0.3);
  EXPECT_LT(TamilWellFormedness(u"வண\u00A1க்கம்"), TamilWellFormedness(u"வணக்கம்") - 0.3);
  EXPECT_LE(TamilWellFormedness(u"tzf;fk;"), 0.0);
  EXPECT_EQ(TamilWellFormedness(u"  "), 0.0);
}

// Every paragraph, written in every encoding, is given to the detector. A guess counts as right
// when it names the encoding, or an encoding that reads the text exactly as the true one does
// (nothing in the text tells them apart) or reads back the very paragraph that was written.
TEST(EncodingDetector, NamesTheEncodingOfRealParagraphs) {
  const EncodingDetector detector = EncodingDetector::Load(Folder());
  const EncodingList list = LoadEncodingList(Folder());
  ASSERT_EQ(detector.EncodingCount(), list.names.size() - 1);
  const std::vector<std::u16string> paragraphs = Paragraphs();
  ASSERT_GE(paragraphs.size(), 12u);
  std::size_t right = 0, exact = 0, total = 0;
  std::printf("Detection accuracy at paragraph length (%zu paragraphs each):\n", paragraphs.size());
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const auto load = [](int id) { return PairReplacer(ParseConversionTable(LoadTableText(Folder(), id)).pairs); };
    PairReplacer toLegacy = load(*UnicodeToLegacyTableId(position, true));
    std::size_t encodingRight = 0, encodingExact = 0;
    for (const std::u16string& paragraph : paragraphs) {
      const std::u16string legacy = toLegacy.Apply(paragraph);
      const std::vector<EncodingGuess> guesses = detector.Rank(legacy);
      ASSERT_FALSE(guesses.empty());
      const EncodingGuess& best = guesses.front();
      double sum = 0;
      for (const EncodingGuess& guess : guesses) sum += guess.confidence;
      EXPECT_NEAR(sum, 1.0, 1e-9);
      EXPECT_GE(best.confidence, guesses.back().confidence);
      if (best.position == position) {
        ++encodingExact;
        ++encodingRight;
        continue;
      }
      PairReplacer truth = load(*LegacyToUnicodeTableId(position, true));
      PairReplacer guessed = load(*LegacyToUnicodeTableId(best.position, true));
      const std::u16string read = guessed.Apply(legacy);
      if (read == truth.Apply(legacy) || read == paragraph) ++encodingRight;
    }
    std::printf("  %-14s %5.1f%% (named exactly: %5.1f%%)\n", text::Utf16ToUtf8(list.names[position]).c_str(),
                100.0 * encodingRight / paragraphs.size(), 100.0 * encodingExact / paragraphs.size());
    right += encodingRight;
    exact += encodingExact;
    total += paragraphs.size();
    EXPECT_GE(encodingRight * 10, paragraphs.size() * 9) << text::Utf16ToUtf8(list.names[position]);
  }
  std::printf("  overall        %5.1f%% (named exactly: %5.1f%%)\n", 100.0 * right / total, 100.0 * exact / total);
  EXPECT_GE(right * 100, total * 99);
}

TEST(EncodingDetector, EnglishTextDoesNotPassForTamil) {
  const EncodingDetector detector = EncodingDetector::Load(Folder());
  // Bamini-like fonts keep their glyphs under ASCII letters, so English decodes to something;
  // but to nothing that reads as Tamil prose.
  const std::vector<EncodingGuess> english = detector.Rank(
      u"The quick brown fox jumps over the lazy dog, while the cat sleeps by the fire and the children play "
      u"outside in the garden until their mother calls them in for supper.");
  ASSERT_FALSE(english.empty());
  EXPECT_FALSE(ReadsAsTamil(english.front()));
  const std::vector<EncodingGuess> tamil = detector.Rank(Paragraphs().front());
  EXPECT_TRUE(ReadsAsTamil(tamil.front()));
}

}  // namespace
}  // namespace quilom::converter
