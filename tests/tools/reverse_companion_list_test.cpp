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

TEST(CompanionWordList, ShippedListIsItsOwnAndWellFormed) {
  const auto mainFolder = testing::SourceDataRoot() / "Indic Direct Typer";
  ASSERT_TRUE(std::filesystem::exists(mainFolder / std::filesystem::path(kCompanionWordListFile)));
  const auto list = LoadCompanionWordList(mainFolder);
  EXPECT_TRUE(list.badLines().empty());
  EXPECT_GE(list.size(), 80u);
  // A spelling may hold a blank; punctuation beside a word leaves it a whole word.
  EXPECT_EQ(list.Apply(u"சென்னை, தமிழ்நாடு."), u"Chennai, Tamil Nadu.");
}

}  // namespace
}  // namespace quilom::tools
