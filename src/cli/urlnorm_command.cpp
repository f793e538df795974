// `quilom urlnorm`: a percent-encoded web address back to readable Unicode text.

#include <ostream>
#include <utility>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "text/line_blocks.hpp"
#include "text/text_input.hpp"
#include "text/utf.hpp"
#include "tools/url_normalizer.hpp"

namespace quilom::cli {
namespace {

constexpr const char* kName = "urlnorm";

constexpr const char* kCannotNormalise =
    "quilom urlnorm: cannot normalise: a %-sequence is worth 256 or more (capital hexadecimal digits run on, as "
    "in %20AB), or the text holds characters above U+00FF\n";

bool IsBlank(std::u16string_view text) { return text.find_first_not_of(u" \t\r\n") == std::u16string_view::npos; }

// A text on standard input is normalised a block of whole lines at a time (a %-sequence never
// spans a line break), so a long text takes bounded memory.
int NormaliseStream(CommandContext& ctx, const std::string& target) {
  std::optional<OutputFile> file;
  if (!target.empty() && target != "-") {
    file.emplace(ctx, kName);
    if (!file->Open(target)) return kExitFailed;
  }
  bool ok = true, sawText = false;
  std::u16string blankSoFar;  // written once there is text: a blank input writes nothing
  const auto normalise = [&](const std::u16string& block) {
    if (!ok || block.empty()) return;
    if (IsBlank(block) && !sawText) {
      blankSoFar += block;
      return;
    }
    std::u16string output = block;
    if (!IsBlank(block)) {
      const std::optional<std::u16string> normalised = tools::NormalizeUrl(block);
      if (!normalised) {
        ctx.err << kCannotNormalise;
        ok = false;
        return;
      }
      output = std::exchange(blankSoFar, {}) + *normalised;
      sawText = true;
    }
    const std::string bytes = text::Utf16ToUtf8(output);
    ok = file ? file->Write(bytes) : WriteStandardOutput(ctx, bytes, kName);
  };
  text::LineBlocks blocks;
  const bool read = ReadTextPieces(ctx, "", kName, [&](std::u16string_view piece) {
    if (std::optional<std::u16string> block = blocks.Add(piece)) normalise(*block);
  });
  if (!read) return kExitFailed;
  normalise(blocks.Rest());
  if (ok && !sawText) {
    ctx.err << "quilom urlnorm: there is no text to normalise\n";
    return kExitFailed;
  }
  if (!ok || (file && !file->Commit())) return kExitFailed;
  return ctx.warned ? kExitLeftOvers : kExitDone;
}

int RunUrlNorm(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {"--output"}, {"--address"});
  if (!parsed.error.empty() || parsed.positional.size() > 1) {
    ctx.err << "quilom urlnorm: "
            << (parsed.error.empty() ? "give the text as one argument (quote it) or on standard input" : parsed.error)
            << "\n";
    return kExitUsage;
  }
  const std::string target = parsed.values.count("--output") ? parsed.values.at("--output") : "";
  const bool fromArgument = !parsed.positional.empty() && parsed.positional[0] != "-";
  const bool address = parsed.flags.count("--address") > 0;
  if (!fromArgument && !address) return NormaliseStream(ctx, target);
  // One address: on the command line, or the one --address opens from the text.
  std::string bytes;
  if (fromArgument) {
    bytes = parsed.positional[0];
  } else if (auto read = ReadInputBytes(ctx, "", kName)) {
    bytes = *read;
  }
  if (bytes.find_first_not_of(" \t\r\n") == std::string::npos) {
    ctx.err << "quilom urlnorm: there is no text to normalise\n";
    return kExitFailed;
  }
  text::TextInputDecoder decoder;
  std::u16string input;
  decoder.Feed(bytes, input);
  decoder.Finish(input);
  if (!AcceptDecodedText(ctx, kName, decoder)) return kExitFailed;
  const auto output = tools::NormalizeUrl(input);
  if (!output) {
    ctx.err << kCannotNormalise;
    return kExitFailed;
  }
  std::string result;
  if (address) {
    const auto opened = tools::AddressToOpen(*output);
    if (!opened) {
      ctx.err << "quilom urlnorm: the result holds no well-formed http:// or https:// address\n";
      return kExitFailed;
    }
    result = text::Utf16ToUtf8(*opened) + "\n";
  } else {
    result = text::Utf16ToUtf8(*output) + "\n";
  }
  if (!WriteOutputBytes(ctx, target, result, kName)) return kExitFailed;
  return ctx.warned ? kExitLeftOvers : kExitDone;
}

const RegisterCommand registration({
    kName,
    "urlnorm [TEXT] [--address] [-o|--output FILE]",
    "Decode a percent-encoded web address into readable text (--address: only the address that would be opened)",
    RunUrlNorm,
});

}  // namespace
}  // namespace quilom::cli
