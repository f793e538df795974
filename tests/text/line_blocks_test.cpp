#include "text/line_blocks.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace quilom::text {
namespace {

std::vector<std::u16string> Blocks(LineBlocks& blocks, std::u16string_view text, std::size_t pieceSize) {
  std::vector<std::u16string> out;
  for (std::size_t at = 0; at < text.size(); at += pieceSize) {
    if (auto block = blocks.Add(text.substr(at, pieceSize))) out.push_back(*block);
  }
  out.push_back(blocks.Rest());
  return out;
}

TEST(LineBlocks, BlocksAreWholeLinesThatAddUpToTheText) {
  std::u16string text;
  for (int i = 0; i < 200; ++i) text += u"line " + std::u16string(static_cast<std::size_t>(i % 7), u'x') + u"\n";
  text += u"no break at the end";
  LineBlocks blocks(64);
  const auto out = Blocks(blocks, text, 5);
  ASSERT_GT(out.size(), 10u);
  std::u16string joined;
  for (std::size_t i = 0; i < out.size(); ++i) {
    if (i + 1 < out.size()) EXPECT_EQ(out[i].back(), u'\n') << i;
    joined += out[i];
  }
  EXPECT_EQ(joined, text);
}

TEST(LineBlocks, ABlockEndsOnlyWhereTheRuleAllows) {
  // Grave accents open text that runs over line breaks; a block never splits such text.
  const std::u16string text = u"a `b\nc\nd` e\nf\n`g\nh` i\n";
  LineBlocks blocks(1);
  blocks.SetEndRule([](std::u16string_view block) { return std::count(block.begin(), block.end(), u'`') % 2 == 0; });
  const auto out = Blocks(blocks, text, 1);
  const std::vector<std::u16string> expected = {u"a `b\nc\nd` e\n", u"f\n", u"`g\nh` i\n", u""};
  EXPECT_EQ(out, expected);
}

}  // namespace
}  // namespace quilom::text
