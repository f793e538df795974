#include "shell/first_run_guide.hpp"

#include <gtest/gtest.h>

#include "support/temp_folder.hpp"
#include "text/strings.hpp"

namespace quilom::shell {
namespace {

using testing::SourceDataRoot;
using testing::TempFolder;
using testing::WriteBytes;

bool Holds(std::u16string_view text, std::u16string_view piece) { return text.find(piece) != std::u16string::npos; }

TEST(FirstRunGuide, NamesTheHotkeyAndTheFirstKeymapNumber) {
  const std::u16string guide = FirstRunGuide(u"Ctrl+Alt+Q", u"Tamil-Unicode-PhoneticTransliteration");
  EXPECT_TRUE(Holds(guide, u"press Ctrl+Alt+Q then 1 (Tamil-Unicode-PhoneticTransliteration)"));
  EXPECT_TRUE(Holds(guide, u"left click"));
  EXPECT_TRUE(Holds(guide, u"right click"));
  EXPECT_TRUE(Holds(guide, u"middle click"));
  EXPECT_EQ(text::Split(guide, u"\r\n").size(), 3u);
}

TEST(FirstRunGuide, WithoutHotkeyPointsToTheButton) {
  for (std::u16string_view none : {std::u16string_view(u"None"), std::u16string_view(u"")}) {
    const std::u16string guide = FirstRunGuide(none, u"Tamil-Unicode-PhoneticTransliteration");
    EXPECT_TRUE(Holds(guide, u"'Start' Global Typing"));
    EXPECT_FALSE(Holds(guide, u"then 1"));
  }
}

TEST(FirstRunGuide, ShippedHelpFilesAreFound) {
  const auto folders = settings::DataFolders::ForDataRoot(SourceDataRoot());
  EXPECT_TRUE(GettingStartedPath(folders).has_value());
  const auto chart = KeymapChartPath(folders, u"Hindi-Unicode-PhoneticTransliteration");
  ASSERT_TRUE(chart.has_value());
  EXPECT_EQ(chart->filename(), "Hindi-Unicode-PhoneticTransliteration.svg");
  EXPECT_FALSE(KeymapChartPath(folders, u"No-Such-Keymap").has_value());
}

TEST(FirstRunGuide, NothingOutsideTheDataRootIsOffered) {
  TempFolder base;
  const auto folders = settings::DataFolders::ForDataRoot(base / "Sorvin");
  const auto charts = folders.mainDataFolder / "help" / "charts";
  std::filesystem::create_directories(charts);
  WriteBytes(charts / "Tamil-Unicode-X.svg", "<svg/>");
  WriteBytes(base / "outside.svg", "<svg/>");
  WriteBytes(base / "Sorvin2.txt", "x");

  EXPECT_TRUE(KeymapChartPath(folders, u"Tamil-Unicode-X").has_value());
  EXPECT_FALSE(KeymapChartPath(folders, u"../../../../outside").has_value());
  EXPECT_FALSE(IsInsideDataRoot(folders, base / "outside.svg"));
  EXPECT_FALSE(IsInsideDataRoot(folders, charts / ".." / ".." / ".." / ".." / "outside.svg"));
  // A sibling whose name merely begins with the root's name is outside.
  EXPECT_FALSE(IsInsideDataRoot(folders, base / "Sorvin2.txt"));
  EXPECT_FALSE(IsInsideDataRoot(folders, folders.dataRoot));
  EXPECT_TRUE(IsInsideDataRoot(folders, charts / "Tamil-Unicode-X.svg"));
}

}  // namespace
}  // namespace quilom::shell
