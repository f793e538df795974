#include "translit/modifier_file.hpp"

#include <gtest/gtest.h>

#include "settings/data_folders.hpp"
#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::translit {
namespace {

constexpr char16_t kKa = 0x0B95;
constexpr int kKaColumn = kKa - ModifierTables::kFirstColumnCode;

std::u16string File(std::u16string_view maps, std::u16string_view mods, std::u16string_view mode = u"0") {
  return u"# test\r\n<Maps>\r\n" + std::u16string(maps) + u"<ModifierCharacter>\r\n~\r\n<Mods>\r\n" +
         std::u16string(mods) + u"<ExtendMods>\r\n" + std::u16string(mode) + u"\r\n";
}

std::optional<ModifierTables> Parse(std::u16string_view text, ModifierLoadOptions options, DataFileProblem& problem) {
  return ParseModifierFile(text, options, problem);
}

TEST(ModifierFile, ShippedFileLoads) {
  const auto mainFolder = settings::DataFolders::ForDataRoot(testing::SourceDataRoot()).mainDataFolder;
  std::shared_ptr<const ModifierTables> tables;
  std::vector<std::u16string> notices;
  ASSERT_EQ(LoadModifierFile(mainFolder, {}, tables, [&](std::u16string_view m) { notices.emplace_back(m); }),
            LoadOutcome::Loaded)
      << (notices.empty() ? "" : text::Utf16ToUtf8(notices[0]));
  EXPECT_EQ(tables->modifierChar, u'~');
  EXPECT_GT(tables->vowelSignCount, 10);
  EXPECT_FALSE(tables->hasLongEe);
  EXPECT_EQ(tables->Sequence(kKa, 1), u"கஆ");
  EXPECT_EQ(tables->Replacement(kKa, 1), u"கா");

  ModifierLoadOptions longRows;
  longRows.longEeOoW = true;
  ASSERT_EQ(LoadModifierFile(mainFolder, longRows, tables, {}), LoadOutcome::Loaded);
  EXPECT_TRUE(tables->hasLongEe);
  EXPECT_TRUE(tables->hasLongOo);
}

// The keys of the vowel rows loaded, blank-separated.
std::u16string VowelKeys(const ModifierTables& t) {
  std::u16string keys;
  for (int i = 1; i <= t.vowelSignCount; ++i) keys += (i > 1 ? u" " : u"") + t.vowelSignMap[i].key;
  return keys;
}

TEST(ModifierFile, ReadsTheVowelRowsTheOptionsAskFor) {
  const std::u16string longRows = File(u"a = அ -\r\n#ee = ஈ ீ\r\n#oo = ஊ ூ\r\n#w = ஔ ௌ\r\n", u"கஆ~ = கா\r\n");
  struct Row {
    const char* what;
    std::u16string text;
    ModifierLoadOptions options;
    std::u16string keys;
    bool longEe, longOo;
  };
  const Row rows[] = {
      {"tabs, comments, blank lines",
       File(u"a = அ -\r\n\t# c\r\naa\t=\tஆ\tா\r\n\r\nai = ஐ ை\r\n", u""),
       {},
       u"a aa ai",
       false,
       false},
      {"long rows stay comments", longRows, {}, u"a", false, false},
      {"long rows switched on", longRows, {true, true, true}, u"a ee oo w", true, true},
      {"vowel switch off", longRows, {false, true, true}, u"", false, false},
      {"no <Maps> line",
       u"a = அ -\r\ni = இ ி\r\n<ModifierCharacter>\r\n~\r\n<Mods>\r\n<ExtendMods>\r\n0",
       {},
       u"a i",
       false,
       false},
  };
  for (const auto& row : rows) {
    DataFileProblem problem;
    const auto t = Parse(row.text, row.options, problem);
    ASSERT_TRUE(t) << row.what;
    EXPECT_EQ(VowelKeys(*t), row.keys) << row.what;
    EXPECT_EQ(t->hasLongEe, row.longEe) << row.what;
    EXPECT_EQ(t->hasLongOo, row.longOo) << row.what;
    EXPECT_EQ(t->modifierChar, u'~') << row.what;
  }
  DataFileProblem problem;
  const auto signs = Parse(rows[0].text, {}, problem);
  EXPECT_EQ(signs->vowelSignMap[1].sign, u"");
  EXPECT_EQ(signs->vowelSignMap[2].vowel, u"ஆ");
  EXPECT_EQ(signs->vowelSignMap[2].sign, u"ா");
  EXPECT_EQ(signs->maxVowelKeyLength, 2);
  const auto modsOff = Parse(longRows, {true, false, false}, problem);
  EXPECT_EQ(modsOff->PairCount(kKaColumn), 0);
  EXPECT_EQ(modsOff->Cell(0, kKaColumn), u"0");
}

TEST(ModifierFile, ModeOneAppendsOneShorterPairPerConsonantPair) {
  const std::u16string mods = u"கஆ~ = கா\r\nகஇ~ = கி\r\nஅஇ~ = ஐ\r\n";
  DataFileProblem problem;
  const auto plain = Parse(File(u"", mods, u"0"), {}, problem);
  ASSERT_TRUE(plain);
  EXPECT_EQ(plain->PairCount(kKaColumn), 2);
  EXPECT_EQ(plain->maxExtendKeyLength, 2);

  const auto derived = Parse(File(u"", mods, u"1"), {}, problem);
  ASSERT_TRUE(derived);
  EXPECT_EQ(derived->Cell(0, kKaColumn), u"4");
  EXPECT_EQ(derived->Sequence(kKa, 3), u"க");
  EXPECT_EQ(derived->Replacement(kKa, 3), u"க");
  EXPECT_EQ(derived->Sequence(kKa, 4), u"க");
  EXPECT_EQ(derived->Replacement(kKa, 4), u"க");
  // அ is not a consonant: its pair is not derived.
  EXPECT_EQ(derived->PairCount(0x0B85 - ModifierTables::kFirstColumnCode), 1);
}

std::u16string Repeat(std::u16string_view row, int times) {
  std::u16string out;
  for (int i = 0; i < times; ++i) out += std::u16string(row) + u"\r\n";
  return out;
}

TEST(ModifierFile, RefusesRowsNotInOrderAndOverflows) {
  struct Row {
    const char* what;
    std::u16string text;
    int line;
  };
  const Row rows[] = {
      {"vowel row without sign", File(u"a = அ -\r\naa = ஆ\r\n", u""), 4},
      {"vowel row without =", File(u"aa : ஆ ா\r\n", u""), 3},
      {"thirtieth vowel row", File(Repeat(u"aa = ஆ ா", 30), u""), 32},
      {"modifier row without =", File(u"", u"கஆ~ கா\r\n"), 6},
      {"sequence above U+0BCD", File(u"", u"ௐஆ~ = x\r\n"), 6},
      {"fifty-first pair", File(u"", Repeat(u"கஆ~ = கா", 51)), 56},
      {"derived pairs overflow", File(u"", Repeat(u"கஆ~ = கா", 26), u"1"), 33},
      {"mode not a number", File(u"", u"", u"one"), 7},
      {"no modifier character", u"<Maps>\r\na = அ -\r\n", 3},
      {"no <Mods>", u"<Maps>\r\n<ModifierCharacter>\r\n~\r\n<ExtendMods>\r\n0", 5},
  };
  for (const auto& row : rows) {
    DataFileProblem problem;
    EXPECT_FALSE(Parse(row.text, {}, problem).has_value()) << row.what;
    EXPECT_EQ(problem.lineNumber, row.line) << row.what;
    EXPECT_FALSE(problem.reason.empty()) << row.what;
  }
}

TEST(ModifierFile, RefusedFileIsReportedAndThePreviousTablesStay) {
  testing::TempFolder folder;
  std::filesystem::create_directories(folder / "Tamil");
  const auto path = ModifierFilePath(folder.path());
  ASSERT_TRUE(settings::WriteTextFile(path, File(u"a = அ -\r\n", u""), 3));
  std::shared_ptr<const ModifierTables> tables;
  std::vector<std::u16string> notices;
  const DataFileNotifier notify = [&](std::u16string_view m) { notices.emplace_back(m); };
  ASSERT_EQ(LoadModifierFile(folder.path(), {}, tables, notify), LoadOutcome::Loaded);
  const auto before = tables;

  ASSERT_TRUE(settings::WriteTextFile(path, File(u"a = அ -\r\nbad row\r\n", u""), 3));
  EXPECT_EQ(LoadModifierFile(folder.path(), {}, tables, notify), LoadOutcome::Refused);
  EXPECT_EQ(tables, before);
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_NE(notices[0].find(u"'" + path.u16string() + u"' is not in order"), std::u16string::npos);
  EXPECT_NE(notices[0].find(u"line 4"), std::u16string::npos);
}

}  // namespace
}  // namespace quilom::translit
