#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "converter/conversion_run.hpp"
#include "converter/window/word_connection.hpp"

// What the converter window's buttons do, from the click to the end of the run, over the
// window's state as plain values. The window reads its controls into a WindowSnapshot, calls
// one of these, and has nothing else to decide.
namespace quilom::converter::window {

struct WindowSnapshot {
  std::vector<std::u16string> encodings;  // the rows of `lbxFrom` and `lbxTo`
  int fromPosition = -1;
  int toPosition = -1;
  FontsList legacyFonts;   // `lbxNonUniFonts`, with the encoding's default font
  FontsList unicodeFonts;  // `lbxUniFonts`, with the Unicode default font
  bool normalQuotes = true;
  bool irRiReeForm = false;
  bool plainText = false;
  bool vowelSigns = true;
};

// Everything the buttons reach beyond the snapshot.
struct ClickServices {
  WordConnector* connector = nullptr;
  WordBinding binding = WordBinding::LateBound;
  Prompter* prompter = nullptr;
  ProgressLabel progress;
  SecondsClock clock;
  std::filesystem::path converterFolder;  // the tables are read from its "tables" folder
};

struct ClickOutcome {
  std::u16string stopMessage;     // shown to the user when the click stopped before a run
  std::optional<RunOutcome> run;  // set when a conversion ran
};

inline constexpr std::u16string_view kRunStopped =
    u"The conversion stopped before the end (see the message). The text converted until then stays converted.";

// The Convert button: the word-processor check, the backup question (anything but Yes
// stops silently), then the checks of DecideConversion in order, the table and the run.
// With "Convert As Plain Text" the run goes through WordPlainTextEditor and its result is
// written back when the run completes. A run that fails leaves kRunStopped in the progress
// label, so the label never goes on saying that the conversion is in progress. Never throws;
// failures are reported with "TFC - Cnv".
ClickOutcome ConvertClick(const WindowSnapshot& window, const ClickServices& services);

// The Convert Quotes button, with the selected rows of the three quote lists (empty text when
// a list has no selection) and the items of `cmbToQuote`. Reports "CQ1" on failure.
ClickOutcome ConvertQuotesClick(const WindowSnapshot& window, std::u16string_view fromQuote,
                                const std::vector<std::u16string>& legacyQuotes, std::u16string_view toQuote,
                                const ClickServices& services);

// The "Convert As Plain Text" box after a click. `ignore` is the box's "ignore" tag (set while
// the window itself sets the box). Checking it asks the warning, No being the default; No
// unchecks it again. `save` tells whether the "Plain Text" setting is to be written.
struct PlainTextClick {
  bool checked = false;
  bool save = false;
};
PlainTextClick OnPlainTextClick(bool ignore, bool checkedNow, Prompter& prompter);

inline constexpr std::u16string_view kPlainTextWarning =
    u"PLEASE NOTE THE FOLLOWING WELL:\r\n\r\n"
    u"If you choose this option, then it would be considered to clearly mean that the text you are trying to "
    u"convert has no formatting, whatsoever (Bold, Italic, Underline, Colors, Tables, Alignments, etc., etc., "
    u"etc.). \r\n\r\n"
    u"In other words, if you choose to do conversion with this option ON, then any formatting your text "
    u"contained earlier (before conversion) will 'NOT' be present after conversion.\r\n\r\n"
    u"Is it OKAY for you to proceed further selecting this option?";

}  // namespace quilom::converter::window
