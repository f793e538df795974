#include "converter/encoding_detector.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <random>

#include "converter/convert_checks.hpp"
#include "converter/encoding_list.hpp"
#include "converter/legacy_bytes.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

std::filesystem::path Folder() { return testing::SourceDataRoot() / "Tamil Fonts Converter"; }

std::vector<std::u16string> Lines(const char* file) {
  std::ifstream in(std::filesystem::path(QUILOM_SOURCE_DIR) / "tests/converter/data" / file, std::ios::binary);
  std::vector<std::u16string> lines;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty()) lines.push_back(text::Utf8ToUtf16(line));
  }
  return lines;
}

std::vector<std::u16string> Paragraphs() { return Lines("tamil_paragraphs.txt"); }

TEST(TamilWellFormedness, RewardsTamilAndPunishesBrokenSyllables) {
  EXPECT_GT(TamilWellFormedness(u"வணக்கம் தமிழ்"), 0.9);
  // A vowel sign with no consonant before it, a vowel inside a word, Latin letters stuck on.
  EXPECT_LT(TamilWellFormedness(u"ாவணக்கம் தஅமிழ்"), TamilWellFormedness(u"வணக்கம் தமிழ்") - 0.3);
  EXPECT_LT(TamilWellFormedness(u"வணfக்கம்"), TamilWellFormedness(u"வணக்கம்") - 0.3);
  EXPECT_LT(TamilWellFormedness(u"வண\u00A1க்கம்"), TamilWellFormedness(u"வணக்கம்") - 0.3);
  EXPECT_LE(TamilWellFormedness(u"tzf;fk;"), 0.0);
  EXPECT_EQ(TamilWellFormedness(u"  "), 0.0);
  // Words end in a doubled consonant's first half before a word that opens with it.
  EXPECT_GT(TamilWellFormedness(u"தொட்டுச் பச்சைக் வீட்டுப் எல்லாத்"), 0.9);
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

std::vector<std::u16string> Sentences() {
  std::vector<std::u16string> sentences;
  for (const std::u16string& paragraph : Paragraphs()) {
    for (std::u16string& sentence : text::Split(paragraph, u". ")) sentences.push_back(sentence + u".");
  }
  return sentences;
}

std::vector<std::u16string> Words(const std::vector<std::u16string>& texts) {
  std::vector<std::u16string> words;
  for (const std::u16string& text : texts) {
    for (const std::u16string& word : text::Split(text, u" ")) {
      if (word.size() > 1 && word.find_first_of(u".,?!") == std::u16string::npos) words.push_back(word);
    }
  }
  return words;
}

// As `quilom convert` writes legacy text: Windows-1252 bytes, or UTF-8 when a glyph has no byte.
std::string LegacyFileBytes(std::u16string_view legacyText) {
  std::size_t unencodable = 0;
  const std::string bytes = TextToLegacyBytes(legacyText, unencodable);
  return unencodable == 0 ? bytes : text::Utf16ToUtf8(legacyText);
}

// How often detection from the file's bytes is right: `exact` names the true encoding first,
// `family` names it first or with the first, `legacy` takes the text for legacy Tamil at all.
// bench/detect_report prints these per encoding; here they are guarded with floors.
struct Tally {
  std::size_t exact = 0, family = 0, legacy = 0, total = 0;
  bool AtLeast(std::size_t count, double percent) const { return count * 100.0 >= total * percent; }
};

class DetectionAccuracy : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { detector_ = std::make_unique<EncodingDetector>(EncodingDetector::Load(Folder())); }
  static void TearDownTestSuite() { detector_.reset(); }

  // Every text written in every encoding by its own Unicode-to-legacy table, then detected.
  static Tally Measure(const std::vector<std::u16string>& texts) {
    const EncodingList list = LoadEncodingList(Folder());
    EXPECT_EQ(detector_->EncodingCount(), list.names.size() - 1);
    Tally tally;
    for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
      PairReplacer toLegacy(
          ParseConversionTable(LoadTableText(Folder(), *UnicodeToLegacyTableId(position, true))).pairs);
      for (const std::u16string& text : texts) {
        const Detection detection = detector_->Detect(LegacyFileBytes(toLegacy.Apply(text)));
        ++tally.total;
        if (detection.kind != TextKind::LegacyTamil) continue;
        const EncodingGuess& best = detection.guesses.front();
        const bool inFamily = std::count(best.alike.begin(), best.alike.end(), list.names[position]) > 0;
        ++tally.legacy;
        tally.exact += best.position == position;
        tally.family += best.position == position || inFamily;
      }
    }
    return tally;
  }

  static std::size_t CountKind(const std::vector<std::u16string>& texts, TextKind kind) {
    return std::count_if(texts.begin(), texts.end(), [&](const std::u16string& text) {
      return detector_->Detect(text::Utf16ToUtf8(text)).kind == kind;
    });
  }

  static std::unique_ptr<EncodingDetector> detector_;
};

std::unique_ptr<EncodingDetector> DetectionAccuracy::detector_;

