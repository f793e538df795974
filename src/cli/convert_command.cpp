// `quilom convert`: text between a legacy Tamil font encoding and Unicode, with the same tables
// and the same conversion run as the converter window.
//
// Legacy text is bytes: each byte is a glyph code of the font, read and written as it is (the
// tables see it as the Windows-1252 character of the byte, which is what a word processor shows
// in a legacy font). Text that was saved from such a view as UTF-8 or UTF-16 (the characters,
// not the bytes) is read and written with --legacy-text. Tace and Stmzh keep their glyph codes
// in the Private Use Area and are always UTF-8 text. Unicode text is UTF-8, with or without its
// mark, or UTF-16 with its mark; invalid UTF-8 is refused with its byte offset. A
// legacy-to-legacy request is made in two runs through Unicode.
//
// Characters the target encoding cannot hold never change the output's form silently: the run
// stops and names the first, unless --unmappable asks to skip, replace or keep them (see
// converter/unmappable_characters.hpp). Word-processor documents go through a document backend
// chosen by the file's extension; their text is characters already.
//
// In a document only text in the right fonts is converted, so that an English paragraph beside
// legacy Tamil text is left alone. The editors cannot list a document's fonts, so the fonts come
// from the command line, else from the encoding's line of the default-fonts file; kFontHelp
// below is the rule as the user reads it (`quilom convert --help`). Several --legacy-font fonts
// are converted one after another, as the window's "Any Font" / "No" answer does. A document run
// draws one progress bar over all its steps and font passes.

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <ostream>
#include <sstream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "cli/unmappable_report.hpp"
#include "converter/conversion_run.hpp"
#include "converter/convert_checks.hpp"
#include "converter/converter_lists.hpp"
#include "converter/document_backends.hpp"
#include "converter/document_signature.hpp"
#include "converter/encoding_detector.hpp"
#include "converter/encoding_list.hpp"
#include "converter/font_encodings.hpp"
#include "converter/legacy_bytes.hpp"
#include "converter/plain_text_editor.hpp"
#include "converter/plain_text_stream.hpp"
#include "converter/unmappable_characters.hpp"
#include "settings/data_folders.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/text_input.hpp"
#include "text/utf.hpp"

namespace quilom::cli {
namespace {

using namespace quilom::converter;

constexpr const char* kName = "convert";

// No one to ask: a command-line run converts the whole text, and several named legacy fonts
// are converted one font after another (the "No" answer to the "Any Font" question).
class NoQuestionsPrompter final : public Prompter {
 public:
  PromptAnswer AskYesNoCancel(std::u16string_view message) override {
    return message == kAnyFontQuestion ? PromptAnswer::No : PromptAnswer::Yes;
  }
  PromptAnswer AskYesNo(std::u16string_view, bool) override { return PromptAnswer::Yes; }
  void Inform(std::u16string_view) override {}
};

// --from auto: each legacy font of a document is converted by the encoding its name (or its
// text) tells.
constexpr int kAutoFrom = -1;

struct Options {
  int from = 0;
  int to = 0;
  std::u16string fromName;
  std::u16string toName;
  bool normalQuotes = true;
  bool irRiReeForm = true;
  bool convertVowelSigns = true;
  bool document = false;
  std::vector<std::u16string> legacyFonts;  // --legacy-font, in the order given
  std::u16string unicodeFont;               // --unicode-font (or --font); "" = not named
  bool legacyText = false;                  // --legacy-text: the legacy side is text, not bytes
  UnmappableChoice unmappable;
};

bool StoresLegacyBytes(std::u16string_view encoding) { return !UsesPrivateUseGlyphs(encoding); }

bool ReadsLegacyBytes(const Options& options) {
  return options.from != 0 && StoresLegacyBytes(options.fromName) && !options.legacyText;
}

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

bool IsAnyFont(std::u16string_view name) { return text::AsciiLower(name) == text::AsciiLower(kAnyFont); }

FontsList AnyFontList() { return FontsList{{std::u16string(kAnyFont), std::u16string(kDefaultFont)}, 0, u""}; }

// With one font the run takes the third row; with more it asks, and NoQuestionsPrompter has it
// convert each font in turn.
FontsList FontsToFind(const std::vector<std::u16string>& fonts) {
  FontsList list = AnyFontList();
  list.rows.insert(list.rows.end(), fonts.begin(), fonts.end());
  return list;
}

FontsList NamedFont(const std::u16string& font) {
  FontsList list = AnyFontList();
  list.rows.push_back(font);
  list.selected = 2;
  return list;
}

struct StepFonts {
  FontsList legacy;
  FontsList unicode;
};

// The legacy fonts searched in a document. The fonts a document uses are not known before it is
// opened, so without --legacy-font only the encoding's default font is searched: text in other
// fonts (English paragraphs, say) stays as it is. "Any Font" lifts the restriction.
std::vector<std::u16string> LegacyFindFonts(const Options& options, const std::u16string& defaultFont) {
  const std::vector<std::u16string> named =
      options.legacyFonts.empty() ? std::vector<std::u16string>{defaultFont} : options.legacyFonts;
  for (const std::u16string& font : named) {
    if (IsAnyFont(font)) {
      return {};
    }
  }
  return named;
}

// The fonts of one step of a document run. `defaultOf` gives the default font of a list position.
template <typename DefaultOf>
StepFonts DocumentFonts(const Options& options, int from, int to, bool secondOfTwo, const DefaultOf& defaultOf) {
  const std::u16string unicodeFont = options.unicodeFont.empty() ? defaultOf(0) : options.unicodeFont;
  if (to == 0) {
    return {FontsToFind(LegacyFindFonts(options, defaultOf(from))), NamedFont(unicodeFont)};
  }
  // Through Unicode, the second step finds only the text the first step wrote.
  const bool findNamed = secondOfTwo || !options.unicodeFont.empty();
  const std::u16string replacement =
      !secondOfTwo && !options.legacyFonts.empty() ? options.legacyFonts.front() : defaultOf(to);
  return {NamedFont(replacement), findNamed ? NamedFont(unicodeFont) : AnyFontList()};
}

// Why the fonts of a document run cannot be chosen, or "".
std::string DocumentFontsProblem(const Options& options, const std::vector<std::u16string>& defaults) {
  if (options.from == kAutoFrom) {
    return "";  // each font is its own
  }
  const auto defaultOf = [&defaults](int position) {
    return static_cast<std::size_t>(position) < defaults.size() ? defaults[static_cast<std::size_t>(position)] : u"";
  };
  if (options.from == 0 && options.legacyFonts.size() > 1) {
    return "converted text gets one legacy font: give --legacy-font once";
  }
  if (options.from == 0 && !options.legacyFonts.empty() && IsAnyFont(options.legacyFonts.front())) {
    return "converted text needs a real font, not \"Any Font\", for --legacy-font";
  }
  const bool needsFromDefault = options.from != 0 && options.legacyFonts.empty();
  const bool needsToDefault = options.to != 0 && (options.from != 0 || options.legacyFonts.empty());
  if ((needsFromDefault && defaultOf(options.from).empty()) || (needsToDefault && defaultOf(options.to).empty())) {
    return "the encoding has no default font in " + text::Utf16ToUtf8(kDefaultFontsFile) +
           ": name the font with --legacy-font NAME";
  }
  return "";
}

std::vector<std::u16string> LoadDefaultFonts(const std::filesystem::path& folder) {
  return text::Split(settings::ReadTextFile(folder / std::u16string(kDefaultFontsFile)), text::kCrLf);
}

std::optional<ConversionRequest> RequestFor(CommandContext& ctx, const EncodingList& list, const Options& options,
                                            int from, int to, bool secondOfTwo) {
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
  if (!options.document) {
    request.legacyFonts = AnyFontList();  // plain text has no fonts
    request.unicodeFonts = AnyFontList();
    return request;
  }
  const std::vector<std::u16string> defaults = LoadDefaultFonts(folder);
  const auto defaultOf = [&defaults](int position) {
    return static_cast<std::size_t>(position) < defaults.size() ? defaults[static_cast<std::size_t>(position)] : u"";
  };
  StepFonts fonts = DocumentFonts(options, from, to, secondOfTwo, defaultOf);
  request.legacyFonts = std::move(fonts.legacy);
  request.unicodeFonts = std::move(fonts.unicode);
  return request;
}

// Turns the run's progress texts ("NN%", "FONT (NN%)", "100% Completed...") into one bar over
// every step and every font pass of the request.
class RunProgress {
 public:
  RunProgress(ProgressBar& bar, int steps) : bar_(bar), steps_(steps) {}

