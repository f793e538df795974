#include "converter/encoding_detector.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <random>
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

// Paragraph-length texts of dictionary words (Debian's aspell-ta), or none when it is not
// installed: words in an order no writer would choose, but every syllable of the language in
// its real frequency.
std::vector<std::u16string> DictionaryParagraphs(std::size_t count, std::size_t wordsEach) {
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen("aspell dump master -d ta --encoding=utf-8 2>/dev/null", "r"),
                                             pclose);
  std::vector<std::u16string> words;
  if (pipe) {
    std::string listed;
    char buffer[4096];
    for (std::size_t read; (read = fread(buffer, 1, sizeof buffer, pipe.get())) > 0;) listed.append(buffer, read);
    for (const std::u16string& word : text::Split(text::Utf8ToUtf16(listed), u"\n")) {
      if (!word.empty() && word[0] >= u'\u0B80' && word[0] < u'\u0C00') words.push_back(word);
    }
  }
  std::vector<std::u16string> paragraphs;
  if (words.size() < 1000) return paragraphs;
  std::mt19937 rng(1122);
  for (std::size_t p = 0; p < count; ++p) {
    std::u16string paragraph;
    for (std::size_t w = 0; w < wordsEach; ++w) {
      paragraph += words[rng() % words.size()];
      paragraph += w % 9 == 8 ? u". " : u" ";
    }
    paragraphs.push_back(paragraph);
  }
  return paragraphs;
}

// How often the detector is right, per encoding: `exact` names the encoding first, `family`
// names it first or among the encodings that read the text alike with the first, `reads` picks
// an encoding that turns the text into the very Unicode the true one does.
struct Tally {
  std::size_t exact = 0, family = 0, reads = 0, total = 0;
  void Add(const Tally& other) {
    exact += other.exact;
    family += other.family;
    reads += other.reads;
    total += other.total;
  }
  double Share(std::size_t count) const { return total == 0 ? 0 : 100.0 * count / total; }
};

class DetectionReport : public ::testing::Test {
 protected:
  static PairReplacer Load(int id) { return PairReplacer(ParseConversionTable(LoadTableText(Folder(), id)).pairs); }

  // Writes every paragraph in every encoding and asks the detector; prints a line per encoding.
  Tally Measure(const std::vector<std::u16string>& paragraphs, const char* title) {
    const EncodingDetector detector = EncodingDetector::Load(Folder());
    const EncodingList list = LoadEncodingList(Folder());
    EXPECT_EQ(detector.EncodingCount(), list.names.size() - 1);
    std::vector<PairReplacer> toUnicode;
    for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
      toUnicode.push_back(Load(*LegacyToUnicodeTableId(position, true)));
    }
    std::printf("%s: %zu texts in each encoding\n  %-14s %8s %8s %8s  %s\n", title, paragraphs.size(), "encoding",
                "exact", "family", "reads", "named first instead (times)");
    Tally all;
    for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
      PairReplacer toLegacy = Load(*UnicodeToLegacyTableId(position, true));
      Tally tally;
      std::map<std::u16string, int> insteads;
      for (const std::u16string& paragraph : paragraphs) {
        const std::u16string legacy = toLegacy.Apply(paragraph);
        const std::vector<EncodingGuess> guesses = detector.Rank(legacy);
        if (guesses.empty()) continue;
        const EncodingGuess& best = guesses.front();
        const std::u16string& truth = list.names[position];
        ++tally.total;
        tally.exact += best.position == position;
        if (best.position != position) ++insteads[FamilyName(best)];
        tally.family += best.position == position || std::count(best.alike.begin(), best.alike.end(), truth) > 0;
        tally.reads += toUnicode[best.position - 1].Apply(legacy) == toUnicode[position - 1].Apply(legacy);
      }
      std::string instead;
      for (const auto& [name, times] : insteads)
        instead += " " + text::Utf16ToUtf8(name) + " (" + std::to_string(times) + ")";
      std::printf("  %-14s %7.1f%% %7.1f%% %7.1f%% %s\n", text::Utf16ToUtf8(list.names[position]).c_str(),
                  tally.Share(tally.exact), tally.Share(tally.family), tally.Share(tally.reads), instead.c_str());
      all.Add(tally);
    }
    std::printf("  %-14s %7.1f%% %7.1f%% %7.1f%%\n", "all", all.Share(all.exact), all.Share(all.family),
                all.Share(all.reads));
    return all;
  }
};

TEST(EncodingDetector, ConfidencesAddUpAndAlikeEncodingsShareTheirs) {
  const EncodingDetector detector = EncodingDetector::Load(Folder());
  PairReplacer toLegacy(
      ParseConversionTable(LoadTableText(Folder(), *UnicodeToLegacyTableId(
                                                       LoadEncodingList(Folder()).Position(u"Softview").value(), true)))
          .pairs);
  const std::vector<EncodingGuess> guesses = detector.Rank(toLegacy.Apply(Paragraphs().front()));
  ASSERT_FALSE(guesses.empty());
  double sum = 0;
  for (const EncodingGuess& guess : guesses) sum += guess.confidence;
  EXPECT_NEAR(sum, 1.0, 1e-9);
  for (std::size_t i = 1; i < guesses.size(); ++i) EXPECT_GE(guesses[i - 1].score, guesses[i].score);
  for (const EncodingGuess& guess : guesses) {
    double family = guess.confidence;
    for (const std::u16string& name : guess.alike) {
      const auto other =
          std::find_if(guesses.begin(), guesses.end(), [&](const EncodingGuess& g) { return g.name == name; });
      ASSERT_NE(other, guesses.end());
      EXPECT_EQ(other->score, guess.score);
      family += other->confidence;
    }
    EXPECT_NEAR(guess.familyConfidence, family, 1e-9);
  }
}

TEST(EncodingDetector, NamesAFamilyWithOrBetweenItsLastTwo) {
  EncodingGuess guess;
  guess.name = u"Anjal";
  EXPECT_EQ(FamilyName(guess), u"Anjal");
  guess.alike = {u"Tab"};
  EXPECT_EQ(FamilyName(guess), u"Anjal or Tab");
  guess.alike = {u"Anu", u"Tab"};
  EXPECT_EQ(FamilyName(guess), u"Anjal, Anu or Tab");
}

// Real paragraphs, written in every encoding: the report the converter notes quote.
TEST_F(DetectionReport, RealParagraphs) {
  const std::vector<std::u16string> paragraphs = Paragraphs();
  ASSERT_GE(paragraphs.size(), 30u);
  const Tally all = Measure(paragraphs, "Detection at paragraph length, real paragraphs");
  EXPECT_GE(all.family * 100, all.total * 99);
  // Libi and Shreelipi, Murasoli and Vanavil write these texts identically: no single name can
  // be right for both, which caps this share near 92%.
  EXPECT_GE(all.exact * 100, all.total * 88);
  EXPECT_GE(all.reads * 1000, all.total * 995);
}

TEST_F(DetectionReport, DictionaryParagraphs) {
  const std::vector<std::u16string> paragraphs = DictionaryParagraphs(60, 45);
  if (paragraphs.empty()) GTEST_SKIP() << "aspell-ta is not installed (apt-get install aspell-ta)";
  const Tally all = Measure(paragraphs, "Detection at paragraph length, dictionary words");
  EXPECT_GE(all.family * 100, all.total * 98);
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
