#include "converter/window/word_plain_text_editor.hpp"

#include <utility>

#include "converter/window/word_editor.hpp"

namespace quilom::converter::window {

WordPlainTextEditor::WordPlainTextEditor(AutomationRef application) : application_(std::move(application)) {}

bool WordPlainTextEditor::HasSelection() { return WordDocumentEditor(application_).HasSelection(); }

void WordPlainTextEditor::SetScope(EditScope scope) {
  ErrorDetails error;
  range_ = scope == EditScope::Selection ? GetPath(*application_, {u"ActiveWindow", u"Selection", u"Range"}, error)
                                         : GetPath(*application_, {u"ActiveDocument", u"Content"}, error);
  AutomationValue value;
  if (range_ == nullptr || !range_->Get(u"Text", value)) {
    lastError_ = range_ == nullptr ? error : range_->LastError();
    range_ = nullptr;
    return;
  }
  const auto* textValue = std::get_if<std::u16string>(&value);
  text_.emplace(textValue != nullptr ? *textValue : std::u16string());
}

void WordPlainTextEditor::SetFindFont(std::u16string_view) {}

void WordPlainTextEditor::SetReplacementFont(std::u16string_view fontName) { replacementFont_ = fontName; }

bool WordPlainTextEditor::ReplaceAll(std::u16string_view findText, std::u16string_view replacement) {
  if (!text_) {
    // The scope could not be read: fail the first pair so the run stops and reports it.
    if (lastError_.description.empty()) {
      lastError_ = {0, u"Quilom++", u"the text to convert could not be read from Word"};
    }
    return false;
  }
  return text_->ReplaceAll(findText, replacement);
}

void WordPlainTextEditor::SetScreenUpdating(bool on) { WordDocumentEditor(application_).SetScreenUpdating(on); }

void WordPlainTextEditor::ClearUndo() { WordDocumentEditor(application_).ClearUndo(); }

bool WordPlainTextEditor::Commit() {
  if (!text_ || range_ == nullptr) {
    return true;
  }
  if (!range_->Put(u"Text", text_->Text())) {
    lastError_ = range_->LastError();
    return false;
  }
  if (replacementFont_.empty()) {
    return true;
  }
  ErrorDetails error;
  const AutomationRef font = GetObject(*range_, u"Font", error);
  if (font == nullptr) {
    lastError_ = error;
    return false;
  }
  if (!font->Put(u"Name", replacementFont_)) {
    lastError_ = font->LastError();
    return false;
  }
  return true;
}

}  // namespace quilom::converter::window