  void BeginStep(int step, int passes) {
    step_ = step;
    passes_ = std::max(passes, 1);
    pass_ = 0;
    font_.clear();
  }

  void Show(std::u16string_view label) {
    const std::size_t sign = label.find(u'%');
    if (sign == std::u16string_view::npos) {
      return;
    }
    if (label.starts_with(u"100% Completed")) {
      bar_.Update((step_ + 1) * 100 / steps_);
      return;
    }
    std::size_t digits = sign;
    while (digits > 0 && label[digits - 1] >= u'0' && label[digits - 1] <= u'9') {
      --digits;
    }
    int percent = 0;
    for (std::size_t i = digits; i < sign; ++i) {
      percent = std::min(percent * 10 + (label[i] - u'0'), 100);
    }
    if (digits >= 2 && label.substr(digits - 2, 2) == u" (") {
      const std::u16string_view font = label.substr(0, digits - 2);
      if (!font_.empty() && font != font_ && pass_ + 1 < passes_) {
        ++pass_;
      }
      font_ = font;
    }
    const int withinStep = (pass_ * 100 + percent) / passes_;
    bar_.Update((step_ * 100 + withinStep) / steps_);
  }

 private:
  ProgressBar& bar_;
  int steps_;
  int step_ = 0;
  int passes_ = 1;
  int pass_ = 0;
  std::u16string font_;
};

int PassesOf(const ConversionRequest& request) {
  const std::size_t rows = request.legacyFonts.rows.size();
  const bool perFont =
      request.direction == ConversionDirection::LegacyToUnicode && request.legacyFonts.selected == 0 && rows >= 4;
  return perFont ? static_cast<int>(rows - 2) : 1;
}

bool RunSteps(CommandContext& ctx, const EncodingList& list, const Options& options, DocumentEditor& editor,
              RunProgress* progress) {
  NoQuestionsPrompter prompter;
  const std::vector<std::pair<int, int>> steps = Steps(options);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const auto [from, to] = steps[i];
    const std::optional<ConversionRequest> request = RequestFor(ctx, list, options, from, to, i > 0);
    if (!request) {
      return false;
    }
    ProgressLabel label;
    if (progress) {
      progress->BeginStep(static_cast<int>(i), PassesOf(*request));
      label = [progress](std::u16string_view text) { progress->Show(text); };
    }
    if (RunConversion(*request, editor, prompter, label, NowSeconds).status != RunStatus::Completed) {
      ctx.err << "quilom convert: the conversion failed (see the report above)\n";
      return false;
    }
  }
  return true;
}

// Turns the input's bytes into text as they come. Without --legacy-text, legacy input is the
// font's byte codes as they are: bytes that happen to form valid UTF-8 are glyph codes all the
// same. A byte-order mark says the file is text, which bytes of a legacy font never open with,
// so it is refused rather than read as glyphs. Unicode input is text in one of its forms.
class InputDecoder {
 public:
  InputDecoder(CommandContext& ctx, const Options& options) : ctx_(ctx), options_(options) {}

