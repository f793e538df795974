// `quilom urlnorm`: a percent-encoded web address back to readable Unicode text.

#include <ostream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "text/utf.hpp"
#include "tools/url_normalizer.hpp"

namespace quilom::cli {
namespace {

constexpr const char* kName = "urlnorm";

int RunUrlNorm(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {}, {"--address"});
  if (!parsed.error.empty() || parsed.positional.size() > 1) {
    ctx.err << "quilom urlnorm: "
            << (parsed.error.empty() ? "give the text as one argument (quote it) or on standard input" : parsed.error)
            << "\n";
    return 2;
  }
  const bool fromArgument = !parsed.positional.empty() && parsed.positional[0] != "-";
  std::string bytes;
  if (fromArgument) {
    bytes = parsed.positional[0];
  } else if (auto read = ReadInputBytes(ctx, "", kName)) {
    bytes = *read;
  }
  if (bytes.find_first_not_of(" \t\r\n") == std::string::npos) {
    ctx.err << "quilom urlnorm: there is no text to normalise\n";
    return 1;
  }
  const auto output = tools::NormalizeUrl(text::Utf8ToUtf16(bytes));
  if (!output) {
    ctx.err << "quilom urlnorm: cannot normalise: a %-sequence is worth 256 or more (capital hexadecimal "
               "digits run on, as in %20AB), or the text holds characters above U+00FF\n";
    return 1;
  }
  if (parsed.flags.count("--address")) {
    const auto address = tools::AddressToOpen(*output);
    if (!address) {
      ctx.err << "quilom urlnorm: the result holds no well-formed http:// or https:// address\n";
      return 1;
    }
    ctx.out << text::Utf16ToUtf8(*address) << "\n";
    return 0;
  }
  ctx.out << text::Utf16ToUtf8(*output);
  if (fromArgument) ctx.out << "\n";
  ctx.out.flush();
  return ctx.out ? 0 : 1;
}

const RegisterCommand registration({
    kName,
    "urlnorm [TEXT] [--address]",
    "Decode a percent-encoded web address into readable text (--address: only the address that would be opened)",
    RunUrlNorm,
});

}  // namespace
}  // namespace quilom::cli
