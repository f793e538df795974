#include "converter/window/converter_settings.hpp"

#include <gtest/gtest.h>

#include "settings/text_file.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::converter::window {
namespace {

class ConverterSettingsTest : public ::testing::Test {
 protected:
  settings::ToolSettings File(std::u16string_view text) {
    settings::WriteTextFile(folder / "Settings.txt", text, 3);
    return settings::ToolSettings(folder.path(), u"TFC - LdS", u"TFC - WrS");
  }
  std::u16string Text() { return settings::ReadTextFile(folder / "Settings.txt"); }

  quilom::testing::TempFolder folder;
  quilom::testing::ScopedRecordingReporter reports;
};

TEST_F(ConverterSettingsTest, TheShippedFileRestoresEveryControl) {
  const settings::ToolSettings file(quilom::testing::SourceDataRoot() / "Tamil Fonts Converter", u"TFC - LdS",
                                    u"TFC - WrS");
  ConverterChoices choices;
  choices.normalQuotes = false;
  LoadConverterSettings(file, choices);
  EXPECT_EQ(choices.fromIndex, 1);
  EXPECT_EQ(choices.toIndex, 0);
  EXPECT_EQ(choices.uniIndex, 1);
  EXPECT_EQ(choices.nonUniIndex, 1);
  EXPECT_FALSE(choices.irRiReeForm);
  EXPECT_FALSE(choices.plainText);
  EXPECT_TRUE(choices.vowelSigns);
  EXPECT_TRUE(choices.normalQuotes);
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(ConverterSettingsTest, ValuesAreTrimmedAndOnlyOneMeansOn) {
  const auto file = File(
      u"title\r\n`````Quotes Format\r\n 2 \r\n`````Plain Text\r\n  1\r\n`````Vowel Signs\r\n-1\r\n"
      u"`````To Index\r\n-1\r\n`````From Index\r\nx\r\n");
  ConverterChoices choices;
  choices.vowelSigns = true;
  choices.fromIndex = 5;
  LoadConverterSettings(file, choices);
  EXPECT_FALSE(choices.normalQuotes);
  EXPECT_TRUE(choices.plainText);
  EXPECT_FALSE(choices.vowelSigns);
  EXPECT_EQ(choices.toIndex, -1);
  EXPECT_EQ(choices.fromIndex, 0);
}

TEST_F(ConverterSettingsTest, AMissingFileOrKeyLeavesTheDefaults) {
  const settings::ToolSettings missing(folder / "nowhere", u"TFC - LdS", u"TFC - WrS");
  ConverterChoices choices;
  choices.uniIndex = 3;
  LoadConverterSettings(missing, choices);
  EXPECT_EQ(choices.uniIndex, 3);
  LoadConverterSettings(File(u"title\r\n`````From Index\r\n2\r\n"), choices);
  EXPECT_EQ(choices.uniIndex, 3);
  EXPECT_EQ(choices.fromIndex, 2);
}

TEST_F(ConverterSettingsTest, SavesRewriteOnlyTheValueLineOfTheirKey) {
  const auto file =
      File(u"`````Plain Text\r\n7\r\n`````Plain Text\r\n0\r\n`````Quotes Format\r\n1\r\n`````To Index\r\n4");
  ConverterChoices choices;
  choices.plainText = true;
  choices.normalQuotes = false;
  choices.toIndex = 12;
  EXPECT_TRUE(SaveConverterSetting(file, kPlainTextKey, choices));
  EXPECT_TRUE(SaveConverterSetting(file, kQuotesFormatKey, choices));
  SaveListPositions(file, choices);
  // The key line on the file's first line is never a key line; unknown keys are not added.
  EXPECT_EQ(Text(), u"`````Plain Text\r\n7\r\n`````Plain Text\r\n1\r\n`````Quotes Format\r\n2\r\n`````To Index\r\n12");
}

TEST(ConverterSettingValue, WritesTheFilesOwnNumbers) {
  ConverterChoices choices;
  choices.nonUniIndex = -1;
  choices.irRiReeForm = true;
  EXPECT_EQ(SettingValue(kNonUniIndexKey, choices), u"-1");
  EXPECT_EQ(SettingValue(kIrRiReeFormKey, choices), u"1");
  EXPECT_EQ(SettingValue(kVowelSignsKey, choices), u"0");
  EXPECT_EQ(SettingValue(kQuotesFormatKey, choices), u"1");
  EXPECT_EQ(SettingValue(u"Nope", choices), u"");
}

}  // namespace
}  // namespace quilom::converter::window
