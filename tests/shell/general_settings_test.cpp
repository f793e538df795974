#include "shell/general_settings.hpp"

#include <gtest/gtest.h>

#include "support/temp_folder.hpp"

namespace quilom::shell {
namespace {

using testing::TempFolder;
using testing::Utf16LeWithMark;
using testing::WriteBytes;

TEST(GeneralSettings, ShippedFileGivesOurSoundForFourSeconds) {
  const auto folders = settings::DataFolders::ForDataRoot(testing::SourceDataRoot());
  EXPECT_EQ(LoadGeneralSettings(folders), GeneralSettings{});
}

TEST(GeneralSettings, ValuesAreReadByPositionAndBadOnesKeepTheirDefault) {
  TempFolder root;
  const auto folders = settings::DataFolders::ForDataRoot(root.path());
  EXPECT_EQ(LoadGeneralSettings(folders), GeneralSettings{});
  std::filesystem::create_directories(folders.mainDataFolder);
  const auto file = folders.mainDataFolder / "Settings - General.txt";

  WriteBytes(file, Utf16LeWithMark(u"t\r\n`````a\r\n3\r\n`````b\r\n0\r\n`````c\r\n 10 \r\n"));
  EXPECT_EQ(LoadGeneralSettings(folders), (GeneralSettings{3, false, 10}));

  WriteBytes(file, Utf16LeWithMark(u"t\r\n`````a\r\nthree\r\n`````b\r\n1\r\n`````c\r\n900\r\n"));
  EXPECT_EQ(LoadGeneralSettings(folders), (GeneralSettings{2, true, 60}));

  WriteBytes(file, Utf16LeWithMark(u"t\r\n`````a\r\n1\r\n`````b\r\n1\r\n`````c\r\n0\r\n"));
  EXPECT_EQ(LoadGeneralSettings(folders), (GeneralSettings{1, true, 1}));
}

}  // namespace
}  // namespace quilom::shell
