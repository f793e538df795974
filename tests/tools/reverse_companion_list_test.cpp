#include "tools/reverse_companion_list.hpp"

#include <gtest/gtest.h>

#include "support/temp_folder.hpp"

namespace quilom::tools {
namespace {

TEST(CompanionWordList, UsesItsOwnListAndFallsBackToTheMainOne) {
  testing::TempFolder main;
  std::filesystem::create_directories(main / "resources");
  testing::WriteBytes(main / "resources" / "rt-words-103.txt", "\xe0\xae\x86\xe0\xae\xa4\xe0\xae\xbf aathi\r\n");
  // Without its own list the companion spells with the main list.
  EXPECT_EQ(LoadCompanionWordList(main.path()).Apply(u"ஆதி"), u"aathi");

  testing::WriteBytes(main / "resources" / "rt-words-105.txt", "\xe0\xae\x86\xe0\xae\xa4\xe0\xae\xbf Aadhi\r\n");
  const auto own = LoadCompanionWordList(main.path());
  EXPECT_EQ(own.size(), 1u);
  EXPECT_EQ(own.Apply(u"ஆதி"), u"Aadhi");
}

}  // namespace
}  // namespace quilom::tools
