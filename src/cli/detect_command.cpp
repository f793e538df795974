// `quilom detect`: which legacy Tamil font encoding a text most likely uses.

#include <cstdio>
#include <ostream>
#include <set>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "converter/converter_lists.hpp"
#include "converter/encoding_detector.hpp"
#include "converter/legacy_bytes.hpp"
#include "settings/data_folders.hpp"
#include "text/utf.hpp"

namespace quilom::cli {
namespace {

constexpr const char* kName = "detect";
constexpr std::size_t kRunnersUp = 3;

std::string Percent(double fraction) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%.1f%%", fraction * 100);
  return buffer;
}

int RunDetect(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {}, {"--all"});
  if (!parsed.error.empty() || parsed.positional.size() > 1) {
    ctx.err << "quilom detect: " << (parsed.error.empty() ? "give at most one input file" : parsed.error) << "\n";
    return 2;
  }
  const std::optional<std::string> bytes =
      ReadInputBytes(ctx, parsed.positional.empty() ? "" : parsed.positional[0], kName);
  if (!bytes) {
    return 1;
  }
  const auto folder = settings::DataFolders::ForDataRoot(ctx.dataRoot).ModuleDataFolder(converter::kConverterModule);
  const converter::EncodingDetector detector = converter::EncodingDetector::Load(folder);
  if (detector.EncodingCount() == 0) {
    ctx.err << "quilom detect: no conversion tables found in " << folder.string() << "\n";
    return 1;
  }
  const std::vector<converter::EncodingGuess> guesses = detector.Rank(converter::DecodeTextFileBytes(*bytes));
  if (!converter::ReadsAsTamil(guesses.front())) {
    ctx.err << "quilom detect: the text does not read as Tamil in any legacy encoding we know\n";
    return 1;
  }
  // Encodings that read the text alike are named together, once, with their joint confidence.
  const std::size_t wanted = parsed.flags.count("--all") ? guesses.size() : kRunnersUp + 1;
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
  return 0;
}

const RegisterCommand registration({
    kName,
    "detect [FILE] [--all]",
    "Name the legacy Tamil font encoding a text most likely uses, with a confidence; encodings that read the text "
    "alike are named together (--all: every encoding)",
    RunDetect,
});

}  // namespace
}  // namespace quilom::cli
