#include "shell/typing_output.hpp"

#include <exception>

#include "settings/error_report.hpp"
#include "text/utf.hpp"

namespace quilom::shell {

TypingOutput::TypingOutput(InputSubmitter& submitter) : submitter_(submitter) { plan_.reserve(64); }

void TypingOutput::Emit(int eraseCount, std::u16string_view text) {
  if (ownEditor_ == nullptr || !typeIntoOwnEditor_) {
    if (paste_)
      PlanPaste(eraseCount, text, plan_);
    else
      PlanReplacement(eraseCount, text, plan_);
    submitter_.Submit(plan_, text);
    if (!text.empty()) lastSentCodeUnit_ = text.back();
    return;
  }
  try {
    ReplaceInEditor(*ownEditor_, caretSnapsToClusters_, eraseCount, text);
  } catch (const std::exception& error) {
    ReportError(u"PTevMsgH - ", {0, u"OutputReplacement", text::Utf8ToUtf16(error.what())});
  } catch (...) {
    ReportError(u"PTevMsgH - ", {0, u"OutputReplacement", u"unknown error"});
  }
}

}  // namespace quilom::shell
