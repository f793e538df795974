#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "translit/catalogue_filters.hpp"
#include "translit/catalogue_lists.hpp"
#include "translit/catalogue_screen.hpp"
#include "translit/catalogue_view.hpp"

namespace quilom::translit {
namespace {

using settings::DataFolders;
using testing::SourceDataRoot;
using testing::TempFolder;

std::vector<LfkRow> ShippedOriginal() {
  return LoadLfkList(DataFolders::ForDataRoot(SourceDataRoot()), kOriginalList).value_or(std::vector<LfkRow>{});
}

std::vector<std::u16string> Names(const std::vector<LfkRow>& rows) {
  std::vector<std::u16string> names;
  for (const auto& row : rows) names.push_back(row.Name());
  return names;
}

TEST(CatalogueLists, ShippedListsNameInstalledKeymapsAndNumberThemInOrder) {
  const auto folders = DataFolders::ForDataRoot(SourceDataRoot());
  const auto original = ShippedOriginal();
  ASSERT_EQ(original.size(), 29u);
  EXPECT_EQ(original[0], (LfkRow{u"Tamil", u"Unicode", u"PhoneticTransliteration", u"1"}));
  for (size_t i = 0; i < original.size(); ++i) {
    EXPECT_EQ(original[i].fourth, text::Utf8ToUtf16(std::to_string(i + 1)));
  }
  auto installed = Names(InstalledLfks(folders.keymapFolder));
  auto listed = Names(original);
  std::sort(installed.begin(), installed.end());
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(installed, listed);
  for (const auto list : {kSortedList, kFinalizedList}) {
    const auto rows = LoadLfkList(folders, list);
    ASSERT_TRUE(rows.has_value());
    auto names = Names(*rows);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, listed) << text::Utf16ToUtf8(list);
  }
}

TEST(CatalogueLists, LinesParseAndFormatBackUnchanged) {
  const std::u16string text = u"Tamil-Unicode-PhoneticTransliteration-Mine 7\r\nGreek-Unicode-X\r\n";
  const auto rows = ParseLfkList(u"  \r\n" + text + u"\r\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].layout, u"PhoneticTransliteration-Mine");
  EXPECT_EQ(rows[0].fourth, u"7");
  EXPECT_EQ(rows[1].fourth, u"");
  EXPECT_EQ(FormatLfkList(rows), text);
  const auto shipped = settings::ReadTextFile(LfkListPath(DataFolders::ForDataRoot(SourceDataRoot()), kOriginalList));
  EXPECT_EQ(FormatLfkList(ParseLfkList(shipped)), shipped);
}

TEST(CatalogueLists, FinalizeWritesInTheEncodingOfTheOtherLists) {
  const std::vector<LfkRow> rows = {{u"Hindi", u"Unicode", u"PhoneticTransliteration", u"12"},
                                    {u"Tamil", u"Unicode", u"TamilNet99", u"2"}};
  const std::string expectedText = "Hindi-Unicode-PhoneticTransliteration 12\r\nTamil-Unicode-TamilNet99 2\r\n";

  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  ASSERT_TRUE(SaveLfkList(folders, kFinalizedList, rows));  // no Original: UTF-16LE with mark
  const std::string bytes = testing::ReadBytes(LfkListPath(folders, kFinalizedList));
  ASSERT_GE(bytes.size(), 2u);
  EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
  EXPECT_EQ(bytes.size(), 2 + 2 * expectedText.size());
  EXPECT_EQ(LoadLfkList(folders, kFinalizedList), rows);

  testing::WriteBytes(LfkListPath(folders, kOriginalList), "Tamil-Unicode-TamilNet99 1\r\n");
  ASSERT_TRUE(SaveLfkList(folders, ChoiceListName(3), rows));
  EXPECT_EQ(testing::ReadBytes(folders.mainDataFolder / "inps" / "Settings-Lfks-Choices-3.txt"), expectedText);
}

TEST(CatalogueLists, MissingListsAreNotLoadedAndBadNamesNotWritten) {
  EXPECT_EQ(MoveToEntries().size(), 9u);
  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  EXPECT_FALSE(LoadLfkList(folders, ChoiceListName(4)).has_value());
  EXPECT_FALSE(SaveLfkList(folders, ChoiceListName(12), {}));
  EXPECT_EQ(LoadLanguageNames(DataFolders::ForDataRoot(SourceDataRoot())).size(), 19u);
}

TEST(CatalogueLists, MovingRowsStopsAtTheEnds) {
  const std::vector<LfkRow> start = {{u"A"}, {u"B"}, {u"C"}, {u"D"}};
  struct Row {
    int from, delta, to;
    std::u16string order;
  };
  const Row rows[] = {{1, -1, 0, u"BACD"}, {1, 1, 2, u"ACBD"},  {0, -1, 0, u"ABCD"}, {3, 1, 3, u"ABCD"},
                      {0, 10, 3, u"BCDA"}, {3, -9, 0, u"DABC"}, {4, -1, 4, u"ABCD"}, {-1, 1, -1, u"ABCD"}};
  for (const auto& row : rows) {
    auto rowsNow = start;
    EXPECT_EQ(MoveRow(rowsNow, row.from, row.delta), row.to) << row.from << " by " << row.delta;
    std::u16string order;
    for (const auto& r : rowsNow) order += r.language;
    EXPECT_EQ(order, row.order) << row.from << " by " << row.delta;
  }
}

TEST(CatalogueLists, InstalledKeymapsFromTxtAndXmlFiles) {
  TempFolder temp;
  for (const char* name : {"QuilomPlus-Hindi-Unicode-PhoneticTransliteration.XML", "QuilomPlus-Hindi-Unicode-Mine.txt",
                           "QuilomPlus-Tamil-Unicode-PhoneticTransliteration-Mine.txt",
                           "QuilomPlus-Tamil-Unicode-TamilNet99.xml", "QuilomPlus-Bad.xml", "notes.md"}) {
    testing::WriteBytes(temp / name, "x");
  }
  std::filesystem::create_directories(temp / "chCh-1");
  testing::WriteBytes(temp / "chCh-1" / "QuilomPlus-Greek-Unicode-X.xml", "x");
  EXPECT_EQ(Names(InstalledLfks(temp.path())),
            (std::vector<std::u16string>{u"Hindi-Unicode-Mine", u"Hindi-Unicode-PhoneticTransliteration",
                                         u"Tamil-Unicode-TamilNet99"}));
}

TEST(CatalogueFilters, VocabulariesInTheirOrder) {
  const auto languages = LanguageVocabulary();
  ASSERT_EQ(languages.size(), 21u);
  EXPECT_EQ(languages.front(), u"All Languages");
  EXPECT_EQ(languages[17], u"LatinScript&IPA");
  EXPECT_EQ(languages.back(), u"Except Tamil");
  EXPECT_EQ(EncodingVocabulary(u"", VocabularyUse::Filter),
            (std::vector<std::u16string>{u"All Font Encodings", u"Unicode", u"NonUnicode", u"Stmzh", u"Bamini",
                                         u"Shreelipi", u"Tab", u"Tam", u"Tscii"}));
  const auto finder = EncodingVocabulary(u"Someone", VocabularyUse::Finder);
  EXPECT_EQ(finder[3], u"Someone");
  EXPECT_EQ(finder[4], u"Stmzh (SR, RGB)");
  EXPECT_EQ(LayoutVocabulary().back(), u"TamilNet99");

  EXPECT_EQ(PersonNamedEncoding(ShippedOriginal()), u"");
  EXPECT_EQ(PersonNamedEncoding({{u"Tamil", u"Unicode", u"X"}, {u"Tamil", u"TSCII", u"X"}, {u"Tamil", u"Nm", u"X"}}),
            u"Nm");
}

TEST(CatalogueFilters, FiltersCompareInLowerCase) {
  const auto rows = ShippedOriginal();
  const auto count = [&](const LfkChoice& choice) {
    const auto visible = VisibleRows(rows, choice);
    return std::count(visible.begin(), visible.end(), true);
  };
  EXPECT_EQ(count({}), 29);
  EXPECT_EQ(count({u"Tamil"}), 11);
  EXPECT_EQ(count({u"Except Tamil"}), 18);
  EXPECT_EQ(count({u"All Languages", u"NonUnicode"}), 6);
  EXPECT_EQ(count({u"Tamil", u"Stmzh (SR, RGB)"}), 1);
  EXPECT_EQ(count({u"Tamil", u"stmzh"}), 1);
  EXPECT_EQ(count({u"Tamil", u"Unicode", u"TamilNet99"}), 1);
  EXPECT_EQ(count({u"Hindi", u"Unicode", u"TamilNet99"}), 0);
  EXPECT_TRUE(RowMatches({u"TAMIL", u"UNICODE", u"tamilnet99"}, {u"Tamil", u"Unicode", u"TamilNet99"}));
  EXPECT_FALSE(RowMatches({u"Tamil", u"Stmzhx", u"X"}, {u"All Languages", u"Stmzh (SR, RGB)"}));
}

TEST(CatalogueFilters, FinderHighlightsTheFirstVisibleMatchOrFallsBackToTheLanguage) {
  const auto rows = ShippedOriginal();
  const auto all = VisibleRows(rows, {});
  const auto found = FindLfk(rows, all, {u"Tamil", u"Stmzh (SR, RGB)"}, u"Stmzh (SR, RGB)");
  EXPECT_EQ(found.row, 5);
  EXPECT_EQ(found.message, u"");

  const auto tamilUnicodeOnly = VisibleRows(rows, {u"Tamil", u"Unicode"});
  const auto missing = FindLfk(rows, tamilUnicodeOnly, {u"Tamil", u"Bamini"}, u"Bamini");
  EXPECT_EQ(missing.row, 0);
  EXPECT_EQ(missing.message,
            u"No LFK matching 'Bamini' found in the current list of visible LFKs.\r\n\r\nSo, will just highlight the "
            u"first LFK found with 'Tamil' as language.\r\n\r\nTIP: You can use the 'Filter By' facility at the top "
            u"to first identify what all LFKs are available for a particular language.");

  // The language's rows are all hidden: its first row in the list is still found.
  const auto hindiHidden = VisibleRows(rows, {u"Tamil"});
  EXPECT_EQ(FindLfk(rows, hindiHidden, {u"Hindi", u"Unicode", u"TypeWriterOld"}, u"TypeWriterOld").row, 11);
  EXPECT_EQ(FindLfk(rows, all, {u"Klingon"}, u"Klingon").row, -1);
}

TEST(CatalogueScreen, StateIsReadAndWrittenBack) {
  EXPECT_EQ(ParseCatalogueScreen(u""), CatalogueScreen{});
  const auto parsed = ParseCatalogueScreen(
      u"Last ScreenWidth`````800\r\nLast ScreenHeight`````x\r\nMaximized State`````True\r\n"
      u"FileToBe Loaded`````Choices-2\r\n");
  EXPECT_EQ(parsed, (CatalogueScreen{800, 0, true, u"Choices-2"}));

  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  EXPECT_EQ(ReadCatalogueScreen(folders), CatalogueScreen{});
  const auto path = folders.mainDataFolder / "inps" / "Settings-Lfks-Screen.txt";
  std::filesystem::create_directories(path.parent_path());
  settings::WriteTextFile(path, u"Column Widths`````1,2\r\nLast ScreenWidth`````5\r\n", 3);
  const CatalogueScreen saved{1024, 700, false, u"Sorted"};
  ASSERT_TRUE(WriteCatalogueScreen(folders, saved));
  EXPECT_EQ(ReadCatalogueScreen(folders), saved);
  EXPECT_EQ(settings::ReadTextFile(path),
            u"Column Widths`````1,2\r\nLast ScreenWidth`````1024\r\nLast ScreenHeight`````700\r\n"
            u"Maximized State`````0\r\nFileToBe Loaded`````Sorted\r\n");
}

}  // namespace
}  // namespace quilom::translit