  // The text of the next piece of bytes; nothing after a message when the input is refused.
  std::optional<std::u16string> Feed(std::string_view bytes) {
    if (failed_) return std::nullopt;
    if (ReadsLegacyBytes(options_)) {
      if (first_ && text::StartsWithByteOrderMark(bytes)) return Refuse(MarkedLegacyMessage());
      first_ = false;
      return LegacyBytesToText(bytes);
    }
    std::u16string text;
    decoder_.Feed(bytes, text);
    if (!AcceptDecodedText(ctx_, kName, decoder_)) return Fail();
    return text;
  }

  std::optional<std::u16string> Finish() {
    std::u16string text;
    if (failed_ || ReadsLegacyBytes(options_)) return failed_ ? std::nullopt : std::optional(text);
    decoder_.Finish(text);
    if (!AcceptDecodedText(ctx_, kName, decoder_)) return Fail();
    return text;
  }

 private:
  std::optional<std::u16string> Refuse(const std::string& message) {
    failed_ = true;
    ctx_.err << "quilom convert: " << message << "\n";
    return std::nullopt;
  }

  std::string MarkedLegacyMessage() const {
    const std::string from = text::Utf16ToUtf8(options_.fromName);
    return "the input opens with a byte-order mark, so it is text, not " + from + " bytes: give --legacy-text if " +
           "it holds the characters a " + from + " font shows (text saved from a word processor), or --from " +
           "Unicode if it is Unicode Tamil";
  }

  std::optional<std::u16string> Fail() {
    failed_ = true;
    if (options_.from == 0) ctx_.err << "quilom convert: legacy-font text? name its encoding with --from\n";
    return std::nullopt;
  }

  CommandContext& ctx_;
  const Options& options_;
  text::TextInputDecoder decoder_;
  bool first_ = true;
  bool failed_ = false;
};

// Legacy text goes out as its bytes, unless it was asked for as text (--legacy-text, or
// --unmappable keep, which keeps characters no byte shows), or its glyph codes lie outside the
// byte range (Tace, Stmzh).
std::string EncodeOutput(const Options& options, const std::u16string& text) {
  const bool asText = options.legacyText || options.unmappable.policy == UnmappablePolicy::Keep;
  if (options.to == 0 || !StoresLegacyBytes(options.toName) || asText) {
    return text::Utf16ToUtf8(text);
  }
  std::size_t unencodable = 0;
  return TextToLegacyBytes(text, unencodable);
}

// The repertoire of the step's target with the policy's replacement checked against it.
std::optional<LegacyRepertoire> TargetRepertoire(CommandContext& ctx, const Options& options, int to) {
  std::optional<LegacyRepertoire> repertoire =
      LoadLegacyRepertoire(ConverterFolder(ctx), to, options.irRiReeForm, StoresLegacyBytes(options.toName));
  if (!repertoire) {
    ctx.err << "quilom convert: the tables of " << text::Utf16ToUtf8(options.toName) << " are missing\n";
    return std::nullopt;
  }
  if (options.unmappable.policy == UnmappablePolicy::Replace && !repertoire->CanHold(options.unmappable.replacement)) {
    ctx.err << "quilom convert: the replacement '"
            << text::Utf16ToUtf8(std::u16string(1, options.unmappable.replacement)) << "' cannot be written in "
            << text::Utf16ToUtf8(options.toName) << " either: choose another with --replacement CHAR\n";
    return std::nullopt;
  }
  return repertoire;
}

std::optional<std::vector<PlainTextStep>> PlainTextSteps(CommandContext& ctx, const EncodingList& list,
                                                         const Options& options) {
  std::vector<PlainTextStep> steps;
  const std::vector<std::pair<int, int>> positions = Steps(options);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    const auto [from, to] = positions[i];
    std::optional<ConversionRequest> request = RequestFor(ctx, list, options, from, to, i > 0);
    if (!request) return std::nullopt;
    PlainTextStep step{std::move(*request), std::nullopt};
    if (to != 0) {
      step.target = TargetRepertoire(ctx, options, to);
      if (!step.target) return std::nullopt;
    }
    steps.push_back(std::move(step));
  }
  return steps;
}

// Where converted text goes: standard output, or an output file that is put in place only when
// the whole run succeeded. Under --unmappable stop nothing more is written once a character
// that cannot be held was met.
class PlainTextOutput {
 public:
  PlainTextOutput(CommandContext& ctx, const Options& options, const std::string& output)
      : ctx_(ctx), options_(options), toFile_(!output.empty() && output != "-") {
    if (toFile_) {
      file_.emplace(ctx, kName);
      ok_ = file_->Open(output);
    }
  }

  bool Ok() const { return ok_; }

