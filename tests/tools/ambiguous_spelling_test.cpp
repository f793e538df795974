#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/utf.hpp"
#include "tools/ambiguous_spelling.hpp"

namespace quilom::tools {
namespace {

// Every ambiguous spelling of a text, in order, as "position:spelling".
std::vector<std::string> AllMatches(std::u16string_view text) {
  std::vector<std::string> found;
  size_t from = 0;
  while (auto match = FindNextAmbiguousSpelling(text, from)) {
    found.push_back(std::to_string(match->position) + ":" + text::Utf16ToUtf8(std::u16string(match->spelling)));
    from = match->position + match->length;
  }
  return found;
}

TEST(AmbiguousSpelling, FindsEachGroupAndSkipsOtherLetters) {
  EXPECT_EQ(AllMatches(u"thangkam"), (std::vector<std::string>{"0:th", "5:k"}));
  EXPECT_EQ(AllMatches(u"pachchai"), (std::vector<std::string>{"0:p", "2:ch", "4:ch"}));
  // "ng", "gn", "sh", "Ss" and "ksh" are letters of their own.
  EXPECT_EQ(AllMatches(u"ngagnashaSsaksha"), (std::vector<std::string>{}));
  EXPECT_EQ(AllMatches(u"fadhib"), (std::vector<std::string>{"0:f", "2:dh", "5:b"}));
  EXPECT_EQ(AllMatches(u"TDSKP"), (std::vector<std::string>{}));
  EXPECT_FALSE(FindNextAmbiguousSpelling(u"ka", 5));
}

TEST(AmbiguousSpelling, ReplaceWalksThroughTheGroup) {
  struct Step {
    const char16_t* before;
    const char16_t* after;
  };
  const std::vector<Step> steps = {
      {u"thu", u"dhu"}, {u"dhu", u"tu"}, {u"tu", u"du"}, {u"du", u"thu"},
      {u"pa", u"ba"},   {u"ba", u"pha"}, {u"pha", u"fa"}, {u"fa", u"pa"},
      {u"ka", u"ga"},   {u"ga", u"ka"},  {u"cha", u"sa"}, {u"sa", u"cha"},
  };
  for (const auto& step : steps) {
    EXPECT_EQ(ReplaceAmbiguousSpelling(step.before, 0), step.after) << text::Utf16ToUtf8(step.before);
  }
}

TEST(AmbiguousSpelling, ReplaceReportsWhatItChangedAndLeavesOtherTextAlone) {
  std::optional<SpellingMatch> match;
  EXPECT_EQ(ReplaceAmbiguousSpelling(u"vandhaan", 3, &match), u"vantaan");
  ASSERT_TRUE(match);
  EXPECT_EQ(match->length, 2u);
  EXPECT_EQ(match->replacement, u"t");
  EXPECT_EQ(ReplaceAmbiguousSpelling(u"vandhaan", 0, &match), u"vandhaan");
  EXPECT_FALSE(match);
  EXPECT_EQ(ReplaceAmbiguousSpelling(u"ngaa", 1), u"ngaa");
  EXPECT_EQ(ReplaceAmbiguousSpelling(u"ab", 9), u"ab");
}

}  // namespace
}  // namespace quilom::tools
