// The shipped conversion tables, checked as a user would: every unit an encoding claims to carry
// comes back from a round trip and nothing else does, prose and its punctuation survive but for
// the noted gaps, and each encoding still writes a known paragraph as it did (golden files).
// TSCII against glibc: tscii_glibc_reference_test.cpp; TSCII and TAM against their fonts:
// font_glyphs_reference_test.py.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>

#include "converter/convert_checks.hpp"
#include "converter/converter_lists.hpp"
#include "converter/encoding_list.hpp"
#include "converter/legacy_bytes.hpp"
#include "converter/pair_replacer.hpp"
#include "settings/text_file.hpp"
#include "shipped_tables_reference.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

std::filesystem::path Folder() { return testing::SourceDataRoot() / "Tamil Fonts Converter"; }

std::filesystem::path TestData() { return std::filesystem::path(QUILOM_SOURCE_DIR) / "tests" / "converter"; }

using reference::HasTamil;
using reference::LoadTables;
using reference::Syllables;
using reference::Tables;

std::map<std::u16string, std::set<std::u16string>> NotedGaps() { return reference::NotedGaps(Folder()); }

std::vector<std::u16string> ParagraphWords() { return reference::ParagraphWords(QUILOM_SOURCE_DIR); }

TEST(ShippedTables, EveryListedEncodingHasItsFourTables) {
  const EncodingList list = LoadEncodingList(Folder());
  ASSERT_GE(list.names.size(), 20u);
  EXPECT_EQ(list.names[0], u"Unicode");
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    for (int id : {100 + position, 151 + position, 202 + position, 253 + position}) {
      EXPECT_TRUE(std::filesystem::exists(TablePath(Folder(), id))) << id;
    }
  }
  EXPECT_FALSE(std::filesystem::exists(TablePath(Folder(), 101 + static_cast<int>(list.names.size()))));
  // The other per-encoding files have one line per list position.
  for (std::u16string_view name :
       {kSearchPatternsFile, kDefaultFontsFile, std::u16string_view(u"QuilomPlus-LegacyQuotes.txt")}) {
    EXPECT_EQ(text::Split(settings::ReadTextFile(Folder() / std::u16string(name)), text::kCrLf).size(),
              list.names.size())
        << text::Utf16ToUtf8(name);
  }
}

// Every syllable, numeral, lone sign and ASCII character, from Unicode to the encoding and
// back: what does not come back is exactly what the notes admit, no more and no less.
TEST(ShippedTables, WalkGivesBackEveryUnitButTheNotedGaps) {
  const EncodingList list = LoadEncodingList(Folder());
  const auto gaps = NotedGaps();
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    Tables tables = LoadTables(Folder(), position);
    std::set<std::u16string> failed;
    for (const std::u16string& unit : reference::AllUnits()) {
      if (!tables.RoundTrips(unit)) failed.insert(unit);
    }
    ASSERT_TRUE(gaps.count(name)) << text::Utf16ToUtf8(name) << " has no notes";
    EXPECT_EQ(failed, gaps.at(name)) << text::Utf16ToUtf8(name);
  }
}

TEST(ShippedTables, WordsOfRealTextSurviveTheRoundTripInBothForms) {
  const EncodingList list = LoadEncodingList(Folder());
  const auto gaps = NotedGaps();
  const std::vector<std::u16string> words = ParagraphWords();
  ASSERT_GT(words.size(), 300u);
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    Tables tables = LoadTables(Folder(), position);
    for (const std::u16string& word : words) {
      if (reference::HoldsGap(word, gaps.at(name))) continue;
      EXPECT_EQ(tables.toUnicode->Apply(tables.toLegacy->Apply(word)), word)
          << text::Utf16ToUtf8(name) << ": " << text::Utf16ToUtf8(word);
      EXPECT_EQ(tables.toUnicode->Apply(tables.toLegacyPlainRa->Apply(word)), word)
          << text::Utf16ToUtf8(name) << " without the separate ர forms: " << text::Utf16ToUtf8(word);
    }
  }
}