  void Write(const std::u16string& text, bool held) {
    if (!ok_ || text.empty()) return;
    if (!held) {
      stopped_ = true;
      return;
    }
    if (stopped_) return;
    const std::string bytes = EncodeOutput(options_, text);
    ok_ = toFile_ ? file_->Write(bytes) : WriteStandardOutput(ctx_, bytes, kName);
    written_ += bytes.size();
  }

  bool Commit() { return ok_ && (!toFile_ || file_->Commit()); }

  bool ToFile() const { return toFile_; }
  std::size_t Written() const { return written_; }

 private:
  CommandContext& ctx_;
  const Options& options_;
  bool toFile_;
  std::optional<OutputFile> file_;
  bool ok_ = true;
  bool stopped_ = false;
  std::size_t written_ = 0;
};

// Converts one input file (or standard input) into the output, piece by piece.
struct InputResult {
  bool ok = false;
  UnmappableFindings findings;
};

InputResult ConvertPlainInput(CommandContext& ctx, const Options& options, const std::vector<PlainTextStep>& steps,
                              const std::string& input, PlainTextOutput& output, ProgressBar& bar, std::uintmax_t& done,
                              std::uintmax_t total) {
  PlainTextStream stream(steps, options.unmappable.policy, options.unmappable.replacement);
  InputDecoder decoder(ctx, options);
  const bool stop = options.unmappable.policy == UnmappablePolicy::Stop;
  bool ok = true;
  std::u16string converted;
  const auto convert = [&](const std::optional<std::u16string>& text, bool last) {
    ok = ok && text && (last ? stream.Finish(converted) : stream.Feed(*text, converted));
    if (!ok) return;
    output.Write(converted, !stop || stream.Findings().count == 0);
    converted.clear();
  };
  const bool read = ReadBytePieces(ctx, input, kName, [&](std::string_view bytes) {
    if (!ok) return;
    convert(decoder.Feed(bytes), false);
    done += bytes.size();
    if (total > 0) bar.Update(static_cast<int>(done * 100 / total));
  });
  if (read && ok) {
    const std::optional<std::u16string> rest = decoder.Finish();
    ok = rest && stream.Feed(*rest, converted);
    if (ok) convert(std::u16string(), true);
  }
  return {read && ok, stream.Findings()};
}

std::string InputName(const std::string& input) { return input.empty() || input == "-" ? "standard input" : input; }

int ConvertPlainText(CommandContext& ctx, const EncodingList& list, const Options& options,
                     const std::vector<std::string>& inputs, const std::string& outputName) {
  const std::optional<std::vector<PlainTextStep>> steps = PlainTextSteps(ctx, list, options);
  if (!steps) {
    return kExitUsage;
  }
  PlainTextOutput output(ctx, options, outputName);
  if (!output.Ok()) {
    return kExitFailed;
  }
  std::uintmax_t total = 0, done = 0;
  for (const std::string& input : inputs) total += InputSize(input).value_or(0);
  ProgressBar bar(ctx, "converting");
  UnmappableFindings findings;
  std::string firstIn;
  for (const std::string& input : inputs) {
    const InputResult result = ConvertPlainInput(ctx, options, *steps, input, output, bar, done, total);
    if (!result.ok) return kExitFailed;
    if (result.findings.first && !findings.first) firstIn = InputName(input);
    findings.count += result.findings.count;
    if (!findings.first) findings.first = result.findings.first;
  }
  bar.Finish();
  const std::string where = inputs.size() > 1 ? " in " + firstIn : "";
  if (findings.count > 0 && options.unmappable.policy == UnmappablePolicy::Stop) {
    ReportUnmappableStop(
        ctx.err, findings, options.toName, where,
        output.ToFile() || output.Written() == 0 ? "nothing was written" : "standard output holds the text before it");
    return kExitFailed;
  }
  if (findings.count > 0 && !ctx.quiet) {
    ReportUnmappableWarning(ctx.err, options.unmappable, findings, options.toName, where);
  }
  if (!output.Commit()) {
    return kExitFailed;
  }
  return findings.count > 0 || ctx.warned ? kExitLeftOvers : kExitDone;
}

constexpr double kSettledConfidence = 0.6;

// The encoding of one font of the document, and how it was told; nothing when its text is not
// legacy Tamil.
struct FontDecision {
  std::optional<int> position;
  std::string how;
};

FontDecision DecideFont(const FontUse& font, const std::vector<std::u16string>& patterns,
                        const std::optional<EncodingDetector>& detector, const EncodingList& list) {
  if (const std::optional<int> named = EncodingOfFont(font.name, patterns)) {
    return {named, text::Utf16ToUtf8(list.names[static_cast<std::size_t>(*named)]) + ", by its name"};
  }
  if (std::any_of(font.sample.begin(), font.sample.end(), [](char16_t c) { return c >= 0x0B80 && c <= 0x0BFF; })) {
    return {std::nullopt, "left as it is: its text is Unicode Tamil already"};
  }
  std::size_t unencodable = 0;
  const Detection detection = detector->Detect(TextToLegacyBytes(font.sample, unencodable));
  if (detection.kind != TextKind::LegacyTamil || detection.guesses.empty() ||
      !ReadsAsTamil(detection.guesses.front())) {
    return {std::nullopt, "left as it is: its text reads as " + std::string(DescribeTextKind(detection.kind))};
  }
  // A guess is taken only when the text settles it: a short text often reads alike in two
  // encodings that differ elsewhere, and a wrong guess spoils every word of that font.
  const EncodingGuess& best = detection.guesses.front();
  char confidence[16];
  std::snprintf(confidence, sizeof confidence, "%.0f%%", best.familyConfidence * 100);
  if (best.familyConfidence < kSettledConfidence) {
    return {std::nullopt, "left as it is: its text could be " + text::Utf16ToUtf8(FamilyName(best)) + " (" +
                              confidence + ") or another encoding; name it with --from ENCODING --legacy-font '" +
                              text::Utf16ToUtf8(font.name) + "'"};
  }
  return {best.position, text::Utf16ToUtf8(best.name) + ", as its text reads (" + confidence + ")"};
}