namespace quilom::translit {
namespace {

LfkRow Row(std::u16string_view name, std::u16string_view fourth) {
  LfkRow row = LfkRowOfName(name);
  row.fourth = std::u16string(fourth);
  return row;
}

std::vector<LfkRow> MixedRows() {
  return {Row(u"Tamil-Unicode-PhoneticTransliteration", u"1"), Row(u"Hindi-Unicode-PhoneticTransliteration", u"2"),
          Row(u"Tamil-Bamini-PhoneticTransliteration", u"3"), Row(u"Greek-Unicode-PhoneticTransliteration", u"4"),
          Row(u"Tamil-Unicode-TamilNet99", u"5")};
}

TEST(CatalogueView, FilterShowsMatchingRowsAndFinalizeTakesOnlyThose) {
  CatalogueView view;
  view.SetRows(MixedRows());
  view.SetFilter({u"Except Tamil", std::u16string(kAllEncodings), std::u16string(kAllLayouts)});
  EXPECT_EQ(view.Shown(), (std::vector<int>{1, 3}));
  EXPECT_EQ(Names(view.ShownRows()), (std::vector<std::u16string>{u"Hindi-Unicode-PhoneticTransliteration",
                                                                  u"Greek-Unicode-PhoneticTransliteration"}));
  // A new list keeps the chosen filter.
  view.SetRows({Row(u"Tamil-Unicode-TypeWriterNew", u"9"), Row(u"Arabic-Unicode-PhoneticTransliteration", u"8")});
  EXPECT_EQ(view.Shown(), (std::vector<int>{1}));
}

TEST(CatalogueView, MovingUnderAFilterSwapsShownNeighboursAndLeavesHiddenRowsInPlace) {
  CatalogueView view;
  view.SetRows(MixedRows());
  view.SetFilter({u"Tamil", std::u16string(kAllEncodings), std::u16string(kAllLayouts)});
  ASSERT_EQ(view.Shown(), (std::vector<int>{0, 2, 4}));
  EXPECT_EQ(view.MoveShown(2, -1), 1);
  EXPECT_EQ(view.MoveShown(0, -1), 0);  // already first
  EXPECT_EQ(view.MoveShown(2, 1), 2);   // already last
  EXPECT_EQ(view.MoveShown(7, 1), 7);   // no such row
  std::vector<std::u16string> fourths;
  for (const auto& row : view.Rows()) fourths.push_back(row.fourth);
  EXPECT_EQ(fourths, (std::vector<std::u16string>{u"1", u"2", u"5", u"4", u"3"}));
}

TEST(CatalogueView, FinderGivesShownPositionsAndDropsTheFilterForAHiddenLanguage) {
  CatalogueView view;
  view.SetRows(MixedRows());
  view.SetFilter({std::u16string(kAllLanguages), u"Unicode", std::u16string(kAllLayouts)});
  ASSERT_EQ(view.Shown(), (std::vector<int>{0, 1, 3, 4}));

  const auto greek = view.Find({u"Greek", std::u16string(kAllEncodings), std::u16string(kAllLayouts)}, u"Greek");
  EXPECT_EQ(greek.shownIndex, 2);
  EXPECT_FALSE(greek.clearsFilter);
  EXPECT_TRUE(greek.message.empty());

  // Only the hidden Bamini row matches: the message is shown, then the first Tamil row.
  const auto bamini = view.Find({u"Tamil", u"Bamini", std::u16string(kAllLayouts)}, u"Bamini");
  EXPECT_EQ(bamini.message, NoMatchingLfkMessage(u"Bamini", u"Tamil"));
  EXPECT_EQ(bamini.shownIndex, 0);
  EXPECT_FALSE(bamini.clearsFilter);

  view.SetFilter({u"Hindi", std::u16string(kAllEncodings), std::u16string(kAllLayouts)});
  const auto tamil = view.Find({u"Tamil", std::u16string(kAllEncodings), std::u16string(kAllLayouts)}, u"Tamil");
  EXPECT_TRUE(tamil.clearsFilter);
  EXPECT_EQ(tamil.shownIndex, 0);

  const auto none =
      view.Find({u"Sourashtra", std::u16string(kAllEncodings), std::u16string(kAllLayouts)}, u"Sourashtra");
  EXPECT_EQ(none.shownIndex, -1);
  EXPECT_FALSE(none.message.empty());
}

}  // namespace
}  // namespace quilom::translit
