#include "converter/plain_text_stream.hpp"

#include <algorithm>

#include "converter/plain_text_editor.hpp"

namespace quilom::converter {
namespace {

// Converts the whole of the text given: no selection to ask about, and plain text has no fonts
// to choose among.
class WholeTextPrompter final : public Prompter {
 public:
  PromptAnswer AskYesNoCancel(std::u16string_view) override { return PromptAnswer::No; }
  PromptAnswer AskYesNo(std::u16string_view, bool) override { return PromptAnswer::Yes; }
  void Inform(std::u16string_view) override {}
};

}  // namespace

PlainTextStream::PlainTextStream(std::vector<PlainTextStep> steps, UnmappablePolicy policy, char16_t replacement)
    : steps_(std::move(steps)), policy_(policy), replacement_(replacement) {}

bool PlainTextStream::Feed(std::u16string_view piece, std::u16string& out) {
  std::optional<std::u16string> lines = blocks_.Add(piece);
  return !lines || ConvertLines(std::move(*lines), out);
}

bool PlainTextStream::Finish(std::u16string& out) {
  std::u16string rest = blocks_.Rest();
  return rest.empty() || ConvertLines(std::move(rest), out);
}

bool PlainTextStream::ConvertLines(std::u16string lines, std::u16string& out) {
  const std::size_t lineCount = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), u'\n'));
  for (const PlainTextStep& step : steps_) {
    std::optional<std::u16string> converted = RunStep(step, std::move(lines));
    if (!converted) return false;
    lines = std::move(*converted);
  }
  out += lines;
  linesDone_ += lineCount;
  return true;
}

std::optional<std::u16string> PlainTextStream::RunStep(const PlainTextStep& step, std::u16string text) {
  std::optional<UnmappableGuard> guard;
  if (step.target) {
    guard.emplace(*step.target, policy_, replacement_);
    text = guard->PrepareSource(text);
  }
  const std::u16string source = guard ? text : std::u16string();
  PlainTextEditor editor(std::move(text));
  WholeTextPrompter prompter;
  if (RunConversion(step.request, editor, prompter, {}, [] { return std::int64_t{0}; }).status !=
      RunStatus::Completed) {
    return std::nullopt;
  }
  std::u16string converted = editor.Text();
  if (!guard) return converted;
  converted = guard->FinishWritten(converted, source);
  findings_.Merge(guard->Findings(), linesDone_);
  return converted;
}

}  // namespace quilom::converter