// --from auto: every font the document's text is in, converted by its own encoding, each step
// told on standard error as a report of the fonts met.
bool RunFontByFont(CommandContext& ctx, const EncodingList& list, const Options& options, DocumentSession& session) {
  const std::vector<FontUse> fonts = session.Fonts();
  if (fonts.empty()) {
    ctx.err << "quilom convert: --from auto needs to know the document's fonts, which this backend cannot tell\n";
    return false;
  }
  const std::vector<std::u16string> patterns =
      text::Split(settings::ReadTextFile(ConverterFolder(ctx) / std::u16string(kSearchPatternsFile)), text::kCrLf);
  const std::optional<EncodingDetector> detector = EncodingDetector::Load(ConverterFolder(ctx));
  for (const FontUse& font : fonts) {
    const FontDecision decision = DecideFont(font, patterns, detector, list);
    if (!ctx.quiet)
      ctx.err << "quilom convert: font '" << text::Utf16ToUtf8(font.name) << "': " << decision.how << "\n";
    if (!decision.position) continue;
    Options step = options;
    step.from = *decision.position;
    step.fromName = list.names[static_cast<std::size_t>(step.from)];
    step.legacyFonts = {font.name};
    if (!RunSteps(ctx, list, step, session.Editor(), nullptr)) return false;
  }
  return true;
}

int ConvertDocument(CommandContext& ctx, const EncodingList& list, const Options& options, const std::string& input,
                    const std::string& output) {
  const std::filesystem::path inputPath = std::filesystem::u8path(input);
  const std::string extension = DocumentExtension(inputPath);
  const std::string problem = DocumentBackendProblem(extension);
  if (!problem.empty()) {
    ctx.err << "quilom convert: " << problem << "\n";
    return kExitFailed;
  }
  if (output.empty() || output == "-") {
    ctx.err << "quilom convert: a document needs an output file: -o OUT" << extension << "\n";
    return kExitUsage;
  }
  const std::filesystem::path outputPath = std::filesystem::u8path(output);
  const std::string notADocument = DocumentFileProblem(inputPath);
  if (!notADocument.empty()) {
    ctx.err << "quilom convert: cannot open '" << input << "': " << notADocument << "\n";
    return kExitFailed;
  }
  std::string error;
  const std::unique_ptr<DocumentSession> session = FindDocumentBackend(extension)->Open(inputPath, error);
  if (!session) {
    ctx.err << "quilom convert: cannot open '" << input << "': " << error << "\n";
    return kExitFailed;
  }
  if (options.from == kAutoFrom) {
    if (!RunFontByFont(ctx, list, options, *session)) return kExitFailed;
  } else {
    ProgressBar bar(ctx, "converting");
    RunProgress progress(bar, static_cast<int>(Steps(options).size()));
    if (!RunSteps(ctx, list, options, session->Editor(), &progress)) {
      return kExitFailed;
    }
    bar.Finish();
  }
  if (!session->SaveAs(outputPath, error)) {
    ctx.err << "quilom convert: cannot save '" << output << "': " << error << "\n";
    return kExitFailed;
  }
  return kExitDone;
}

// A missing folder for the output is a mistyped path more often than a wish: it is made only
// when asked for (--parents). For one output file this is the file's folder; for a batch, the
// output folder itself.
bool PrepareOutputFolder(CommandContext& ctx, const std::filesystem::path& folder, bool makeParents) {
  std::error_code ec;
  if (folder.empty() || std::filesystem::is_directory(folder, ec)) return true;
  if (makeParents && std::filesystem::create_directories(folder, ec)) return true;
  ctx.err << "quilom convert: the output folder '" << folder.string() << "' "
          << (makeParents ? "cannot be made: " + ec.message() : "does not exist (--parents makes it)") << "\n";
  return false;
}

std::filesystem::path FolderOfOutputFile(const std::string& output) {
  return output.empty() || output == "-" ? std::filesystem::path() : std::filesystem::u8path(output).parent_path();
}

std::string Usage() {
  return "convert --from ENCODING --to ENCODING [FILE...|FOLDER...] [-o|--output OUT] [--pattern GLOBS] "
         "[--legacy-text] [-q] [--list] "
         "[--parents] [--unmappable stop|skip|replace|keep] [--replacement CHAR] [--decorative-quotes] [--plain-ra] "
         "[--keep-vowel-sign-glyphs] [--legacy-font NAME]... [--unicode-font NAME] [--font NAME] [--help]";
}

constexpr const char* kBatchHelp =
    "Several documents or folders of them (searched with their sub-folders):\n"
    "  -o names an output folder, which mirrors where each file came from; the inputs are never\n"
    "  touched. --pattern '*.docx,*.odt' chooses the files of the folders (default\n"
    "  *.odt,*.docx,*.doc,*.rtf,*.txt). The word processor starts once for the whole batch; a file\n"
    "  that fails is named with its reason, the rest go on, and a summary ends the run.\n";

