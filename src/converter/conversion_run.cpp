#include "converter/conversion_run.hpp"

#include <optional>
#include <string>

#include "settings/error_report.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

constexpr std::size_t kProgressEvery = 50;

// Which fonts the passes use: one pass per find font, in order.
struct FontPlan {
  std::vector<std::u16string> findFonts;
  std::u16string replacementFont;
  bool namedPasses = false;  // progress names the font of each pass
};

std::u16string FontOfRow(const FontsList& list, int row) {
  if (row == 1) {
    return list.defaultFont;
  }
  if (row >= 2 && static_cast<std::size_t>(row) < list.rows.size()) {
    return list.rows[static_cast<std::size_t>(row)];
  }
  return {};
}

std::u16string ThirdRowFont(const FontsList& list) { return list.rows.size() >= 3 ? list.rows[2] : u""; }

std::optional<EditScope> ChooseScope(DocumentEditor& editor, Prompter& prompter) {
  if (!editor.HasSelection()) {
    return EditScope::WholeDocument;
  }
  switch (prompter.AskYesNoCancel(kRangeQuestion)) {
    case PromptAnswer::Yes:
      return EditScope::Selection;
    case PromptAnswer::No:
      return EditScope::WholeDocument;
    default:
      prompter.Inform(kNeitherYesNorNo);
      return std::nullopt;
  }
}

// The legacy fonts to find in, for the legacy-to-Unicode direction.
std::optional<std::vector<std::u16string>> LegacyFindFonts(const FontsList& list, Prompter& prompter,
                                                           bool& namedPasses) {
  if (list.selected != 0) {
    return std::vector<std::u16string>{FontOfRow(list, list.selected)};
  }
  if (list.rows.size() < 4) {
    return std::vector<std::u16string>{ThirdRowFont(list)};
  }
  switch (prompter.AskYesNoCancel(kAnyFontQuestion)) {
    case PromptAnswer::Yes:
      return std::vector<std::u16string>{u""};
    case PromptAnswer::No: {
      std::vector<std::u16string> fonts;
      for (std::size_t row = 2; row < list.rows.size(); ++row) {
        if (!list.rows[row].empty()) {
          fonts.push_back(list.rows[row]);
        }
      }
      namedPasses = true;
      return fonts;
    }
    default:
      prompter.Inform(kNeitherYesNorNo);
      return std::nullopt;
  }
}

std::optional<FontPlan> ChooseFonts(const ConversionRequest& request, Prompter& prompter) {
  const std::u16string unicodeFont =
      request.unicodeFonts.selected == 0 ? u"" : FontOfRow(request.unicodeFonts, request.unicodeFonts.selected);
  FontPlan plan;
  if (request.direction == ConversionDirection::UnicodeToLegacy) {
    plan.findFonts = {unicodeFont};
    plan.replacementFont = request.legacyFonts.selected == 0
                               ? ThirdRowFont(request.legacyFonts)
                               : FontOfRow(request.legacyFonts, request.legacyFonts.selected);
    return plan;
  }
  auto findFonts = LegacyFindFonts(request.legacyFonts, prompter, plan.namedPasses);
  if (!findFonts) {
    return std::nullopt;
  }
  plan.findFonts = std::move(*findFonts);
  plan.replacementFont = unicodeFont;
  return plan;
}

std::u16string Decimal(std::int64_t value) { return text::AsciiToUtf16(std::to_string(value)); }

bool Skipped(const ConversionTable& table, std::size_t index, bool convertVowelSigns) {
  if (convertVowelSigns || !table.vowelSignFirst || index < *table.vowelSignFirst) {
    return false;
  }
  const std::u16string& replacement = table.pairs[index].replacement;
  return !replacement.empty() && replacement.front() >= 0x0BBE && replacement.front() <= 0x0BCD;
}

class Pass {
 public:
  Pass(const ConversionTable& table, const ConversionRequest& request, DocumentEditor& editor,
       const ProgressLabel& progress, RunOutcome& outcome)
      : table_(table), request_(request), editor_(editor), progress_(progress), outcome_(outcome) {}