// Libi and Shreelipi, Murasoli and Vanavil write these texts identically: no single name can be
// right for both, which caps `exact` near 92% on paragraphs.
TEST_F(DetectionAccuracy, RealParagraphsAndSentencesInEveryEncoding) {
  ASSERT_GE(Paragraphs().size(), 30u);
  const Tally paragraphs = Measure(Paragraphs());
  EXPECT_TRUE(paragraphs.AtLeast(paragraphs.legacy, 99.5));
  EXPECT_TRUE(paragraphs.AtLeast(paragraphs.family, 98));
  EXPECT_TRUE(paragraphs.AtLeast(paragraphs.exact, 85));
  const Tally sentences = Measure(Sentences());
  EXPECT_GE(sentences.total, 25u * 100);
  EXPECT_TRUE(sentences.AtLeast(sentences.legacy, 99));
  EXPECT_TRUE(sentences.AtLeast(sentences.family, 95));
  EXPECT_TRUE(sentences.AtLeast(sentences.exact, 75));
}

// A single word is the hardest case both ways: it must still be taken for legacy Tamil, and most
// single English words for English (a short one often reads as flawless Tamil somewhere, and
// then legacy Tamil wins).
TEST_F(DetectionAccuracy, ShortTextsKeepTheirKind) {
  std::vector<std::u16string> tamilWords = Words(Paragraphs());
  tamilWords.resize(120);
  const Tally words = Measure(tamilWords);
  EXPECT_TRUE(words.AtLeast(words.legacy, 98));
  EXPECT_TRUE(words.AtLeast(words.family, 70)) << words.family << " of " << words.total;
  const std::vector<std::u16string> english = Lines("english_sentences.txt");
  ASSERT_GE(english.size(), 30u);
  EXPECT_EQ(CountKind(english, TextKind::English), english.size());
  const std::vector<std::u16string> englishWords = Words(english);
  EXPECT_GE(CountKind(englishWords, TextKind::English) * 100, englishWords.size() * 70);
}

TEST_F(DetectionAccuracy, DictionaryParagraphs) {
  const std::vector<std::u16string> paragraphs = DictionaryParagraphs(60, 45);
  if (paragraphs.empty()) GTEST_SKIP() << "aspell-ta is not installed (apt-get install aspell-ta)";
  const Tally all = Measure(paragraphs);
  EXPECT_TRUE(all.AtLeast(all.family, 97));
}

// The first guess is the most confident, and no guess is more confident than one ranked above.
TEST_F(DetectionAccuracy, ConfidenceNeverRisesDownTheRanking) {
  const EncodingList list = LoadEncodingList(Folder());
  std::vector<std::u16string> texts = Sentences();
  for (const std::u16string& paragraph : Paragraphs()) texts.push_back(paragraph);
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    PairReplacer toLegacy(ParseConversionTable(LoadTableText(Folder(), *UnicodeToLegacyTableId(position, true))).pairs);
    for (const std::u16string& text : texts) {
      const std::vector<EncodingGuess> guesses = detector_->Rank(toLegacy.Apply(text));
      for (std::size_t i = 1; i < guesses.size(); ++i) {
        ASSERT_LE(guesses[i].familyConfidence, guesses[i - 1].familyConfidence + 1e-12)
            << text::Utf16ToUtf8(list.names[position]) << ": " << text::Utf16ToUtf8(FamilyName(guesses[i])) << " after "
            << text::Utf16ToUtf8(FamilyName(guesses[i - 1]));
      }
    }
  }
}

// Softview writes எழுதிய as the bytes 46 DD A7 56, which are also valid UTF-8 (U+0767 among
// Latin letters); read as UTF-8 they are no Tamil in any encoding.
TEST_F(DetectionAccuracy, LegacyBytesThatHappenToBeUtf8AreStillLegacy) {
  const int softview = LoadEncodingList(Folder()).Position(u"Softview").value();
  PairReplacer toLegacy(ParseConversionTable(LoadTableText(Folder(), *UnicodeToLegacyTableId(softview, true))).pairs);
  const std::string bytes = LegacyFileBytes(toLegacy.Apply(u"எழுதிய"));
  ASSERT_FALSE(text::FirstInvalidUtf8(bytes).has_value());
  ASSERT_NE(text::Utf8ToUtf16(bytes), LegacyBytesToText(bytes));
  const Detection detection = detector_->Detect(bytes);
  ASSERT_EQ(detection.kind, TextKind::LegacyTamil);
  const EncodingGuess& best = detection.guesses.front();
  EXPECT_TRUE(best.name == u"Softview" || std::count(best.alike.begin(), best.alike.end(), u"Softview") > 0)
      << text::Utf16ToUtf8(FamilyName(best));
}

TEST_F(DetectionAccuracy, NamesWhatIsNotLegacyTamil) {
  const std::u16string paragraph = Paragraphs().front();
  struct Row {
    const char* what;
    std::string bytes;
    TextKind kind;
  };
  const Row rows[] = {
      {"English", "Hello world", TextKind::English},
      {"Unicode Tamil", text::Utf16ToUtf8(paragraph), TextKind::UnicodeTamil},
      {"UTF-16", testing::Utf16LeWithMark(paragraph), TextKind::Utf16},
      {"binary",
       std::string("\x7F"
                   "ELF\x02\x01\x01\0\0\0\0",
                   11),
       TextKind::Binary},
      {"punctuation only", "!!! ??? ###", TextKind::Unknown},
      {"a Bamini word", "mk;kh", TextKind::LegacyTamil},
  };
  for (const Row& row : rows) EXPECT_EQ(detector_->Detect(row.bytes).kind, row.kind) << row.what;
}

}  // namespace
}  // namespace quilom::converter