constexpr const char* kTextHelp =
    "Plain text:\n"
    "  Legacy text is bytes: each byte is a glyph code of the font, read and written as it is.\n"
    "  --legacy-text reads and writes the legacy side as UTF-8 text of the characters a word\n"
    "    processor shows in the legacy font (text copied or saved from such a view) instead.\n"
    "  Tace and Stmzh keep their glyphs in the Private Use Area and are always UTF-8 text.\n"
    "  Unicode text is UTF-8 (with or without its mark) or UTF-16 with its mark; invalid UTF-8 is\n"
    "    refused with the offset of the first bad byte.\n";

std::optional<Options> ReadOptions(CommandContext& ctx, const ParsedArgs& parsed, const EncodingList& list) {
  Options options;
  const auto find = [&](const char* option, int& position, std::u16string& name) {
    const auto given = parsed.values.find(option);
    if (given == parsed.values.end()) {
      ctx.err << "quilom convert: " << option
              << " ENCODING is required; known encodings: " << text::Utf16ToUtf8(list.Joined()) << "\n";
      return false;
    }
    if (std::string_view(option) == "--from" && text::AsciiLower(text::Utf8ToUtf16(given->second)) == u"auto") {
      position = kAutoFrom;
      name = u"auto";
      return true;
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
  std::string error;
  const std::optional<UnmappableChoice> unmappable = ReadUnmappableChoice(parsed, error);
  if (!unmappable) {
    ctx.err << "quilom convert: " << error << "\n";
    return std::nullopt;
  }
  options.unmappable = *unmappable;
  options.legacyText = parsed.flags.count("--legacy-text") > 0;
  options.normalQuotes = !parsed.flags.count("--decorative-quotes");
  options.irRiReeForm = !parsed.flags.count("--plain-ra");
  options.convertVowelSigns = !parsed.flags.count("--keep-vowel-sign-glyphs");
  const auto valueOf = [&parsed](const char* option) {
    const auto given = parsed.values.find(option);
    return given == parsed.values.end() ? std::u16string() : text::Utf8ToUtf16(given->second);
  };
  const std::u16string font = valueOf("--font");
  options.unicodeFont = valueOf("--unicode-font");
  if (!font.empty() && !options.unicodeFont.empty() && font != options.unicodeFont) {
    ctx.err << "quilom convert: --font is another name for --unicode-font; give one font\n";
    return std::nullopt;
  }
  if (options.unicodeFont.empty()) {
    options.unicodeFont = font;
  }
  return options;
}

// --legacy-font may be given more than once, which ParseArgs does not keep: take its values out
// first. An empty value is an error rather than "no restriction", which must be asked for.
std::optional<std::vector<std::string>> TakeLegacyFonts(CommandContext& ctx, std::vector<std::u16string>& fonts) {
  std::vector<std::string> rest;
  for (std::size_t i = 0; i < ctx.args.size(); ++i) {
    if (ctx.args[i] != "--legacy-font") {
      rest.push_back(ctx.args[i]);
    } else if (i + 1 < ctx.args.size() && !ctx.args[i + 1].empty()) {
      fonts.push_back(text::Utf8ToUtf16(ctx.args[++i]));
    } else {
      ctx.err << "quilom convert: option --legacy-font needs a font name\n";
      return std::nullopt;
    }
  }
  return rest;
}

constexpr const char* kFontHelp =
    "Fonts (documents only; plain text has none):\n"
    "  legacy to Unicode: only text in the --legacy-font fonts is converted (give it once per font;\n"
    "    each is converted in turn), or, without it, text in the source encoding's default font.\n"
    "    --legacy-font \"Any Font\" converts text in every font. Converted text gets --unicode-font\n"
    "    (or --font), else the default Unicode font.\n"
    "  Unicode to legacy: text in --unicode-font is converted, else text in any font; converted text\n"
    "    gets --legacy-font (once), else the target encoding's default font.\n"
    "  --from auto (documents to Unicode): each font the text is in is converted by the encoding its\n"
    "    name tells (TSCu_ fonts are TSCII, TAMu_ fonts TAM...), else by what its text reads as when\n"
    "    that is settled; each font met is reported with how it was treated.\n"
    "  legacy to legacy: --legacy-font names the source fonts as above; the text goes through\n"
    "    --unicode-font (or the default Unicode font) and gets the target encoding's default font.\n";

bool HasFontOptions(const Options& options) { return !options.legacyFonts.empty() || !options.unicodeFont.empty(); }

// ---- Whole folders -------------------------------------------------------------------------
//
// Several documents, or folders of them, are converted in one run into an output folder that
// mirrors where each came from; the inputs are never touched. The word processor is started once
// for the whole batch. A file that fails is named with its reason and the batch goes on; a
// summary ends the run, which exits 1 when any file failed (3 when some were written with
// warnings). Files are converted one after another: the word processor works on one document
// at a time, and plain text is fast enough alone.

constexpr const char* kDefaultPatterns = "*.odt,*.docx,*.doc,*.rtf,*.txt";

// "*" and "?" as a shell matches a file name, without regard to ASCII case (Windows names).
bool MatchesGlob(std::string_view name, std::string_view pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] == '*') {
    for (std::size_t skip = 0; skip <= name.size(); ++skip) {
      if (MatchesGlob(name.substr(skip), pattern.substr(1))) return true;
    }
    return false;
  }
  if (name.empty()) return false;
  const bool same = pattern[0] == '?' || std::tolower(static_cast<unsigned char>(pattern[0])) ==
                                             std::tolower(static_cast<unsigned char>(name[0]));
  return same && MatchesGlob(name.substr(1), pattern.substr(1));
}