  // One replace-all per pair. False when the editor failed (already reported).
  bool Run(const std::u16string& findFont, const std::u16string& replacementFont, bool named) {
    const std::size_t count = table_.pairs.size();
    for (std::size_t i = 0; i < count; ++i) {
      if (Skipped(table_, i, request_.convertVowelSigns)) {
        continue;
      }
      const TablePair& pair = table_.pairs[i];
      editor_.SetFindFont(table_.InPlaceholderBlock(i) ? std::u16string() : findFont);
      editor_.SetReplacementFont(replacementFont);
      ++outcome_.replaceAllCalls;
      if (!editor_.ReplaceAll(pair.find, pair.replacement)) {
        ReportFailure(i, count);
        return false;
      }
      if (i >= 1 && i % kProgressEvery == 0) {
        const std::u16string percent = Decimal(static_cast<std::int64_t>(i * 100 / count)) + u"%";
        Show(named ? findFont + u" (" + percent + u")" : percent);
      }
    }
    return true;
  }

 private:
  void Show(const std::u16string& text) {
    if (progress_) {
      progress_(text);
    }
  }

  void ReportFailure(std::size_t index, std::size_t count) {
    ErrorDetails details = editor_.LastError();
    details.description += u" (the conversion stopped at pair " + Decimal(static_cast<std::int64_t>(index + 1)) +
                           u" of " + Decimal(static_cast<std::int64_t>(count)) + u": \"" + table_.pairs[index].find +
                           u"\"; the pairs before it were converted)";
    ReportError(request_.direction == ConversionDirection::LegacyToUnicode ? kLegacyToUnicodeTag : kUnicodeToLegacyTag,
                details);
  }

  const ConversionTable& table_;
  const ConversionRequest& request_;
  DocumentEditor& editor_;
  const ProgressLabel& progress_;
  RunOutcome& outcome_;
};

RunOutcome RunPasses(const ConversionRequest& request, const FontPlan& plan, DocumentEditor& editor,
                     const ProgressLabel& progress, const SecondsClock& clock) {
  RunOutcome outcome;
  const ConversionTable table = ParseConversionTable(request.tableText);
  if (progress) {
    progress(kInProgress);
  }
  const std::int64_t start = clock ? clock() : 0;
  editor.SetScreenUpdating(false);
  Pass pass(table, request, editor, progress, outcome);
  outcome.status = RunStatus::Completed;
  for (const std::u16string& findFont : plan.findFonts) {
    if (!pass.Run(findFont, plan.replacementFont, plan.namedPasses)) {
      outcome.status = RunStatus::Failed;
      break;
    }
  }
  editor.SetScreenUpdating(true);
  editor.ClearUndo();
  if (outcome.status == RunStatus::Completed && progress) {
    const std::int64_t seconds = clock ? clock() - start : 0;
    progress(u"100% Completed. Time taken = " + Decimal(seconds) + u" seconds");
  }
  return outcome;
}

}  // namespace

RunOutcome RunConversion(const ConversionRequest& request, DocumentEditor& editor, Prompter& prompter,
                         const ProgressLabel& progress, const SecondsClock& clock) {
  try {
    const std::optional<EditScope> scope = ChooseScope(editor, prompter);
    if (!scope) {
      return {};
    }
    const std::optional<FontPlan> plan = ChooseFonts(request, prompter);
    if (!plan) {
      return {};
    }
    editor.SetScope(*scope);
    return RunPasses(request, *plan, editor, progress, clock);
  } catch (const std::exception& e) {
    ReportError(request.direction == ConversionDirection::LegacyToUnicode ? kLegacyToUnicodeTag : kUnicodeToLegacyTag,
                {0, u"Quilom++", text::Utf8ToUtf16(e.what())});
  } catch (...) {
    ReportError(request.direction == ConversionDirection::LegacyToUnicode ? kLegacyToUnicodeTag : kUnicodeToLegacyTag,
                {0, u"Quilom++", u"unexpected failure"});
  }
  RunOutcome failed;
  failed.status = RunStatus::Failed;
  return failed;
}

}  // namespace quilom::converter
