#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The quote converter: a Unicode quote of the user's choice becomes a quote character of the
// chosen legacy font throughout the document, through the Unicode-to-legacy run with a
// one-pair table.
//
// The legacy quotes live in the plain file "QuilomPlus-LegacyQuotes.txt" in the converter data
// folder: line k belongs to To-list position k (line 0, "Unicode", is empty); a line holds the
// encoding's quote characters separated by five blanks; U+FF5E is a marker, never offered.
namespace quilom::converter {

inline constexpr std::u16string_view kLegacyQuotesFile = u"QuilomPlus-LegacyQuotes.txt";

inline constexpr std::u16string_view kUnicodeQuotesTip =
    u"Listed hereunder (displayed in 'Arial' font) are the quotes used in general in 'Unicode' texts, viz. "
    u"'single' quote, 'double' quote and the 4 'decorative' quotes";
inline constexpr std::u16string_view kUnicodeQuotesEmptyTip =
    u"This list will get filled with quotes (used in general in 'Unicode' texts, viz. 'single' quote, 'double' "
    u"quote and the 4 'decorative' quotes) only when you do Unicode-to-NonUnicode conversion and not otherwise";
inline constexpr std::u16string_view kLegacyQuotesEmptyTip =
    u"This list will get filled (with quotes from the NonUnicode font selected above) only when you do "
    u"'Unicode-to-NonUnicode conversion' and not otherwise";
inline constexpr std::u16string_view kLegacyQuotesTip =
    u"Listed hereunder are the quotes available in the 'NonUnicode' font selected above";

// True for the one selection the quote converter serves: From "Unicode", To a legacy encoding.
bool IsUnicodeToLegacy(int fromPosition, int toPosition);

struct QuoteList {
  std::vector<std::u16string> items;
  std::u16string tooltip;
};

// `cmbFromQuote`: the six Unicode quotes ' " ‘ ’ “ ” for a Unicode-to-legacy selection, else
// empty, each with its tooltip.
QuoteList FillUnicodeQuotes(int fromPosition, int toPosition);

// `cmbToQuote` and `cmbToQuoteEng`: the legacy quotes of the To encoding (same items), with
// their tooltips naming `legacyFontName`. Empty unless `unicodeQuotesFilled`.
struct LegacyQuoteLists {
  QuoteList inLegacyFont;
  QuoteList inArial;
};
LegacyQuoteLists FillLegacyQuotes(std::u16string_view quotesFileText, int toPosition, bool unicodeQuotesFilled,
                                  std::u16string_view legacyFontName);

// The quote characters of one line of the quotes file, in line order, without the marker.
std::vector<std::u16string> SplitQuoteLine(std::u16string_view line);

// The Convert Quotes button, after the word processor reported its documents. Either a message
// to show (and stop) or the one-pair table to hand to the Unicode-to-legacy run.
struct QuoteDecision {
  std::u16string stopMessage;
  std::u16string tableText;
};
QuoteDecision DecideQuoteConversion(bool documentOpen, int fromPosition, int toPosition, std::u16string_view fromQuote,
                                    const std::vector<std::u16string>& legacyQuotes, std::u16string_view toQuote,
                                    int legacyFontRows);

}  // namespace quilom::converter