bool MatchesAny(const std::string& name, const std::string& patterns) {
  std::size_t start = 0;
  while (start <= patterns.size()) {
    const std::size_t end = std::min(patterns.find(',', start), patterns.size());
    if (MatchesGlob(name, patterns.substr(start, end - start))) return true;
    start = end + 1;
  }
  return false;
}

struct BatchFile {
  std::filesystem::path input;
  std::filesystem::path relative;  // where it goes below the output folder
};

std::vector<BatchFile> CollectBatch(const std::vector<std::string>& inputs, const std::string& patterns) {
  std::vector<BatchFile> files;
  for (const std::string& input : inputs) {
    const std::filesystem::path path = std::filesystem::u8path(input);
    std::error_code ec;
    if (!std::filesystem::is_directory(path, ec)) {
      files.push_back({path, path.filename()});
      continue;
    }
    std::vector<BatchFile> found;
    for (std::filesystem::recursive_directory_iterator it(path, ec), end; !ec && it != end; it.increment(ec)) {
      if (it->is_regular_file(ec) && MatchesAny(it->path().filename().string(), patterns)) {
        found.push_back({it->path(), std::filesystem::relative(it->path(), path, ec)});
      }
    }
    std::sort(found.begin(), found.end(), [](const BatchFile& a, const BatchFile& b) { return a.input < b.input; });
    files.insert(files.end(), found.begin(), found.end());
  }
  return files;
}

bool IsDocumentFile(const std::filesystem::path& file) {
  const std::string extension = DocumentExtension(file);
  return IsDocumentExtension(extension) || FindDocumentBackend(extension) != nullptr;
}

bool IsBatch(const std::vector<std::string>& inputs) {
  int documents = 0;
  for (const std::string& input : inputs) {
    std::error_code ec;
    if (std::filesystem::is_directory(std::filesystem::u8path(input), ec)) return true;
    documents += IsDocumentFile(std::filesystem::u8path(input)) ? 1 : 0;
  }
  return documents > 0 && inputs.size() > 1;
}

// One file of the batch, with what it said kept for the batch's own report.
int ConvertBatchFile(CommandContext& ctx, const EncodingList& list, Options options, const BatchFile& file,
                     const std::filesystem::path& output, std::string& said) {
  std::ostringstream captured;
  CommandContext quiet{ctx.args, ctx.in, ctx.out, captured, ctx.dataRoot, false};
  quiet.replaceInvalid = ctx.replaceInvalid;
  options.document = IsDocumentFile(file.input);
  std::error_code ec;
  std::filesystem::create_directories(output.parent_path(), ec);
  int status = kExitFailed;
  if (!options.document && options.from == kAutoFrom) {
    captured << "quilom convert: --from auto converts documents only (their fonts tell the encodings)\n";
  } else if (!options.document) {
    status = ConvertPlainText(quiet, list, options, {file.input.string()}, output.string());
  } else if (const std::string problem = DocumentFontsProblem(options, LoadDefaultFonts(ConverterFolder(ctx)));
             !problem.empty()) {
    captured << "quilom convert: " << problem << "\n";
  } else {
    status = ConvertDocument(quiet, list, options, file.input.string(), output.string());
  }
  said = captured.str();
  return status;
}

std::string Clock(std::chrono::seconds seconds) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%lld:%02lld", static_cast<long long>(seconds.count() / 60),
                static_cast<long long>(seconds.count() % 60));
  return buffer;
}

std::string FirstLine(const std::string& text) {
  std::string line = text.substr(0, text.find('\n'));
  const std::string prefix = "quilom convert: ";
  return line.starts_with(prefix) ? line.substr(prefix.size()) : line;
}

int ConvertBatch(CommandContext& ctx, const EncodingList& list, const Options& options,
                 const std::vector<std::string>& inputs, const std::string& outputFolder, const std::string& patterns,
                 bool makeParents) {
  if (outputFolder.empty() || outputFolder == "-") {
    ctx.err << "quilom convert: several documents or a folder need an output folder: -o FOLDER\n";
    return kExitUsage;
  }
  const std::filesystem::path out = std::filesystem::u8path(outputFolder);
  if (!PrepareOutputFolder(ctx, out, makeParents)) {
    return kExitUsage;
  }
  std::error_code ec;
  const std::vector<BatchFile> files = CollectBatch(inputs, patterns);
  if (files.empty()) {
    ctx.err << "quilom convert: no file matches " << patterns << " in the folders given\n";
    return kExitFailed;
  }
  std::vector<std::shared_ptr<void>> keepRunning;  // the word processor, started once for all
  if (const auto backend = FindDocumentBackend(".odt")) keepRunning.push_back(backend->KeepRunning());

  const auto started = std::chrono::steady_clock::now();
  ProgressBar bar(ctx, "converting");
  int failed = 0, warned = 0;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::filesystem::path output = out / files[i].relative;
    std::string said;
    int status = kExitFailed;
    if (std::filesystem::equivalent(files[i].input, output, ec)) {
      said = "the output would be the input itself";
    } else {
      status = ConvertBatchFile(ctx, list, options, files[i], output, said);
    }
    // On a terminal the line goes over the bar, which is drawn again below it.
    const std::string lineStart = ctx.errIsTerminal ? "\r\x1b[K" : "";
    if (status == kExitFailed || status == kExitUsage) {
      ++failed;
      ctx.err << lineStart << "quilom convert: FAILED " << files[i].input.string() << ": " << FirstLine(said) << "\n";
    } else if (status == kExitLeftOvers && !ctx.quiet) {
      ++warned;
      ctx.err << lineStart << "quilom convert: " << files[i].input.string() << ": " << FirstLine(said) << "\n";
    }
    const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - started);
    const auto left = elapsed * static_cast<long>(files.size() - i - 1) / static_cast<long>(i + 1);
    bar.Update(static_cast<int>((i + 1) * 100 / files.size()),
               std::to_string(i + 1) + "/" + std::to_string(files.size()) + " files, " + std::to_string(failed) +
                   " failed, " + Clock(left) + " left");
  }
  bar.Finish();
  const auto took = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - started);
  ctx.err << "quilom convert: " << files.size() - failed << " of " << files.size() << " files converted into "
          << outputFolder << " in " << Clock(took) << (failed ? ", " + std::to_string(failed) + " failed" : "")
          << (warned ? ", " + std::to_string(warned) + " with warnings" : "") << "\n";
  return failed ? kExitFailed : warned ? kExitLeftOvers : kExitDone;
}

