#include "converter/plain_text_editor.hpp"

#include <algorithm>

#include "converter/pair_replacer.hpp"

namespace quilom::converter {

PlainTextEditor::PlainTextEditor(std::u16string text, std::size_t selectionBegin, std::size_t selectionEnd)
    : text_(std::move(text)) {
  selectionEnd_ = std::min(std::max(selectionBegin, selectionEnd), text_.size());
  selectionBegin_ = std::min(std::min(selectionBegin, selectionEnd), selectionEnd_);
}

bool PlainTextEditor::HasSelection() { return selectionEnd_ > selectionBegin_; }

void PlainTextEditor::SetScope(EditScope scope) {
  ApplyQueued();
  scope_ = scope;
}

void PlainTextEditor::SetFindFont(std::u16string_view fontName) { findFont_ = fontName; }

void PlainTextEditor::SetReplacementFont(std::u16string_view fontName) { replacementFont_ = fontName; }

bool PlainTextEditor::ReplaceAll(std::u16string_view findText, std::u16string_view replacement) {
  ++calls_;
  if (!findText.empty()) {
    queued_.push_back({std::u16string(findText), std::u16string(replacement)});
  }
  return true;
}

const std::u16string& PlainTextEditor::Text() {
  ApplyQueued();
  return text_;
}

void PlainTextEditor::ApplyQueued() {
  if (queued_.empty()) {
    return;
  }
  PairReplacer replacer(std::move(queued_));
  queued_.clear();
  if (scope_ == EditScope::WholeDocument) {
    text_ = replacer.Apply(text_, applyProgress_);
    return;
  }
  const std::u16string converted = replacer.Apply(
      std::u16string_view(text_).substr(selectionBegin_, selectionEnd_ - selectionBegin_), applyProgress_);
  text_.replace(selectionBegin_, selectionEnd_ - selectionBegin_, converted);
  selectionEnd_ = selectionBegin_ + converted.size();
}

}  // namespace quilom::converter
