#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "converter/conversion_table.hpp"
#include "converter/document_editor.hpp"

// The conversion run: applies a conversion table to the open document as one replace-all per
// pair, in table order, asking first which text to convert and which legacy fonts to look in.
//
// Decisions this run makes (the window and the command line rely on them):
//   - Fonts. The legacy side and the Unicode side are chosen from their lists the same way:
//     row 0 "Any Font", row 1 "Default Font" (the encoding's line of the default-fonts file),
//     then font names. In the legacy-to-Unicode direction the legacy font is the font to find:
//     "Any Font" with four rows or more asks whether to convert every font at once (Yes: no
//     find font) or one listed font after another (No); with fewer rows the third row's font
//     is used. In the Unicode-to-legacy direction the legacy font is the font given to the
//     replacement, which must be one font: "Any Font" takes the third row without a question.
//     The Unicode font's "Any Font" leaves that side unconstrained.
//   - Placeholder block: its pairs are found in any font (the find font is cleared for them).
//   - "Convert vowel signs" off skips the pairs whose replacement begins with a Tamil vowel sign
//     (U+0BBE..U+0BCD), from the vowel-sign marker on: those pairs turn stray vowel-sign glyphs
//     into lone Unicode vowel signs, which some users prefer to see and fix by hand.
//   - Quote pairs and the quote block are noted in the table and get no special treatment: the
//     table already places them where the ordered replace-all gives the right result.
//   - The editor's screen updating is off during the run and its undo list is cleared after it.
namespace quilom::converter {

enum class ConversionDirection { LegacyToUnicode, UnicodeToLegacy };

// A fonts list as the window shows it, with its selected row.
struct FontsList {
  std::vector<std::u16string> rows;  // "Any Font", "Default Font", then font names
  int selected = 0;
  std::u16string defaultFont;  // used for the "Default Font" row
};

struct ConversionRequest {
  ConversionDirection direction = ConversionDirection::LegacyToUnicode;
  std::u16string tableText;  // the table as read from its file (Part of the data folder)
  FontsList legacyFonts;
  FontsList unicodeFonts;
  bool convertVowelSigns = true;
};

enum class RunStatus { Completed, Cancelled, Failed };

struct RunOutcome {
  RunStatus status = RunStatus::Cancelled;
  std::size_t replaceAllCalls = 0;
};

// Seconds since some fixed moment; the run only subtracts two readings.
using SecondsClock = std::function<std::int64_t()>;

// The location tags the run reports its failures with.
inline constexpr std::u16string_view kLegacyToUnicodeTag = u"TFC - L2U";
inline constexpr std::u16string_view kUnicodeToLegacyTag = u"TFC - U2L";

// Runs the conversion. Never throws. A failed replace-all is reported through ReportError with
// the direction's tag, naming the pair it reached; what was converted before stays.
RunOutcome RunConversion(const ConversionRequest& request, DocumentEditor& editor, Prompter& prompter,
                         const ProgressLabel& progress, const SecondsClock& clock);

// The messages of the run, as the user reads them.
inline constexpr std::u16string_view kRangeQuestion =
    u"You have selected some text in your document. So, the selected text alone will get converted.\r\n\r\n"
    u"In case you click 'No', your document's entire text will be converted. You can opt to click 'Cancel' "
    u"also, to cancel going ahead with any conversion.";
inline constexpr std::u16string_view kNeitherYesNorNo =
    u"Your response was neither 'Yes' nor 'No'. So, did not go ahead with any conversion.";
inline constexpr std::u16string_view kAnyFontQuestion =
    u"You have chosen 'Any Font' as the NonUnicode font. Click 'Yes' to convert the text in any font at one "
    u"go. Click 'No' to convert the text of each NonUnicode font listed, one font after another.\r\n\r\n"
    u"You can opt to click 'Cancel' also, to cancel going ahead with any conversion.";
inline constexpr std::u16string_view kInProgress = u"Please wait... Conversion in progress...";

}  // namespace quilom::converter
