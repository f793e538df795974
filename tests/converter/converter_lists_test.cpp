#include "converter/converter_lists.hpp"

#include <gtest/gtest.h>

#include "settings/text_file.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::converter {
namespace {

class FixedFonts final : public FontCatalog {
 public:
  explicit FixedFonts(std::vector<std::u16string> names) : names_(std::move(names)) {}
  int Count() const override { return static_cast<int>(names_.size()); }
  std::u16string Name(int index) const override { return names_.at(static_cast<std::size_t>(index)); }
  // Like a font object: an installed name reads back as the system spells it, anything else
  // reads back as the substitute font.
  std::u16string ResolvedName(std::u16string_view requested) const override {
    for (const std::u16string& name : names_) {
      if (name.size() == requested.size() &&
          std::equal(name.begin(), name.end(), requested.begin(), [](char16_t a, char16_t b) {
            return std::tolower(static_cast<int>(a)) == std::tolower(static_cast<int>(b));
          })) {
        return name;
      }
    }
    return u"Arial";
  }

 private:
  std::vector<std::u16string> names_;
};

class RecordingPrompter final : public Prompter {
 public:
  PromptAnswer AskYesNoCancel(std::u16string_view) override { return PromptAnswer::Yes; }
  PromptAnswer AskYesNo(std::u16string_view, bool) override { return PromptAnswer::Yes; }
  void Inform(std::u16string_view message) override { notices.emplace_back(message); }
  std::vector<std::u16string> notices;
};

void Write(const std::filesystem::path& file, std::u16string_view text) {
  ASSERT_TRUE(settings::WriteTextFile(file, text, 3));
}

class ConverterListsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Write(folder / std::u16string(kDefaultFontsFile), u"Latha\r\nTSCu_Paranar\r\nBamini");
    Write(folder / std::u16string(kEncodingsFile), u"Unicode\r\nTscii\r\nBamini");
    Write(folder / std::u16string(kUnicodeFontsFile), u"Latha\r\nNot Installed\r\nnirmala ui");
    Write(folder / std::u16string(kSearchPatternsFile), u"Latha\r\nTSC, tscu_P\r\n\r\nBamini");
    ui.prompter = &prompter;
    ui.progress = [this](std::u16string_view label) { labels.emplace_back(label); };
  }
  std::u16string FontsFile() { return settings::ReadTextFile(folder / std::u16string(kWinFontsListFile)); }

  testing::TempFolder folder;
  RecordingPrompter prompter;
  ListsUi ui;
  std::vector<std::u16string> labels;
};

TEST_F(ConverterListsTest, AMissingFontsListIsGeneratedSilently) {
  const FixedFonts fonts({u"Arial", u"@MS Gothic", u"Latha", u"Nirmala UI"});
  const ConverterLists lists = LoadConverterLists(folder.path(), fonts, ui);
  EXPECT_TRUE(prompter.notices.empty());
  // The "@" font leaves an empty line; element 0 is font 0 right after regeneration.
  EXPECT_EQ(lists.systemFonts, (std::vector<std::u16string>{u"Arial", u"", u"Latha", u"Nirmala UI"}));
  EXPECT_EQ(FontsFile(), u"List of all fonts present in the system\r\nArial\r\n\r\nLatha\r\nNirmala UI");
  EXPECT_EQ(lists.encodings, (std::vector<std::u16string>{u"Unicode", u"Tscii", u"Bamini"}));
  EXPECT_EQ(lists.defaultFonts.at(1), u"TSCu_Paranar");
  // Installed candidates only, checked without regard to case, after the two fixed rows.
  EXPECT_EQ(lists.unicodeFonts, (std::vector<std::u16string>{u"Any Font", u"Default Font", u"Latha", u"nirmala ui"}));
  EXPECT_EQ(labels.front(), u"(Re)Generating the fonts list... Please wait...");
  EXPECT_EQ(labels[1], u"(Re)Generating the fonts list... Please wait... 0%");
  EXPECT_EQ(labels.back(), u"Fonts list generation process completed.");
}

