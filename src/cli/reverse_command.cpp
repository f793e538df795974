// `quilom reverse`: Tamil Unicode text back to the Latin spelling the phonetic keymap types.

#include <algorithm>
#include <filesystem>
#include <memory>
#include <ostream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "settings/data_folders.hpp"
#include "settings/error_report.hpp"
#include "text/line_blocks.hpp"
#include "text/utf.hpp"
#include "tools/reverse_transliteration.hpp"

namespace quilom::cli {
namespace {

constexpr const char* kName = "reverse";

// Problem reports of the core go to the command's own error stream while it runs.
class StreamReporter final : public ErrorReporter {
 public:
  explicit StreamReporter(std::ostream& err) : err_(err) {}
  void Show(std::u16string_view, std::u16string_view message) noexcept override {
    try {
      err_ << "quilom reverse: " << text::Utf16ToUtf8(message) << "\n";
    } catch (...) {
    }
  }

 private:
  std::ostream& err_;
};

class ScopedStreamReporter {
 public:
  explicit ScopedStreamReporter(std::ostream& err)
      : previous_(SetErrorReporter(std::make_shared<StreamReporter>(err))) {}
  ~ScopedStreamReporter() { SetErrorReporter(previous_); }
  ScopedStreamReporter(const ScopedStreamReporter&) = delete;
  ScopedStreamReporter& operator=(const ScopedStreamReporter&) = delete;

 private:
  std::shared_ptr<ErrorReporter> previous_;
};

std::optional<tools::ReverseWordList> LoadWords(CommandContext& ctx, const ParsedArgs& parsed,
                                                const settings::DataFolders& folders) {
  if (parsed.flags.count("--no-word-list")) return tools::ReverseWordList{};
  const auto file = folders.mainDataFolder / std::filesystem::path(tools::kReverseWordListFile);
  if (!std::filesystem::exists(file)) {
    ctx.err << "quilom reverse: the word list is missing: " << file.string()
            << " (--no-word-list converts by the letter rules alone)\n";
    return std::nullopt;
  }
  return tools::LoadReverseWordList(folders.mainDataFolder);
}

// Whole lines at a time: a word never spans a line break, and with --keep-graves a block only
// ends where the grave accents so far are paired, so the result is the whole text's.
class ReverseRun {
 public:
  ReverseRun(const ParsedArgs& parsed, const tools::ReverseWordList& words)
      : parsed_(parsed),
        words_(words),
        options_{parsed.flags.count("--numerals") > 0, parsed.flags.count("--signs") > 0,
                 parsed.flags.count("--keep-graves") > 0, parsed.flags.count("--typeable") > 0} {
    if (options_.keepGraves) {
      blocks_.SetEndRule(
          [](std::u16string_view block) { return std::count(block.begin(), block.end(), u'`') % 2 == 0; });
    }
  }

  // Gives the Latin text of the lines the piece completes.
  std::string Add(std::u16string_view piece) {
    std::optional<std::u16string> block = blocks_.Add(piece);
    return block ? Convert(*block) : std::string();
  }

  std::string Finish() { return Convert(blocks_.Rest()); }

  std::string Counts() const {
    return text::Utf16ToUtf8(tools::ReverseCharacterCountsText(inputLength_, outputLength_));
  }

 private:
  std::string Convert(std::u16string_view block) {
    std::u16string output = tools::ReverseTransliterate(block, options_, words_);
    if (parsed_.flags.count("--remove-graves")) output = tools::RemoveGraveAccents(output);
    if (parsed_.flags.count("--lower")) output = tools::OutputToLowerCase(output);
    inputLength_ += block.size();
    outputLength_ += output.size();
    return text::Utf16ToUtf8(output);
  }

  const ParsedArgs& parsed_;
  const tools::ReverseWordList& words_;
  tools::ReverseOptions options_;
  text::LineBlocks blocks_;
  std::size_t inputLength_ = 0;
  std::size_t outputLength_ = 0;
};

int RunReverse(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {"--output"},
                                      {"--numerals", "--signs", "--keep-graves", "--remove-graves", "--lower",
                                       "--no-word-list", "--sample", "--counts", "--typeable"});
  if (!parsed.error.empty()) {
    ctx.err << "quilom reverse: " << parsed.error << "\n";
    return kExitUsage;
  }
  const auto target = parsed.values.count("--output") ? parsed.values.at("--output") : std::string();
  if (RefuseOutputOverInput(ctx, target, parsed.positional, kName)) return kExitUsage;
  ScopedStreamReporter reporter(ctx.err);
  const auto folders = settings::DataFolders::ForDataRoot(ctx.dataRoot);
  const auto words = LoadWords(ctx, parsed, folders);
  if (!words) return kExitFailed;

  std::optional<OutputFile> file;
  if (!target.empty() && target != "-") {
    file.emplace(ctx, kName);
    if (!file->Open(target)) return kExitFailed;
  }
  bool written = true;
  const auto write = [&](const std::string& bytes) {
    if (written && !bytes.empty()) written = file ? file->Write(bytes) : WriteStandardOutput(ctx, bytes, kName);
  };
  ReverseRun run(parsed, *words);
  bool read = true;
  if (parsed.flags.count("--sample")) {
    const auto sample = folders.mainDataFolder / "inps" / "sample-for-rt.txt";
    if (!std::filesystem::exists(sample)) {
      ctx.err << "quilom reverse: the sample text is missing: " << sample.string() << "\n";
      return kExitFailed;
    }
    write(run.Add(tools::LoadReverseSample(folders.mainDataFolder)));
  } else {
    for (const std::string& input : InputsOrStandardInput(parsed)) {
      read = read && ReadTextPieces(ctx, input, kName, [&](std::u16string_view piece) { write(run.Add(piece)); });
    }
  }
  if (!read) return kExitFailed;
  write(run.Finish());
  if (parsed.flags.count("--counts")) ctx.err << run.Counts() << "\n";
  if (written && file) written = file->Commit();
  if (!written) return kExitFailed;
  return ctx.warned ? kExitLeftOvers : kExitDone;
}

const RegisterCommand registration({
    kName,
    "reverse [FILE...] [--numerals] [--signs] [--keep-graves] [--remove-graves] [--lower] [--typeable] "
    "[--no-word-list] [--sample] [--counts] [-o|--output FILE]",
    "Tamil text back to Latin phonetic spelling (--typeable: spell ந as \"w\" so that the result types back)",
    RunReverse,
});

}  // namespace
}  // namespace quilom::cli
