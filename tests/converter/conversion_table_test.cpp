#include "converter/conversion_table.hpp"

#include <gtest/gtest.h>

namespace quilom::converter {
namespace {

TEST(ToPlaceholders, MapsTheThreeFullwidthSymbolRangesAndLeavesLettersAlone) {
  struct Row {
    char16_t in, out;
  };
  for (const Row row :
       {Row{0xFF01, 0x0226}, Row{0xFF10, 0x0235}, Row{0xFF20, 0x0245}, Row{0xFF21, 0xFF21}, Row{0xFF3A, 0xFF3A},
        Row{0xFF3B, 0x0246}, Row{0xFF40, 0x024B}, Row{0xFF41, 0xFF41}, Row{0xFF5A, 0xFF5A}, Row{0xFF5B, 0x024C},
        Row{0xFF5E, 0x024F}, Row{0xFF5F, 0xFF5F}, Row{0xFF00, 0xFF00}, Row{u'!', u'!'}}) {
    EXPECT_EQ(ToPlaceholders(std::u16string(1, row.in)), std::u16string(1, row.out)) << std::hex << int(row.in);
  }
}

TEST(ParseConversionTable, SplitsAtTheFirstBlankAndIgnoresAThirdField) {
  const ConversionTable table = ParseConversionTable(u"ab cd\r\nlonely\r\nx y z\r\n\r\n^ ^^");
  ASSERT_EQ(table.pairs.size(), 5u);
  EXPECT_EQ(table.pairs[0].find, u"ab");
  EXPECT_EQ(table.pairs[0].replacement, u"cd");
  // A line without a blank deletes its find text.
  EXPECT_EQ(table.pairs[1].find, u"lonely");
  EXPECT_EQ(table.pairs[1].replacement, u"");
  EXPECT_EQ(table.pairs[2].replacement, u"y");
  EXPECT_EQ(table.pairs[3].find, u"");
  // Carets stay literal in the table; only the Word layer escapes them.
  EXPECT_EQ(table.pairs[4].find, u"^");
  EXPECT_EQ(table.pairs[4].replacement, u"^^");
  EXPECT_EQ(EscapeCaretsForWord(table.pairs[4].replacement), u"^^^^");
  EXPECT_EQ(EscapeCaretsForWord(u"a^p"), u"a^^p");
}

TEST(ParseConversionTable, FullwidthSymbolsBecomePlaceholdersBeforeSplitting) {
  // U+FF00 is no symbol form; U+FF5E is: a table line cannot hide a blank behind either.
  const ConversionTable table = ParseConversionTable(u"\uFF01a \uFF5E");
  ASSERT_EQ(table.pairs.size(), 1u);
  EXPECT_EQ(table.pairs[0].find, u"\u0226a");
  EXPECT_EQ(table.pairs[0].replacement, u"\u024F");
}

TEST(ParseConversionTable, NotesTheMarkers) {
  const ConversionTable table =
      ParseConversionTable(u"a b\r\n\u0230 x\r\n' \u0227\r\n\u0226 y\r\nz \u0BBE\r\n\" \u0252\r\nq \u0BBF\r\n\u024F w");
  EXPECT_EQ(table.placeholderFirst, 1u);
  EXPECT_EQ(table.placeholderLast, 7u);
  EXPECT_EQ(table.vowelSignFirst, 4u);
  EXPECT_EQ(table.quotePairs, (std::vector<std::size_t>{2, 5}));
  EXPECT_EQ(table.quoteBlockFirst, 2u);
  EXPECT_EQ(table.quoteBlockLast, 5u);
  EXPECT_TRUE(table.InPlaceholderBlock(1));
  EXPECT_TRUE(table.InPlaceholderBlock(7));
  EXPECT_FALSE(table.InPlaceholderBlock(0));
}

TEST(ParseConversionTable, ASinglePlaceholderPairIsABlockOfOne) {
  const ConversionTable table = ParseConversionTable(u"a b\r\n\u0226 c\r\nd e");
  EXPECT_EQ(table.placeholderFirst, 1u);
  EXPECT_FALSE(table.placeholderLast.has_value());
  EXPECT_TRUE(table.InPlaceholderBlock(1));
  EXPECT_FALSE(table.InPlaceholderBlock(2));
  EXPECT_FALSE(ParseConversionTable(u"a b").InPlaceholderBlock(0));
}

}  // namespace
}  // namespace quilom::converter
