#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/command.hpp"

// Helpers shared by the subcommands: option parsing, reading the input, the progress bar.
namespace quilom::cli {

// Splits a subcommand's words into options that take a value, flags, and positional words.
// Unknown options are errors, so a typo never silently changes what a run does.
struct ParsedArgs {
  std::map<std::string, std::string> values;  // "--keymap" -> "Tamil-Unicode-..."
  std::set<std::string> flags;                // "--numerals"
  std::vector<std::string> positional;
  std::string error;  // empty when parsing succeeded
};

ParsedArgs ParseArgs(const std::vector<std::string>& args, const std::set<std::string>& valueOptions,
                     const std::set<std::string>& flagOptions = {});

// The whole input: the named file, or standard input for "" and "-". On failure writes a
// message naming the file to ctx.err and returns nothing.
std::optional<std::string> ReadInputBytes(CommandContext& ctx, const std::string& file, const std::string& command);

// Writes to the named file through a temporary beside it (an interrupted run never leaves a
// half-written output), or to standard output for "" and "-".
bool WriteOutputBytes(CommandContext& ctx, const std::string& file, const std::string& bytes,
                      const std::string& command);

// A one-line bar on standard error, drawn only when it is a terminal.
class ProgressBar {
 public:
  ProgressBar(CommandContext& ctx, std::string label);
  void Update(int percent);
  void Finish();

 private:
  CommandContext& ctx_;
  std::string label_;
  int shown_ = -1;
};

}  // namespace quilom::cli
