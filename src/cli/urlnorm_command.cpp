// `quilom urlnorm`: a percent-encoded web address back to readable Unicode text.

#include <ostream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "text/text_input.hpp"
#include "text/utf.hpp"
#include "tools/url_normalizer.hpp"

namespace quilom::cli {
namespace {

constexpr const char* kName = "urlnorm";

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
    ctx.err << "quilom urlnorm: cannot normalise: a %-sequence is worth 256 or more (capital hexadecimal "
               "digits run on, as in %20AB), or the text holds characters above U+00FF\n";
    return kExitFailed;
  }
  std::string result;
  if (parsed.flags.count("--address")) {
    const auto address = tools::AddressToOpen(*output);
    if (!address) {
      ctx.err << "quilom urlnorm: the result holds no well-formed http:// or https:// address\n";
      return kExitFailed;
    }
    result = text::Utf16ToUtf8(*address) + "\n";
  } else {
    result = text::Utf16ToUtf8(*output) + (fromArgument ? "\n" : "");
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
