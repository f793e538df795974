// `quilom detect`: which legacy Tamil font encoding a text most likely uses.

#include <cstdio>
#include <ostream>
#include <set>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "converter/converter_lists.hpp"
#include "converter/encoding_detector.hpp"
#include "settings/data_folders.hpp"
#include "text/utf.hpp"

namespace quilom::cli {
namespace {

constexpr const char* kName = "detect";
constexpr std::size_t kSampleBytes = 1 << 18;  // several times what the detector looks at
constexpr std::size_t kRunnersUp = 3;

std::string Percent(double fraction) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%.1f%%", fraction * 100);
  return buffer;
}

// Encodings that read the text alike are named together, once, with their joint confidence.
void PrintGuesses(CommandContext& ctx, const std::vector<converter::EncodingGuess>& guesses, std::size_t wanted) {
  std::set<std::u16string> named;
  std::size_t lines = 0;
  for (const converter::EncodingGuess& guess : guesses) {
    if (lines == wanted) break;
    if (!named.insert(guess.name).second) continue;
    named.insert(guess.alike.begin(), guess.alike.end());
    const std::string name = text::Utf16ToUtf8(converter::FamilyName(guess));
    if (lines++ == 0) {
      ctx.out << name << " (confidence " << Percent(guess.familyConfidence) << ")";
      if (!guess.alike.empty()) ctx.out << ": these read the text the same way; converting with any gives the same";
      ctx.out << "\n";
    } else {
      ctx.out << "  then " << name << " (" << Percent(guess.familyConfidence) << ")\n";
    }
  }
}

int RunDetect(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {}, {"--all"});
  if (!parsed.error.empty() || parsed.positional.size() > 1) {
    ctx.err << "quilom detect: " << (parsed.error.empty() ? "give at most one input file" : parsed.error) << "\n";
    return kExitUsage;
  }
  // The detector settles a text by its beginning; the rest is never read, so a file of any
  // size is named in the same small memory.
  const std::optional<std::string> bytes =
      ReadInputPrefix(ctx, parsed.positional.empty() ? "" : parsed.positional[0], kName, kSampleBytes);
  if (!bytes) return kExitFailed;
  const auto folder = settings::DataFolders::ForDataRoot(ctx.dataRoot).ModuleDataFolder(converter::kConverterModule);
  const converter::EncodingDetector detector = converter::EncodingDetector::Load(folder);
  if (detector.EncodingCount() == 0) {
    ctx.err << "quilom detect: no conversion tables found in " << folder.string() << "\n";
    return kExitFailed;
  }
  const converter::Detection detection = detector.Detect(*bytes);
  if (detection.kind != converter::TextKind::LegacyTamil) {
    ctx.out << "Not legacy Tamil: " << converter::DescribeTextKind(detection.kind) << "\n";
    return kExitNotLegacyTamil;
  }
  PrintGuesses(ctx, detection.guesses, parsed.flags.count("--all") ? detection.guesses.size() : kRunnersUp + 1);
  return kExitDone;
}

const RegisterCommand registration({
    kName,
    "detect [FILE] [--all]",
    "Name the legacy Tamil font encoding a text most likely uses, with a confidence; encodings that read the text "
    "alike are named together (--all: every encoding); English, Unicode Tamil, UTF-16 and binary input are named as "
    "such, with exit status 4",
    RunDetect,
});

}  // namespace
}  // namespace quilom::cli
