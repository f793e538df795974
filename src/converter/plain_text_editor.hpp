#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "converter/conversion_table.hpp"
#include "converter/document_editor.hpp"

// A DocumentEditor over text in memory: the command line's plain-text files, and the reference
// that the word-processor editors are held to.
//
// Plain text has no fonts: the find and replacement fonts are recorded and otherwise ignored,
// so every replace-all sees all of the scope. ReplaceAll keeps the pairs it is given and applies
// them, in order, when the text is next read or the scope changes; the result is exactly that
// of applying each call at once (see PairReplacer), only faster.
namespace quilom::converter {

class PlainTextEditor final : public DocumentEditor {
 public:
  // `selectionBegin` / `selectionEnd` are code-unit offsets; equal offsets are no selection.
  explicit PlainTextEditor(std::u16string text, std::size_t selectionBegin = 0, std::size_t selectionEnd = 0);

  bool HasSelection() override;
  void SetScope(EditScope scope) override;
  void SetFindFont(std::u16string_view fontName) override;
  void SetReplacementFont(std::u16string_view fontName) override;
  bool ReplaceAll(std::u16string_view findText, std::u16string_view replacement) override;
  void SetScreenUpdating(bool) override {}
  void ClearUndo() override {}
  ErrorDetails LastError() const override { return {}; }

  // The text with every replace-all so far applied.
  const std::u16string& Text();
  // Receives 0..100 while queued replace-alls are applied (a long text takes a moment).
  void SetApplyProgress(std::function<void(int percent)> progress) { applyProgress_ = std::move(progress); }

  std::size_t ReplaceAllCalls() const { return calls_; }
  const std::u16string& FindFont() const { return findFont_; }
  const std::u16string& ReplacementFont() const { return replacementFont_; }

 private:
  void ApplyQueued();

  std::u16string text_;
  std::size_t selectionBegin_;
  std::size_t selectionEnd_;
  EditScope scope_ = EditScope::WholeDocument;
  std::vector<TablePair> queued_;
  std::u16string findFont_;
  std::u16string replacementFont_;
  std::size_t calls_ = 0;
  std::function<void(int)> applyProgress_;
};

}  // namespace quilom::converter