// Each blank-separated piece of the prose comes back, except a piece holding something the notes
// say the encoding cannot carry.
TEST(ShippedTables, ProseComesBackButForTheNotedGaps) {
  const EncodingList list = LoadEncodingList(Folder());
  const auto gaps = NotedGaps();
  const std::vector<std::u16string> expected = reference::Tokens(reference::kProse);
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    Tables tables = LoadTables(Folder(), position);
    for (PairReplacer* toLegacy : {tables.toLegacy.get(), tables.toLegacyPlainRa.get()}) {
      const std::vector<std::u16string> back =
          reference::Tokens(tables.toUnicode->Apply(toLegacy->Apply(reference::kProse)));
      ASSERT_EQ(back.size(), expected.size()) << text::Utf16ToUtf8(name);
      for (std::size_t i = 0; i < back.size(); ++i) {
        if (reference::HoldsGap(expected[i], gaps.at(name))) continue;
        EXPECT_EQ(back[i], expected[i]) << text::Utf16ToUtf8(name);
      }
    }
  }
}

// A character that the encoding reads as something else passes through only when a Unicode-to-
// legacy pair finds exactly that character, ahead of every Tamil pair (the converter reports the
// others as unmappable); every other such character is a noted gap.
TEST(ShippedTables, AsciiAndMarksOnTamilGlyphsHaveTheirOwnPairAheadOfTheTamilPairs) {
  const EncodingList list = LoadEncodingList(Folder());
  const auto gaps = NotedGaps();
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    Tables tables = LoadTables(Folder(), position);
    for (bool irRiRee : {true, false}) {
      const std::vector<TablePair> pairs = reference::LoadPairs(Folder(), *UnicodeToLegacyTableId(position, irRiRee));
      const auto firstTamil =
          std::find_if(pairs.begin(), pairs.end(), [](const TablePair& p) { return HasTamil(p.find); });
      std::vector<std::u16string> marks = reference::Ascii();
      for (const std::u16string& mark : reference::Typographic()) marks.push_back(mark);
      for (const std::u16string& mark : marks) {
        if (tables.toUnicode->Apply(mark) == mark || gaps.at(name).count(mark)) continue;
        const auto own = std::find_if(pairs.begin(), pairs.end(), [&](const TablePair& p) { return p.find == mark; });
        EXPECT_TRUE(own < firstTamil) << text::Utf16ToUtf8(name) << ": " << text::Utf16ToUtf8(mark);
      }
    }
  }
}

// The faults users met: Libi deleted every hyphen, Kavipriya made " a single quote, Bamini and
// Dinakaran read their commas and question marks back as Tamil letters.
TEST(ShippedTables, PunctuationUsersLostSurvives) {
  const EncodingList list = LoadEncodingList(Folder());
  const std::vector<std::pair<std::u16string_view, std::u16string_view>> cases = {{u"Libi", u"விலை 250/- மட்டும்"},
                                                                                  {u"Kavipriya", u"\"அருமை\" என்றார்"},
                                                                                  {u"Bamini", u"இது, அது."},
                                                                                  {u"Dinakaran", u"இது, அதுவா?"},
                                                                                  {u"Tam", u"பொங்கல், தங்கம்"}};
  for (const auto& [name, text] : cases) {
    Tables tables = LoadTables(Folder(), *list.Position(std::u16string(name)));
    EXPECT_EQ(tables.toUnicode->Apply(tables.toLegacy->Apply(text)), text) << text::Utf16ToUtf8(name);
  }
}

TEST(ShippedTables, GoldenParagraphsPerEncoding) {
  std::ifstream input(TestData() / "data" / "tamil_paragraphs.txt", std::ios::binary);
  std::string line, golden;
  for (int i = 1; std::getline(input, line); ++i) {
    if (i == 1 || i == 11) golden += line + "\n";
  }
  const std::u16string unicode = text::Utf8ToUtf16(golden);
  const EncodingList list = LoadEncodingList(Folder());
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    const std::filesystem::path file = TestData() / "golden" / (text::Utf16ToUtf8(name) + ".bin");
    ASSERT_TRUE(std::filesystem::exists(file)) << file;
    const std::string expected = testing::ReadBytes(file);
    const std::u16string expectedText = DecodeTextFileBytes(expected);
    Tables tables = LoadTables(Folder(), position);
    EXPECT_EQ(tables.toLegacy->Apply(unicode), expectedText) << text::Utf16ToUtf8(name);
  }
}

}  // namespace
}  // namespace quilom::converter
