#include "converter/convert_checks.hpp"

#include <gtest/gtest.h>

#include "converter/quote_conversion.hpp"

namespace quilom::converter {
namespace {

ConvertSelection Selection(std::u16string from, int fromPosition, std::u16string to, int toPosition, int fontRows = 3) {
  ConvertSelection selection;
  selection.fromText = std::move(from);
  selection.fromPosition = fromPosition;
  selection.toText = std::move(to);
  selection.toPosition = toPosition;
  selection.legacyFontRows = fontRows;
  return selection;
}

TEST(TableIds, FollowTheListPositionsInFourBlocks) {
  EXPECT_EQ(LegacyToUnicodeTableId(1, true), 101);
  EXPECT_EQ(LegacyToUnicodeTableId(51, true), 151);
  EXPECT_EQ(LegacyToUnicodeTableId(1, false), 152);
  EXPECT_EQ(LegacyToUnicodeTableId(51, false), 202);
  EXPECT_EQ(UnicodeToLegacyTableId(1, true), 203);
  EXPECT_EQ(UnicodeToLegacyTableId(51, true), 253);
  EXPECT_EQ(UnicodeToLegacyTableId(1, false), 254);
  EXPECT_EQ(UnicodeToLegacyTableId(51, false), 304);
  EXPECT_FALSE(LegacyToUnicodeTableId(0, true).has_value());
  EXPECT_FALSE(UnicodeToLegacyTableId(52, false).has_value());
}

TEST(DecideConversion, StopsWithTheWindowsMessagesInTheirOrder) {
  // The same encoding on both sides never reaches a conversion, fonts or not.
  EXPECT_EQ(DecideConversion(Selection(u"Tscii", 3, u"Tscii", 3, 0)).stopMessage, kSameEncoding);
  // No installed legacy font blocks the conversion even with Unicode on the other side.
  EXPECT_EQ(DecideConversion(Selection(u"Tscii", 3, u"Unicode", 0, 2)).stopMessage, kNoSuitableFont);
  EXPECT_EQ(DecideConversion(Selection(u"Tscii", 3, u"Bamini", 1)).stopMessage,
            u"First, convert your text in 'Tscii' font(s) to Unicode. Then, convert the resultant Unicode text to "
            u"'Bamini' font.");
}

TEST(DecideConversion, PicksDirectionAndTableFromTheOptions) {
  ConvertSelection toUnicode = Selection(u"Tscii", 3, u"Unicode", 0);
  toUnicode.normalQuotes = false;
  const ConvertDecision decorative = DecideConversion(toUnicode);
  EXPECT_TRUE(decorative.stopMessage.empty());
  EXPECT_EQ(decorative.direction, ConversionDirection::LegacyToUnicode);
  EXPECT_EQ(decorative.tableId, 154);

  ConvertSelection toLegacy = Selection(u"Unicode", 0, u"Tscii", 3);
  toLegacy.irRiReeForm = false;
  const ConvertDecision plain = DecideConversion(toLegacy);
  EXPECT_EQ(plain.direction, ConversionDirection::UnicodeToLegacy);
  EXPECT_EQ(plain.tableId, 256);
}

TEST(UnicodeQuotes, OnlyForUnicodeToLegacy) {
  const QuoteList filled = FillUnicodeQuotes(0, 2);
  EXPECT_EQ(filled.items, (std::vector<std::u16string>{u"'", u"\"", u"\u2018", u"\u2019", u"\u201C", u"\u201D"}));
  EXPECT_EQ(filled.tooltip, kUnicodeQuotesTip);
  for (const auto& [from, to] : {std::pair{2, 0}, std::pair{1, 2}, std::pair{0, 0}}) {
    const QuoteList empty = FillUnicodeQuotes(from, to);
    EXPECT_TRUE(empty.items.empty());
    EXPECT_EQ(empty.tooltip, kUnicodeQuotesEmptyTip);
  }
}

TEST(LegacyQuotes, ComeFromTheToPositionsLineWithoutTheMarker) {
  const std::u16string file = u"\r\n'     \"\r\n\uFF5E     \u2018     \u2019\r\n";
  const LegacyQuoteLists lists = FillLegacyQuotes(file, 2, true, u"Bamini");
  EXPECT_EQ(lists.inLegacyFont.items, (std::vector<std::u16string>{u"\u2018", u"\u2019"}));
  EXPECT_EQ(lists.inArial.items, lists.inLegacyFont.items);
  EXPECT_EQ(lists.inLegacyFont.tooltip,
            u"Listed hereunder are the quotes available in the 'NonUnicode' font selected above (Bamini)");
  EXPECT_EQ(lists.inArial.tooltip,
            u"Listed hereunder are the quotes available in the 'NonUnicode' font selected above (Bamini) but "
            u"displayed in Arial font");
  EXPECT_TRUE(FillLegacyQuotes(file, 3, true, u"X").inLegacyFont.items.empty());
  const LegacyQuoteLists notServing = FillLegacyQuotes(file, 1, false, u"X");
  EXPECT_TRUE(notServing.inLegacyFont.items.empty());
  EXPECT_EQ(notServing.inArial.tooltip, kLegacyQuotesEmptyTip);
}

TEST(QuoteConversion, ExplainsOrBuildsTheOnePairTable) {
  const std::vector<std::u16string> quotes = {u"\u2018", u"'"};
  EXPECT_EQ(DecideQuoteConversion(false, 0, 1, u"'", quotes, u"'", 3).stopMessage,
            u"You have not opened any document yet.");
  EXPECT_NE(DecideQuoteConversion(true, 1, 0, u"'", quotes, u"'", 3).stopMessage.find(u"To be used only when"),
            std::u16string::npos);
  EXPECT_EQ(DecideQuoteConversion(true, 0, 1, u"'", {}, u"", 3).stopMessage,
            u"The NonUnicode font you have selected above does not have any quote characters in it.");
  EXPECT_EQ(DecideQuoteConversion(true, 0, 1, u"'", {}, u"", 0).stopMessage,
            u"The NonUnicode font you have selected does not exist in your system.");
  const QuoteDecision ok = DecideQuoteConversion(true, 0, 1, u"\"", quotes, u"\u2018", 3);
  EXPECT_TRUE(ok.stopMessage.empty());
  EXPECT_EQ(ok.tableText, u"\" \u2018");
}

}  // namespace
}  // namespace quilom::converter
