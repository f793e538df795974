#include "converter/window/convert_click.hpp"

#include <exception>
#include <memory>

#include "converter/convert_checks.hpp"
#include "converter/quote_conversion.hpp"
#include "converter/window/word_editor.hpp"
#include "converter/window/word_plain_text_editor.hpp"
#include "text/utf.hpp"

namespace quilom::converter::window {
namespace {

std::u16string TextAt(const std::vector<std::u16string>& rows, int position) {
  return position >= 0 && static_cast<std::size_t>(position) < rows.size() ? rows[static_cast<std::size_t>(position)]
                                                                           : std::u16string();
}

ClickOutcome Stop(const ClickServices& services, std::u16string message) {
  services.prompter->Inform(message);
  return {std::move(message), std::nullopt};
}

RunOutcome RunOverWordOnce(const ConversionRequest& request, const AutomationRef& application, bool plainText,
                           const ClickServices& services) {
  if (!plainText) {
    WordDocumentEditor editor(application);
    return RunConversion(request, editor, *services.prompter, services.progress, services.clock);
  }
  WordPlainTextEditor editor(application);
  RunOutcome outcome = RunConversion(request, editor, *services.prompter, services.progress, services.clock);
  if (outcome.status == RunStatus::Completed && !editor.Commit()) {
    ReportError(request.direction == ConversionDirection::LegacyToUnicode ? kLegacyToUnicodeTag : kUnicodeToLegacyTag,
                editor.LastError());
    outcome.status = RunStatus::Failed;
  }
  return outcome;
}

RunOutcome RunOverWord(const ConversionRequest& request, const AutomationRef& application, bool plainText,
                       const ClickServices& services) {
  const RunOutcome outcome = RunOverWordOnce(request, application, plainText, services);
  if (outcome.status == RunStatus::Failed && services.progress) {
    services.progress(kRunStopped);
  }
  return outcome;
}

ConversionRequest BuildRequest(const WindowSnapshot& window, ConversionDirection direction, std::u16string table) {
  ConversionRequest request;
  request.direction = direction;
  request.tableText = std::move(table);
  request.legacyFonts = window.legacyFonts;
  request.unicodeFonts = window.unicodeFonts;
  request.convertVowelSigns = window.vowelSigns;
  return request;
}

ClickOutcome ConvertAfterWordCheck(const WindowSnapshot& window, const AutomationRef& application,
                                   const ClickServices& services) {
  if (services.prompter->AskYesNo(kBackupQuestion, false) != PromptAnswer::Yes) {
    return {};
  }
  ConvertSelection selection;
  selection.fromText = TextAt(window.encodings, window.fromPosition);
  selection.toText = TextAt(window.encodings, window.toPosition);
  selection.fromPosition = window.fromPosition;
  selection.toPosition = window.toPosition;
  selection.legacyFontRows = static_cast<int>(window.legacyFonts.rows.size());
  selection.normalQuotes = window.normalQuotes;
  selection.irRiReeForm = window.irRiReeForm;
  const ConvertDecision decision = DecideConversion(selection);
  if (!decision.stopMessage.empty()) {
    return Stop(services, decision.stopMessage);
  }
  std::u16string table = LoadTableText(services.converterFolder, decision.tableId);
  if (table.empty()) {
    return {};  // LoadTableText has told the user which file is missing
  }
  return {
      {},
      RunOverWord(BuildRequest(window, decision.direction, std::move(table)), application, window.plainText, services)};
}

void ReportUnexpected(std::u16string_view tag, const char* what) {
  ReportError(tag, {0, u"Quilom++", what != nullptr ? text::Utf8ToUtf16(what) : u"unexpected failure"});
}

}  // namespace

ClickOutcome ConvertClick(const WindowSnapshot& window, const ClickServices& services) {
  try {
    const WordCheck check = CheckWordProcessor(*services.connector, services.binding);
    if (check.application == nullptr) {
      return Stop(services, check.stopMessage);
    }
    return ConvertAfterWordCheck(window, check.application, services);
  } catch (const std::exception& e) {
    ReportUnexpected(u"TFC - Cnv", e.what());
  } catch (...) {
    ReportUnexpected(u"TFC - Cnv", nullptr);
  }
  return {};
}

ClickOutcome ConvertQuotesClick(const WindowSnapshot& window, std::u16string_view fromQuote,
                                const std::vector<std::u16string>& legacyQuotes, std::u16string_view toQuote,
                                const ClickServices& services) {
  try {
    const AutomationRef application = services.connector->AttachRunning();
    const bool documentOpen = application != nullptr && OpenDocumentCount(*application) > 0;
    const QuoteDecision decision =
        DecideQuoteConversion(documentOpen, window.fromPosition, window.toPosition, fromQuote, legacyQuotes, toQuote,
                              static_cast<int>(window.legacyFonts.rows.size()));
    if (!decision.stopMessage.empty()) {
      return Stop(services, decision.stopMessage);
    }
    const ConversionRequest request = BuildRequest(window, ConversionDirection::UnicodeToLegacy, decision.tableText);
    return {{}, RunOverWord(request, application, window.plainText, services)};
  } catch (const std::exception& e) {
    ReportUnexpected(u"CQ1", e.what());
  } catch (...) {
    ReportUnexpected(u"CQ1", nullptr);
  }
  return {};
}

PlainTextClick OnPlainTextClick(bool ignore, bool checkedNow, Prompter& prompter) {
  if (ignore) {
    return {checkedNow, false};
  }
  if (checkedNow && prompter.AskYesNo(kPlainTextWarning, true) != PromptAnswer::Yes) {
    return {false, true};
  }
  return {checkedNow, true};
}

}  // namespace quilom::converter::window
