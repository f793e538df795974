#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/cli_io.hpp"
#include "converter/unmappable_characters.hpp"

// The command line's side of the unmappable policy: its options and what it tells the user.
namespace quilom::cli {

struct UnmappableChoice {
  converter::UnmappablePolicy policy = converter::UnmappablePolicy::Stop;
  char16_t replacement = u'?';
};

inline constexpr const char* kUnmappableHelp =
    "Characters the target encoding cannot hold (a Tamil numeral the font lacks, a rupee sign in\n"
    "TSCII, a comma in a font that draws a letter where the comma is):\n"
    "  --unmappable stop      (default) write nothing; name the first, its line and column, and the count\n"
    "  --unmappable skip      leave them out\n"
    "  --unmappable replace   write --replacement CHAR (default '?') in their place\n"
    "  --unmappable keep      keep them as they are: the output is UTF-8 text of the font's view\n"
    "                         (as --legacy-text writes it), not legacy bytes\n"
    "  Zero-width joiners are dropped: legacy fonts draw their conjuncts whole.\n";

// Reads --unmappable and --replacement; on a wrong value returns nothing with `error` set.
std::optional<UnmappableChoice> ReadUnmappableChoice(const ParsedArgs& parsed, std::string& error);

// For --unmappable stop: what cannot be written, and that nothing was.
// `where` names the input when there are several (" in b.txt"); `written` says what became of
// the output.
void ReportUnmappableStop(std::ostream& err, const converter::UnmappableFindings& findings,
                          std::u16string_view encoding, const std::string& where, const std::string& written);

// For the other policies: a warning saying what was done with how many.
void ReportUnmappableWarning(std::ostream& err, const UnmappableChoice& choice,
                             const converter::UnmappableFindings& findings, std::u16string_view encoding,
                             const std::string& where);

}  // namespace quilom::cli