TEST_F(ConverterListsTest, AFreshFontsListIsReadAsItIsAndAStaleOneIsRegeneratedAfterTheMessage) {
  Write(folder / std::u16string(kWinFontsListFile), u"List of all fonts present in the system\r\nOld\r\nFonts");
  const FixedFonts two({u"A", u"B"});
  const ConverterLists fresh = LoadConverterLists(folder.path(), two, ui);
  EXPECT_TRUE(prompter.notices.empty());
  EXPECT_EQ(fresh.systemFonts.at(1), u"Old");

  const FixedFonts three({u"A", u"B", u"C"});
  const ConverterLists stale = LoadConverterLists(folder.path(), three, ui);
  ASSERT_EQ(prompter.notices.size(), 1u);
  EXPECT_EQ(prompter.notices[0],
            u"Fonts have got added or deleted in your system recently (Earlier - 2. Now - 3). Hence, will "
            u"regenerate the 'Fonts List' which may take a few seconds");
  EXPECT_EQ(stale.systemFonts, (std::vector<std::u16string>{u"A", u"B", u"C"}));
}

TEST_F(ConverterListsTest, ProgressIsShownEveryHundredFonts) {
  std::vector<std::u16string> names;
  for (int i = 0; i < 250; ++i) names.push_back(u"F" + std::u16string(1, static_cast<char16_t>(u'a' + i % 26)));
  GenerateFontsList(folder.path(), FixedFonts(names), ui);
  const std::vector<std::u16string> expected = {
      u"(Re)Generating the fonts list... Please wait...", u"(Re)Generating the fonts list... Please wait... 0%",
      u"(Re)Generating the fonts list... Please wait... 40%", u"(Re)Generating the fonts list... Please wait... 80%",
      u"Fonts list generation process completed."};
  EXPECT_EQ(labels, expected);
}

TEST_F(ConverterListsTest, LegacyFontsMatchPrefixesWithoutCaseAndSortByCodeUnit) {
  // Element 0 is never offered, even when it would match (right after regeneration it is font 0).
  const std::vector<std::u16string> system = {u"TSCu_Times",    u"tscu_paranar", u"",
                                              u"TSC_Avarangal", u"Arial",        u"TSCu_Paranar"};
  const std::vector<std::u16string> rows = FillNonUnicodeFonts(folder.path(), system, 1, u"LF1");
  // "TSC" and "tscu_P" both match the Paranar fonts, which are therefore listed twice.
  const std::vector<std::u16string> expected = {u"Any Font",     u"Default Font", u"TSC_Avarangal", u"TSCu_Paranar",
                                                u"TSCu_Paranar", u"tscu_paranar", u"tscu_paranar"};
  EXPECT_EQ(rows, expected);
}

TEST_F(ConverterListsTest, NoMatchOrABlankPatternLineGivesAnEmptyList) {
  const std::vector<std::u16string> system = {u"x", u"Arial", u"Latha"};
  EXPECT_TRUE(FillNonUnicodeFonts(folder.path(), system, 3, u"LTo").empty());
  EXPECT_TRUE(FillNonUnicodeFonts(folder.path(), system, 2, u"LTo").empty());
  EXPECT_TRUE(FillNonUnicodeFonts(folder.path(), system, 9, u"LTo").empty());
}

TEST(QuickSortBinary, SortsByCodeUnitIncludingDuplicatesAndSortedInput) {
  std::vector<std::u16string> items = {u"b", u"B", u"a", u"\u0B95", u"A", u"b", u""};
  QuickSortBinary(items);
  EXPECT_EQ(items, (std::vector<std::u16string>{u"", u"A", u"B", u"a", u"b", u"b", u"\u0B95"}));
  std::vector<std::u16string> sorted(5000, u"z");
  for (std::size_t i = 0; i < sorted.size(); ++i) sorted[i] = u"k" + std::u16string(i / 100 + 1, u'a');
  auto copy = sorted;
  QuickSortBinary(copy);
  EXPECT_EQ(copy, sorted);
}

TEST(IsFontInstalled, ComparesTheReadBackNameWithoutCase) {
  const FixedFonts fonts({u"Latha"});
  EXPECT_TRUE(IsFontInstalled(fonts, u"LATHA"));
  EXPECT_FALSE(IsFontInstalled(fonts, u"Vijaya"));
}

}  // namespace
}  // namespace quilom::converter
