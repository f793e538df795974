#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.hpp"
#include "settings/file_replacement.hpp"
#include "text/text_input.hpp"

// Helpers shared by the subcommands: option parsing, reading the input, the progress bar.
namespace quilom::cli {

// Splits a subcommand's words into options that take a value, flags, and positional words.
// Unknown options are errors, so a typo never silently changes what a run does. A value comes
// after its option or joined to it ("--keymap=NAME"); "--" ends the options; "-o", "-h" and
// "-q" are "--output", "--help" and "--quiet", under which names they are given and kept;
// every command takes --quiet and --replace-invalid (see CommandContext).
struct ParsedArgs {
  std::map<std::string, std::string> values;  // "--keymap" -> "Tamil-Unicode-..."
  std::set<std::string> flags;                // "--numerals"
  std::vector<std::string> positional;
  std::string error;  // empty when parsing succeeded
};

ParsedArgs ParseArgs(const std::vector<std::string>& args, const std::set<std::string>& valueOptions,
                     const std::set<std::string>& flagOptions = {});

// Whether text decoded so far may be used: true when it was valid, or when the run asked for
// --replace-invalid (then with one warning, and CommandContext::warned set); otherwise false
// after a message naming the first bad byte's offset.
bool AcceptDecodedText(CommandContext& ctx, const std::string& command, const text::TextInputDecoder& decoder);

// The input files named on the command line, or standard input ("") when none is.
std::vector<std::string> InputsOrStandardInput(const ParsedArgs& parsed);

// The whole input: the named file, or standard input for "" and "-". On failure writes a
// message naming the file and the system's reason to ctx.err and returns nothing.
std::optional<std::string> ReadInputBytes(CommandContext& ctx, const std::string& file, const std::string& command);

// At most the first `limit` bytes of the input (as above), for work that looks at a beginning.
std::optional<std::string> ReadInputPrefix(CommandContext& ctx, const std::string& file, const std::string& command,
                                           std::size_t limit);

// The input (as above) read in pieces of bounded size, each handed to `piece` as it comes.
// Returns false after a message on ctx.err.
bool ReadBytePieces(CommandContext& ctx, const std::string& file, const std::string& command,
                    const std::function<void(std::string_view)>& piece);

// The size of an input file, when it is one whose size is known.
std::optional<std::uintmax_t> InputSize(const std::string& file);

// The input (as above) read as Unicode text in pieces of bounded size (UTF-8 with or without
// its mark, UTF-16 with its mark; see text/text_input.hpp), each decoded piece handed to
// `piece` as it comes. Invalid input stops the reading with a message naming the byte offset,
// unless the run asked for --replace-invalid (see AcceptDecodedText). Returns false after a
// message on ctx.err.
bool ReadTextPieces(CommandContext& ctx, const std::string& file, const std::string& command,
                    const std::function<void(std::u16string_view)>& piece);

// Writes to standard output and flushes; a failed write (a full disk, a closed pipe) is reported
// with the system's reason and returns false.
bool WriteStandardOutput(CommandContext& ctx, std::string_view bytes, const std::string& command);

// Writes to the named file as settings::FileReplacement does (a link is written through, the
// file's permissions stay, a read-only file is refused, an interrupted run leaves the old file
// and no temporary), or to standard output for "" and "-". Failures are reported with the
// system's reason.
bool WriteOutputBytes(CommandContext& ctx, const std::string& file, const std::string& bytes,
                      const std::string& command);

// An output file written piece by piece, the same way; each step reports its own failure and
// the output is then discarded.
class OutputFile {
 public:
  OutputFile(CommandContext& ctx, std::string command);
  bool Open(const std::string& file);
  bool Write(std::string_view bytes);
  bool Commit();

 private:
  bool Fail(const std::error_code& error);

  CommandContext& ctx_;
  std::string command_;
  std::string file_;
  settings::FileReplacement replacement_;
};

// True, after a message, when the output file is one of the input files (or a link to one):
// checked before any work, so an input is never lost to its own output.
bool RefuseOutputOverInput(CommandContext& ctx, const std::string& output, const std::vector<std::string>& inputs,
                           const std::string& command);

// A one-line bar on standard error, drawn only when it is a terminal, the run is not quiet
// (-q), and the work has taken more than a moment (CommandContext::progressDelay).
class ProgressBar {
 public:
  ProgressBar(CommandContext& ctx, std::string label);
  // `detail` follows the bar: "12/200 files, 1 failed, 0:42 left".
  void Update(int percent, const std::string& detail = "");
  void Finish();

 private:
  CommandContext& ctx_;
  std::string label_;
  std::chrono::steady_clock::time_point started_;
  int shown_ = -1;
  std::string detail_;
};

}  // namespace quilom::cli
