#include "converter/quote_conversion.hpp"

#include "text/strings.hpp"

namespace quilom::converter {
namespace {

constexpr char16_t kQuoteMarker = 0xFF5E;

}  // namespace

bool IsUnicodeToLegacy(int fromPosition, int toPosition) { return fromPosition == 0 && toPosition >= 1; }

QuoteList FillUnicodeQuotes(int fromPosition, int toPosition) {
  if (!IsUnicodeToLegacy(fromPosition, toPosition)) {
    return {{}, std::u16string(kUnicodeQuotesEmptyTip)};
  }
  return {{u"'", u"\"", u"\u2018", u"\u2019", u"\u201C", u"\u201D"}, std::u16string(kUnicodeQuotesTip)};
}

std::vector<std::u16string> SplitQuoteLine(std::u16string_view line) {
  std::vector<std::u16string> quotes;
  for (std::u16string& piece : text::Split(line, u"     ")) {
    std::erase(piece, kQuoteMarker);
    if (!piece.empty()) {
      quotes.push_back(std::move(piece));
    }
  }
  return quotes;
}

LegacyQuoteLists FillLegacyQuotes(std::u16string_view quotesFileText, int toPosition, bool unicodeQuotesFilled,
                                  std::u16string_view legacyFontName) {
  LegacyQuoteLists lists;
  if (!unicodeQuotesFilled) {
    lists.inLegacyFont.tooltip = kLegacyQuotesEmptyTip;
    lists.inArial.tooltip = kLegacyQuotesEmptyTip;
    return lists;
  }
  const std::vector<std::u16string> lines = text::Split(quotesFileText, text::kCrLf);
  if (toPosition >= 0 && static_cast<std::size_t>(toPosition) < lines.size()) {
    lists.inLegacyFont.items = SplitQuoteLine(lines[static_cast<std::size_t>(toPosition)]);
  }
  lists.inArial.items = lists.inLegacyFont.items;
  const std::u16string tip = std::u16string(kLegacyQuotesTip) + u" (" + std::u16string(legacyFontName) + u")";
  lists.inLegacyFont.tooltip = tip;
  lists.inArial.tooltip = tip + u" but displayed in Arial font";
  return lists;
}

QuoteDecision DecideQuoteConversion(bool documentOpen, int fromPosition, int toPosition, std::u16string_view fromQuote,
                                    const std::vector<std::u16string>& legacyQuotes, std::u16string_view toQuote,
                                    int legacyFontRows) {
  if (!documentOpen) {
    return {u"You have not opened any document yet.", {}};
  }
  if (!IsUnicodeToLegacy(fromPosition, toPosition)) {
    return {
        u"To be used only when you wish to convert the existing quotes in your document to NonUnicode "
        u"quotes, according to your own choice, ideally after effecting any 'Unicode to NonUnicode' "
        u"conversion.",
        {}};
  }
  if (legacyQuotes.empty()) {
    return {legacyFontRows > 0 ? u"The NonUnicode font you have selected above does not have any quote characters "
                                 u"in it."
                               : u"The NonUnicode font you have selected does not exist in your system.",
            {}};
  }
  return {{}, std::u16string(fromQuote) + u" " + std::u16string(toQuote)};
}

}  // namespace quilom::converter
