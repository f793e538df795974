// `quilom convert`: text between a legacy Tamil font encoding and Unicode, with the same tables
// and the same conversion run as the converter window.
//
// Plain text comes in any of the text-file forms (UTF-8 or UTF-16 with a mark, UTF-8, or legacy
// bytes) and goes out as UTF-8 for Unicode, or as legacy bytes (the Windows-1252 bytes of the
// legacy glyph codes) for a legacy encoding; Tace and Stmzh keep their Private Use Area codes in
// UTF-8, as does any output with a character no Windows-1252 byte shows. A legacy-to-legacy request is made in two runs
// through Unicode. Word-processor documents go through a document backend chosen by the file's extension.

#include <chrono>
#include <filesystem>
#include <ostream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "converter/conversion_run.hpp"
#include "converter/convert_checks.hpp"
#include "converter/converter_lists.hpp"
#include "converter/document_backends.hpp"
#include "converter/encoding_list.hpp"
#include "converter/legacy_bytes.hpp"
#include "converter/plain_text_editor.hpp"
#include "settings/data_folders.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::cli {
namespace {

using namespace quilom::converter;

constexpr const char* kName = "convert";
constexpr std::size_t kProgressBarFrom = 1 << 20;  // bytes of input

// No one to ask: a command-line run converts the whole text in every font.
class NoQuestionsPrompter final : public Prompter {
 public:
  PromptAnswer AskYesNoCancel(std::u16string_view) override { return PromptAnswer::Yes; }
  PromptAnswer AskYesNo(std::u16string_view, bool) override { return PromptAnswer::Yes; }
  void Inform(std::u16string_view) override {}
};

struct Options {
  int from = 0;
  int to = 0;
  std::u16string fromName;
  std::u16string toName;
  bool normalQuotes = true;
  bool irRiReeForm = true;
  bool convertVowelSigns = true;
  std::u16string font;  // the font given to converted text in documents; "" = the default font
};

std::int64_t NowSeconds() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::filesystem::path ConverterFolder(const CommandContext& ctx) {
  return settings::DataFolders::ForDataRoot(ctx.dataRoot).ModuleDataFolder(kConverterModule);
}

// The steps of the request: one, or two through Unicode. Each is (from, to) positions.
std::vector<std::pair<int, int>> Steps(const Options& options) {
  if (options.from != 0 && options.to != 0) {
    return {{options.from, 0}, {0, options.to}};
  }
  return {{options.from, options.to}};
}

std::optional<ConversionRequest> RequestFor(CommandContext& ctx, const EncodingList& list, const Options& options,
                                            int from, int to) {
  ConvertSelection selection{list.names[static_cast<std::size_t>(from)],
                             list.names[static_cast<std::size_t>(to)],
                             from,
                             to,
                             3,
                             options.normalQuotes,
                             options.irRiReeForm};
  const ConvertDecision decision = DecideConversion(selection);
  if (!decision.stopMessage.empty()) {
    ctx.err << "quilom convert: " << text::Utf16ToUtf8(decision.stopMessage) << "\n";
    return std::nullopt;
  }
  const std::filesystem::path folder = ConverterFolder(ctx);
  ConversionRequest request;
  request.direction = decision.direction;
  request.tableText = LoadTableText(folder, decision.tableId);
  if (request.tableText.empty()) {
    ctx.err << "quilom convert: the conversion table " << TablePath(folder, decision.tableId).string()
            << " is missing or empty\n";
    return std::nullopt;
  }
  request.convertVowelSigns = options.convertVowelSigns;
  const std::vector<std::u16string> defaults =
      text::Split(settings::ReadTextFile(folder / std::u16string(kDefaultFontsFile)), text::kCrLf);
  const int legacy = from == 0 ? to : from;
  const auto defaultOf = [&defaults](int position) {
    return static_cast<std::size_t>(position) < defaults.size() ? defaults[static_cast<std::size_t>(position)] : u"";
  };
  // Row 1 ("Default Font") unless a font was named, which stands as the list's third row.
  const auto listFor = [&options](std::u16string defaultFont) {
    FontsList fonts{{std::u16string(kAnyFont), std::u16string(kDefaultFont)}, 1, std::move(defaultFont)};
    if (!options.font.empty()) {
      fonts.rows.push_back(options.font);
      fonts.selected = 2;
    }
    return fonts;
  };
  request.legacyFonts = listFor(defaultOf(legacy));
  request.unicodeFonts = listFor(defaultOf(0));
  // Text in a document is found in any font; only the converted text gets the chosen font.
  (request.direction == ConversionDirection::LegacyToUnicode ? request.legacyFonts : request.unicodeFonts) =
      FontsList{{std::u16string(kAnyFont), std::u16string(kDefaultFont)}, 0, u""};
  return request;
}

bool RunSteps(CommandContext& ctx, const EncodingList& list, const Options& options, DocumentEditor& editor) {
  NoQuestionsPrompter prompter;
  for (const auto& [from, to] : Steps(options)) {
    const std::optional<ConversionRequest> request = RequestFor(ctx, list, options, from, to);
    if (!request) {
      return false;
    }
    if (RunConversion(*request, editor, prompter, {}, NowSeconds).status != RunStatus::Completed) {
      ctx.err << "quilom convert: the conversion failed (see the report above)\n";
      return false;
    }
  }
  return true;
}

// Legacy text goes out as its Windows-1252 bytes; text with a character no such byte shows
// (Private Use Area glyph codes, the Mac-era codes of some encodings, text the table does not
// cover) goes out whole as UTF-8 instead, so that nothing is lost.
std::string EncodeOutput(CommandContext& ctx, const Options& options, const std::u16string& text) {
  if (options.to == 0 || UsesPrivateUseGlyphs(options.toName)) {
    return text::Utf16ToUtf8(text);
  }
  std::size_t unencodable = 0;
  std::string bytes = TextToLegacyBytes(text, unencodable);
  if (unencodable > 0) {
    ctx.err << "quilom convert: " << unencodable
            << " character(s) have no Windows-1252 byte; the output is written as UTF-8\n";
    return text::Utf16ToUtf8(text);
  }
  return bytes;
}

int ConvertPlainText(CommandContext& ctx, const EncodingList& list, const Options& options, const std::string& input,
                     const std::string& output) {
  const std::optional<std::string> bytes = ReadInputBytes(ctx, input, kName);
  if (!bytes) {
    return 1;
  }
  PlainTextEditor editor(DecodeTextFileBytes(*bytes));
  ProgressBar bar(ctx, "converting");
  if (bytes->size() >= kProgressBarFrom) {
    editor.SetApplyProgress([&bar](int percent) { bar.Update(percent); });
  }
  if (!RunSteps(ctx, list, options, editor)) {
    return 1;
  }
  const std::u16string& converted = editor.Text();
  if (bytes->size() >= kProgressBarFrom) {
    bar.Finish();
  }
  return WriteOutputBytes(ctx, output, EncodeOutput(ctx, options, converted), kName) ? 0 : 1;
}

int ConvertDocument(CommandContext& ctx, const EncodingList& list, const Options& options, const std::string& input,
                    const std::string& output) {
  const std::filesystem::path inputPath = std::filesystem::u8path(input);
  const std::string extension = DocumentExtension(inputPath);
  const std::string problem = DocumentBackendProblem(extension);
  if (!problem.empty()) {
    ctx.err << "quilom convert: " << problem << "\n";
    return 1;
  }
  if (output.empty() || output == "-") {
    ctx.err << "quilom convert: a document needs an output file: -o OUT" << extension << "\n";
    return 2;
  }
  const std::filesystem::path outputPath = std::filesystem::u8path(output);
  std::error_code ec;
  if (std::filesystem::equivalent(inputPath, outputPath, ec)) {
    ctx.err << "quilom convert: the output must be a new file, not the input itself\n";
    return 2;
  }
  std::string error;
  const std::unique_ptr<DocumentSession> session = FindDocumentBackend(extension)->Open(inputPath, error);
  if (!session) {
    ctx.err << "quilom convert: cannot open '" << input << "': " << error << "\n";
    return 1;
  }
  if (!RunSteps(ctx, list, options, session->Editor())) {
    return 1;
  }
  if (!session->SaveAs(outputPath, error)) {
    ctx.err << "quilom convert: cannot save '" << output << "': " << error << "\n";
    return 1;
  }
  return 0;
}

std::optional<Options> ReadOptions(CommandContext& ctx, const ParsedArgs& parsed, const EncodingList& list) {
  Options options;
  const auto find = [&](const char* option, int& position, std::u16string& name) {
    const auto given = parsed.values.find(option);
    if (given == parsed.values.end()) {
      ctx.err << "quilom convert: " << option
              << " ENCODING is required; known encodings: " << text::Utf16ToUtf8(list.Joined()) << "\n";
      return false;
    }
    const std::optional<int> found = list.Position(text::Utf8ToUtf16(given->second));
    if (!found) {
      ctx.err << "quilom convert: unknown encoding '" << given->second
              << "'; known encodings: " << text::Utf16ToUtf8(list.Joined()) << "\n";
      return false;
    }
    position = *found;
    name = list.names[static_cast<std::size_t>(*found)];
    return true;
  };
  if (!find("--from", options.from, options.fromName) || !find("--to", options.to, options.toName)) {
    return std::nullopt;
  }
  if (options.from == options.to) {
    ctx.err << "quilom convert: --from and --to name the same encoding (" << text::Utf16ToUtf8(options.fromName)
            << "): there is nothing to convert\n";
    return std::nullopt;
  }
  options.normalQuotes = !parsed.flags.count("--decorative-quotes");
  options.irRiReeForm = !parsed.flags.count("--plain-ra");
  options.convertVowelSigns = !parsed.flags.count("--keep-vowel-sign-glyphs");
  if (const auto font = parsed.values.find("--font"); font != parsed.values.end()) {
    options.font = text::Utf8ToUtf16(font->second);
  }
  return options;
}

int RunConvert(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {"--from", "--to", "-o", "--font"},
                                      {"--decorative-quotes", "--plain-ra", "--keep-vowel-sign-glyphs"});
  if (!parsed.error.empty() || parsed.positional.size() > 1) {
    ctx.err << "quilom convert: " << (parsed.error.empty() ? "give at most one input file" : parsed.error) << "\n";
    return 2;
  }
  const EncodingList list = LoadEncodingList(ConverterFolder(ctx));
  if (list.names.empty()) {
    ctx.err << "quilom convert: no encodings list in " << ConverterFolder(ctx).string() << "\n";
    return 1;
  }
  const std::optional<Options> options = ReadOptions(ctx, parsed, list);
  if (!options) {
    return 2;
  }
  const std::string input = parsed.positional.empty() ? "" : parsed.positional[0];
  const std::string output = parsed.values.count("-o") ? parsed.values.at("-o") : "";
  if (!input.empty() && IsDocumentExtension(DocumentExtension(std::filesystem::u8path(input)))) {
    return ConvertDocument(ctx, list, *options, input, output);
  }
  return ConvertPlainText(ctx, list, *options, input, output);
}

const RegisterCommand registration({
    kName,
    "convert --from ENCODING --to ENCODING [FILE] [-o OUT] [--decorative-quotes] [--plain-ra] "
    "[--keep-vowel-sign-glyphs] [--font NAME]",
    "Convert text or a document between a legacy Tamil font encoding and Unicode (or between two legacy "
    "encodings, through Unicode)",
    RunConvert,
});

}  // namespace
}  // namespace quilom::cli
