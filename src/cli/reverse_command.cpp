// `quilom reverse`: Tamil Unicode text back to the Latin spelling the phonetic keymap types.

#include <filesystem>
#include <memory>
#include <ostream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "settings/data_folders.hpp"
#include "settings/error_report.hpp"
#include "text/text_input.hpp"
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

std::optional<std::string> ReadSource(CommandContext& ctx, const ParsedArgs& parsed,
                                      const settings::DataFolders& folders) {
  if (parsed.flags.count("--sample")) {
    const auto sample = folders.mainDataFolder / "inps" / "sample-for-rt.txt";
    if (!std::filesystem::exists(sample)) {
      ctx.err << "quilom reverse: the sample text is missing: " << sample.string() << "\n";
      return std::nullopt;
    }
    return text::Utf16ToUtf8(tools::LoadReverseSample(folders.mainDataFolder));
  }
  return ReadInputBytes(ctx, parsed.positional.empty() ? "" : parsed.positional[0], kName);
}

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

int RunReverse(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {"--output"},
                                      {"--numerals", "--signs", "--keep-graves", "--remove-graves", "--lower",
                                       "--no-word-list", "--sample", "--counts", "--typeable"});
  if (!parsed.error.empty() || parsed.positional.size() > 1) {
    ctx.err << "quilom reverse: " << (parsed.error.empty() ? "only one FILE may be given" : parsed.error) << "\n";
    return kExitUsage;
  }
  const auto target = parsed.values.count("--output") ? parsed.values.at("--output") : std::string();
  if (RefuseOutputOverInput(ctx, target, parsed.positional, kName)) return kExitUsage;
  ScopedStreamReporter reporter(ctx.err);
  const auto folders = settings::DataFolders::ForDataRoot(ctx.dataRoot);
  const auto bytes = ReadSource(ctx, parsed, folders);
  if (!bytes) return kExitFailed;
  const text::DecodedText decoded = text::DecodeTextInput(*bytes);
  if (decoded.invalidAt) {
    ctx.err << "quilom reverse: the input is not valid " << text::TextFormName(decoded.form) << ": the byte at offset "
            << *decoded.invalidAt << " is not part of a character\n";
    return kExitFailed;
  }
  const auto words = LoadWords(ctx, parsed, folders);
  if (!words) return kExitFailed;

  const std::u16string& input = decoded.text;
  const tools::ReverseOptions options{parsed.flags.count("--numerals") > 0, parsed.flags.count("--signs") > 0,
                                      parsed.flags.count("--keep-graves") > 0, parsed.flags.count("--typeable") > 0};
  ProgressBar bar(ctx, "reverse");
  std::u16string output = tools::ReverseTransliterate(input, options, *words, [&](size_t index, size_t count) {
    bar.Update(count < 2 ? 100 : static_cast<int>(index * 100 / (count - 1)));
  });
  bar.Finish();
  if (parsed.flags.count("--remove-graves")) output = tools::RemoveGraveAccents(output);
  if (parsed.flags.count("--lower")) output = tools::OutputToLowerCase(output);
  if (parsed.flags.count("--counts")) {
    ctx.err << text::Utf16ToUtf8(tools::ReverseCharacterCountsText(input.size(), output.size())) << "\n";
  }
  return WriteOutputBytes(ctx, target, text::Utf16ToUtf8(output), kName) ? kExitDone : kExitFailed;
}

const RegisterCommand registration({
    kName,
    "reverse [FILE] [--numerals] [--signs] [--keep-graves] [--remove-graves] [--lower] [--typeable] "
    "[--no-word-list] [--sample] [--counts] [-o|--output FILE]",
    "Tamil text back to Latin phonetic spelling (--typeable: spell ந as \"w\" so that the result types back)",
    RunReverse,
});

}  // namespace
}  // namespace quilom::cli
