#include "tools/auto_transliteration_texts.hpp"

#include <gtest/gtest.h>

#include <memory>

#include "settings/data_folders.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "tools/auto_transliteration.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

namespace quilom::tools {
namespace {

TEST(AutoTransliterationTexts, ProgressAndCountsReadAsTheWindowShowsThem) {
  EXPECT_EQ(AutoProgressText(0), u"0% processed");
  EXPECT_EQ(AutoProgressText(100), u"100% processed");
  EXPECT_EQ(AutoCharacterCountsText(12, 7), u"Input characters  = 12  |  Output characters = 7");
}

TEST(AutoTransliterationTexts, BothKeymapsOfTheTickMenuAreShipped) {
  const auto folder = settings::DataFolders::ForDataRoot(testing::SourceDataRoot()).keymapFolder;
  for (const bool alternate : {false, true}) {
    std::shared_ptr<const translit::PhoneticKeymap> tables;
    EXPECT_EQ(translit::LoadPhoneticKeymap(folder, AutoKeymapFor(alternate), {}, tables),
              translit::LoadOutcome::Loaded)
        << "alternate " << alternate;
  }
  EXPECT_NE(AutoKeymapFor(true), AutoKeymapFor(false));
}

// The shipped sample must type well-known Tamil text, not stay Latin.
TEST(AutoTransliterationTexts, ShippedSampleTypesTamil) {
  const auto folders = settings::DataFolders::ForDataRoot(testing::SourceDataRoot());
  const auto sample = LoadAutoTransliterationSample(folders);
  ASSERT_FALSE(sample.empty());

  std::shared_ptr<const translit::PhoneticKeymap> tables;
  ASSERT_EQ(translit::LoadPhoneticKeymap(folders.keymapFolder, kStandardPhoneticKeymap, {}, tables),
            translit::LoadOutcome::Loaded);
  translit::NullOutputSink sink;
  translit::Engine engine{sink};
  engine.SetKeymap(tables);
  const auto tamil = AutoTransliterate(sample, engine);
  EXPECT_NE(tamil.find(u"அகர முதல எழுத்தெல்லாம் ஆதி"), std::u16string::npos);
  EXPECT_NE(tamil.find(u"யாதும் ஊரே யாவரும் கேளிர்"), std::u16string::npos);
  EXPECT_NE(tamil.find(u"இனிதாவது எங்கும் காணோம்."), std::u16string::npos);
}

TEST(AutoTransliterationTexts, SampleFallsBackToTheMainDataFolder) {
  testing::TempFolder root;
  const auto folders = settings::DataFolders::ForDataRoot(root.path());
  std::filesystem::create_directories(folders.mainDataFolder / "inps");
  testing::WriteBytes(folders.mainDataFolder / "inps" / "sample-for-at.txt", "main copy");
  EXPECT_EQ(LoadAutoTransliterationSample(folders), u"main copy");

  std::filesystem::create_directories(folders.ModuleDataFolder(kAutoTransliteratorModule) / "inps");
  testing::WriteBytes(folders.ModuleDataFolder(kAutoTransliteratorModule) / "inps" / "sample-for-at.txt",
                      "own copy");
  EXPECT_EQ(LoadAutoTransliterationSample(folders), u"own copy");
}

}  // namespace
}  // namespace quilom::tools
