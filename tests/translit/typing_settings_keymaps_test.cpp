#include <gtest/gtest.h>

#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_resolution.hpp"
#include "translit/output_sink.hpp"
#include "translit/typing_settings2.hpp"

namespace quilom::translit {
namespace {

using settings::DataFolders;
using testing::SourceDataRoot;

const DataFolders& Shipped() {
  static const DataFolders folders = DataFolders::ForDataRoot(SourceDataRoot());
  return folders;
}

// Loads `lfk` through the settings-driven loader and types each blank-separated word into a
// fresh engine buffer.
std::string TypeWith(const TypingSettings& settings, std::u16string_view lfk, std::u16string_view keys,
                     const DataFolders& folders = Shipped()) {
  std::shared_ptr<const PhoneticKeymap> tables;
  EXPECT_EQ(LoadKeymapForSettings(folders, settings, lfk, tables), LoadOutcome::Loaded) << text::Utf16ToUtf8(lfk);
  if (!tables) return "<not loaded>";
  NullOutputSink sink;
  Engine engine(sink);
  engine.SetKeymap(tables);
  engine.SetSettings(EngineSettingsFor(settings, lfk));
  std::u16string out;
  for (const char16_t key : keys) {
    if (key == u' ') {
      out += engine.CurrentOutput();
      out += u' ';
      engine.Reset();
    } else {
      engine.ProcessKey(key);
    }
  }
  out += engine.CurrentOutput();
  return text::Utf16ToUtf8(out);
}

TEST(KeymapResolution, SettingsPickTheVariantFiles) {
  TypingSettings agaraOff;
  agaraOff.consecutiveAgaraUyirmeys = false;
  TypingSettings chCh;
  chCh.chCh = true;
  const auto& folder = Shipped().keymapFolder;
  struct Row {
    const TypingSettings& settings;
    std::u16string_view lfk;
    std::filesystem::path expected;
  };
  const TypingSettings defaults;
  const Row rows[] = {
      {defaults, u"Tamil-Unicode-TamilNet99", folder / "QuilomPlus-Tamil-Unicode-TamilNet99.xml"},
      {agaraOff, u"Tamil-Unicode-TamilNet99",
       folder / "ConsecutiveAgaraUyirmeys-0" / "QuilomPlus-Tamil-Unicode-TamilNet99.xml"},
      {agaraOff, u"Hindi-Unicode-PhoneticTransliteration",
       folder / "QuilomPlus-Hindi-Unicode-PhoneticTransliteration.xml"},
      {chCh, u"Hindi-Unicode-PhoneticTransliteration",
       folder / "chCh-1" / "QuilomPlus-Hindi-Unicode-PhoneticTransliteration.xml"},
      // No variant file: the ordinary one.
      {chCh, u"Greek-Unicode-PhoneticTransliteration", folder / "QuilomPlus-Greek-Unicode-PhoneticTransliteration.xml"},
      {chCh, u"Tamil-Unicode-PhoneticTransliteration", folder / "QuilomPlus-Tamil-Unicode-PhoneticTransliteration.xml"},
      {defaults, u"Tamil-Unicode-PhoneticTransliteration-Mine",
       folder / "QuilomPlus-Tamil-Unicode-PhoneticTransliteration-Mine.txt"},
      {defaults, u"Tamil-PhoneticTransliteration-x", folder / "QuilomPlus-Tamil-PhoneticTransliteration-x.xml"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(KeymapPathFor(Shipped(), row.settings, row.lfk), row.expected) << text::Utf16ToUtf8(row.lfk);
  }
}

TEST(KeymapResolution, AgaraSettingChangesHowTamil99TypesAfterAConsonant) {
  TypingSettings agaraOff;
  agaraOff.consecutiveAgaraUyirmeys = false;
  EXPECT_EQ(TypeWith({}, u"Tamil-Unicode-TamilNet99", u"ha hah"), "க கக");
  EXPECT_EQ(TypeWith(agaraOff, u"Tamil-Unicode-TamilNet99", u"ha hah"), "கஅ கஅக");
}

TEST(KeymapResolution, ExcludeHFreesTheHKeyAndKeepsTheAspirates) {
  TypingSettings excludeH;
  excludeH.excludeH = true;
  const std::u16string_view lfk = u"Tamil-Unicode-PhoneticTransliteration";
  EXPECT_EQ(TypeWith({}, lfk, u"h"), "ஹ்");
  EXPECT_EQ(TypeWith({}, lfk, u"hai"), "ஹை");
  for (const std::u16string_view word : {u"h", u"hai"}) {
    EXPECT_EQ(TypeWith(excludeH, lfk, word).find("ஹ"), std::string::npos) << text::Utf16ToUtf8(word);
  }
  // Keys with "h" inside them type the same either way.
  for (const std::u16string_view word : {u"tha", u"zhi", u"kshaa", u"pathu"}) {
    EXPECT_EQ(TypeWith(excludeH, lfk, word), TypeWith({}, lfk, word)) << text::Utf16ToUtf8(word);
  }
}

TEST(KeymapResolution, TamilNumeralsTurnDigitKeysIntoTamilDigitsInUnicodeOnly) {
  TypingSettings numerals;
  numerals.tamilNumerals = true;
  EXPECT_EQ(TypeWith(numerals, u"Tamil-Unicode-PhoneticTransliteration", u"2026 ka1"), "௨௦௨௬ க௧");
  EXPECT_EQ(TypeWith({}, u"Tamil-Unicode-PhoneticTransliteration", u"2026").find("௨"), std::string::npos);
  const std::u16string tscii = u"<om>1 1</om>\r\n<om>ka \xAA</om>\r\n";
  EXPECT_EQ(AdjustKeymapText(tscii, numerals, u"Tamil-Tscii-PhoneticTransliteration"), tscii);
  EXPECT_EQ(AdjustKeymapText(tscii, numerals, u"Hindi-Unicode-PhoneticTransliteration"), tscii);
}

TEST(KeymapResolution, AdjustedTextKeepsLineNumbersForProblemReports) {
  testing::TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  std::filesystem::create_directories(folders.keymapFolder);
  // Line 4 is not in order (no output after its key).
  settings::WriteTextFile(folders.keymapFolder / "QuilomPlus-Tamil-Unicode-PhoneticTransliteration.xml",
                          u"title\r\n<om>h ஹ்</om>\r\n<om>ha ஹ</om>\r\n<om>k</om>\r\n", 3);
  TypingSettings excludeH;
  excludeH.excludeH = true;
  std::vector<std::u16string> notices;
  std::shared_ptr<const PhoneticKeymap> tables;
  EXPECT_EQ(LoadKeymapForSettings(folders, excludeH, u"Tamil-Unicode-PhoneticTransliteration", tables,
                                  [&](std::u16string_view message) { notices.emplace_back(message); }),
            LoadOutcome::Refused);
  EXPECT_EQ(tables, nullptr);
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_NE(notices[0].find(u"4"), std::u16string::npos) << text::Utf16ToUtf8(notices[0]);
  EXPECT_EQ(LoadKeymapForSettings(folders, excludeH, u"Tamil-Unicode-TamilNet99", tables), LoadOutcome::Missing);
}

// The chain the main window runs at load: the ticks written by the settings windows, read back
// from the ini files, become the loader options and the engine settings.
TEST(KeymapResolution, TicksInTheIniFilesSteerTheModifierLoaderAndTheEngine) {
  testing::TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  const std::u16string_view hindi = u"Hindi-Unicode-PhoneticTransliteration";
  const std::u16string_view tamil = u"Tamil-Unicode-PhoneticTransliteration";

  TypingSettings fresh = LoadTypingSettings(folders);
  ModifierLoadOptions modifiers = ModifierOptionsFor(fresh);
  EXPECT_TRUE(modifiers.vowelSwitch && modifiers.modifierSwitch);
  EXPECT_FALSE(modifiers.longEeOoW);
  EXPECT_EQ(EngineSettingsFor(fresh, hindi).punctuationSwitch, 1);
  EXPECT_EQ(EngineSettingsFor(fresh, tamil).punctuationSwitch, 0);

  ASSERT_TRUE(WriteTypingSetting(folders, kOwnKeyboardLayoutKey, true));
  ASSERT_TRUE(WriteTypingSetting(folders, kClassicKey, false));
  ClickSetKeyRow(folders, {false, std::u16string(kExtendedScheme), u"0"}, true);
  const TypingSettings changed = LoadTypingSettings(folders);
  modifiers = ModifierOptionsFor(changed);
  EXPECT_FALSE(modifiers.vowelSwitch || modifiers.modifierSwitch);
  EXPECT_TRUE(modifiers.longEeOoW);
  EXPECT_EQ(EngineSettingsFor(changed, hindi).punctuationSwitch, 0);
  EXPECT_EQ(EngineSettingsFor(changed, hindi).typingMode, EngineSettingsFor(fresh, hindi).typingMode);
}

}  // namespace
}  // namespace quilom::translit
