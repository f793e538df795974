#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

// The `quilom` command: each subcommand lives in its own file and registers itself here, so
// that the dispatcher never has to know the list.
namespace quilom::cli {

// What a subcommand is given. Arguments are UTF-8 as they came from the command line (the
// Windows edge converts them); streams are binary byte streams.
struct CommandContext {
  std::vector<std::string> args;  // the words after the subcommand's name
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  std::filesystem::path dataRoot;  // the "Sorvin" folder: --data DIR, else beside the executable
  bool errIsTerminal = false;      // progress bars are drawn only on a terminal
  bool quiet = false;              // -q: no progress bar, no notes or warnings; errors still
  bool replaceInvalid = false;     // --replace-invalid: bytes that are not text read as U+FFFD
  bool warned = false;             // a warning was given: the run ends with status 3
  // A progress bar appears only once the work has taken this long.
  std::chrono::milliseconds progressDelay{700};
};

struct Command {
  std::string name;
  std::string usage;    // one line: "translit [--keymap NAME] [FILE]"
  std::string summary;  // one line, what it is for
  // Returns the process exit status: 0 on success, non-zero on error (after a message on err).
  std::function<int(CommandContext&)> run;
};

// Registers at static initialisation; use through a namespace-scope RegisterCommand object.
class RegisterCommand {
 public:
  explicit RegisterCommand(Command command);
};

const std::vector<Command>& Commands();

// Runs `quilom <args...>` and returns the exit status; main() and the tests both call this.
int RunQuilom(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
              const std::filesystem::path& executableDir, bool errIsTerminal,
              std::chrono::milliseconds progressDelay = std::chrono::milliseconds{700});

}  // namespace quilom::cli
