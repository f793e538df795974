#include <algorithm>
#include <istream>
#include <ostream>

#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "version.hpp"

namespace quilom::cli {
namespace {

std::vector<Command>& Registry() {
  static std::vector<Command> commands;
  return commands;
}

void PrintUsage(std::ostream& out) {
  out << "Usage: quilom [--data DIR] COMMAND [ARGS]\n\nCommands:\n";
  std::vector<Command> sorted = Registry();
  std::sort(sorted.begin(), sorted.end(), [](const Command& a, const Command& b) { return a.name < b.name; });
  for (const Command& c : sorted) out << "  " << c.usage << "\n      " << c.summary << "\n";
  out << "\nUnicode text is UTF-8 (with or without its mark) or UTF-16 with its mark; legacy-font text is\n"
         "bytes (see convert --help). FILE omitted or '-' means standard input. Every command takes\n"
         "-h/--help, -q/--quiet, --replace-invalid (bytes that are not text read as U+FFFD) and\n"
         "--opt=value; -o/--output names the output; -- ends the options.\n"
      << kExitCodeHelp;
}

// Beside the program (the Windows folder, a build), else where the Linux package puts it.
std::filesystem::path DefaultDataRoot(const std::filesystem::path& executableDir) {
  const std::filesystem::path beside = executableDir / "Sorvin";
  const std::filesystem::path installed = executableDir.parent_path() / "share" / "quilom" / "Sorvin";
  std::error_code ec;
  return !std::filesystem::exists(beside, ec) && std::filesystem::exists(installed, ec) ? installed : beside;
}

}  // namespace

RegisterCommand::RegisterCommand(Command command) { Registry().push_back(std::move(command)); }

const std::vector<Command>& Commands() { return Registry(); }

int RunQuilom(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
              const std::filesystem::path& executableDir, bool errIsTerminal, std::chrono::milliseconds progressDelay) {
  std::filesystem::path dataRoot = DefaultDataRoot(executableDir);
  size_t i = 0;
  while (i < args.size() && args[i].starts_with("-") && args[i] != "-") {
    if (args[i] == "--data" && i + 1 < args.size()) {
      dataRoot = args[i + 1];
      i += 2;
    } else if (args[i].starts_with("--data=")) {
      dataRoot = args[i].substr(7);
      ++i;
    } else if (args[i] == "--help" || args[i] == "-h") {
      PrintUsage(out);
      return 0;
    } else if (args[i] == "--version") {
      out << "quilom " << kVersionMajor << "." << kVersionMinor << "." << kVersionRevision << "\n";
      return 0;
    } else {
      err << "quilom: unknown option '" << args[i] << "'\n";
      PrintUsage(err);
      return 2;
    }
  }
  if (i >= args.size()) {
    PrintUsage(err);
    return 2;
  }
  const auto& commands = Registry();
  const auto found =
      std::find_if(commands.begin(), commands.end(), [&](const Command& c) { return c.name == args[i]; });
  if (found == commands.end()) {
    err << "quilom: unknown command '" << args[i] << "'\n";
    PrintUsage(err);
    return 2;
  }
  // Help is asked for anywhere among the command's options; commands that name --help in their
  // usage explain themselves at more length.
  const auto words = std::vector<std::string>(args.begin() + static_cast<long>(i) + 1, args.end());
  const auto optionsEnd = std::find(words.begin(), words.end(), "--");
  const bool asksForHelp =
      std::any_of(words.begin(), optionsEnd, [](const std::string& w) { return w == "--help" || w == "-h"; });
  if (asksForHelp && found->usage.find("--help") == std::string::npos) {
    out << "usage: quilom " << found->usage << "\n" << found->summary << "\n";
    return 0;
  }
  CommandContext context{words, in, out, err, dataRoot, errIsTerminal};
  context.progressDelay = progressDelay;
  context.quiet =
      std::any_of(words.begin(), optionsEnd, [](const std::string& w) { return w == "-q" || w == "--quiet"; });
  context.replaceInvalid = std::find(words.begin(), optionsEnd, "--replace-invalid") != optionsEnd;
  try {
    return found->run(context);
  } catch (const std::exception& e) {
    err << "quilom " << found->name << ": " << e.what() << "\n";
    return 1;
  }
}

}  // namespace quilom::cli