int RunConvert(CommandContext& ctx) {
  std::vector<std::u16string> legacyFonts;
  const std::optional<std::vector<std::string>> words = TakeLegacyFonts(ctx, legacyFonts);
  if (!words) {
    return kExitUsage;
  }
  const ParsedArgs parsed = ParseArgs(
      *words, {"--from", "--to", "--output", "--font", "--unicode-font", "--unmappable", "--replacement", "--pattern"},
      {"--decorative-quotes", "--plain-ra", "--keep-vowel-sign-glyphs", "--legacy-text", "--list", "--parents",
       "--help"});
  if (parsed.flags.count("--help")) {
    ctx.out << "quilom " << Usage() << "\n\n"
            << kTextHelp << "\n"
            << kBatchHelp << "\n"
            << kUnmappableHelp << "\n"
            << kFontHelp << "\n"
            << kExitCodeHelp;
    return kExitDone;
  }
  if (!parsed.error.empty()) {
    ctx.err << "quilom convert: " << parsed.error << "\n";
    return kExitUsage;
  }
  const EncodingList list = LoadEncodingList(ConverterFolder(ctx));
  if (list.names.empty()) {
    ctx.err << "quilom convert: no encodings list in " << ConverterFolder(ctx).string() << "\n";
    return kExitFailed;
  }
  if (parsed.flags.count("--list")) {
    std::string names;
    for (const std::u16string& name : list.names) names += text::Utf16ToUtf8(name) + "\n";
    return WriteStandardOutput(ctx, names, kName) ? kExitDone : kExitFailed;
  }
  std::optional<Options> options = ReadOptions(ctx, parsed, list);
  if (!options) {
    return kExitUsage;
  }
  options->legacyFonts = std::move(legacyFonts);
  const std::vector<std::string> inputs = parsed.positional.empty() ? std::vector<std::string>{""} : parsed.positional;
  const std::string& input = inputs.front();
  const std::string output = parsed.values.count("--output") ? parsed.values.at("--output") : "";
  const bool makeParents = parsed.flags.count("--parents") > 0;
  if (IsBatch(inputs)) {
    const auto pattern = parsed.values.find("--pattern");
    return ConvertBatch(ctx, list, *options, inputs, output,
                        pattern == parsed.values.end() ? kDefaultPatterns : pattern->second, makeParents);
  }
  if (RefuseOutputOverInput(ctx, output, inputs, kName) ||
      !PrepareOutputFolder(ctx, FolderOfOutputFile(output), makeParents)) {
    return kExitUsage;
  }
  const std::string extension = input.empty() ? "" : DocumentExtension(std::filesystem::u8path(input));
  options->document = IsDocumentExtension(extension) || FindDocumentBackend(extension) != nullptr;
  if (options->from == kAutoFrom && (!options->document || options->to != 0)) {
    ctx.err << "quilom convert: --from auto is for documents converted to Unicode: their fonts tell the encodings "
               "(for plain text, quilom detect names it)\n";
    return kExitUsage;
  }
  if (!options->document) {
    if (HasFontOptions(*options) && !ctx.quiet) {
      ctx.err << "quilom convert: note: plain text has no fonts; --legacy-font, --unicode-font and --font "
                 "are for documents and are ignored\n";
    }
    return ConvertPlainText(ctx, list, *options, inputs, output);
  }
  if (inputs.size() > 1) {
    ctx.err << "quilom convert: convert one document at a time\n";
    return kExitUsage;
  }
  const std::string problem = DocumentFontsProblem(*options, LoadDefaultFonts(ConverterFolder(ctx)));
  if (!problem.empty()) {
    ctx.err << "quilom convert: " << problem << "\n";
    return kExitUsage;
  }
  return ConvertDocument(ctx, list, *options, input, output);
}

const RegisterCommand registration({
    kName,
    Usage(),
    "Convert text or a document between a legacy Tamil font encoding and Unicode (or between two legacy "
    "encodings, through Unicode); --help tells which fonts a document run converts",
    RunConvert,
});

}  // namespace
}  // namespace quilom::cli
