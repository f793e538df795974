#pragma once

#include <memory>
#include <optional>
#include <string>

#include "converter/document_editor.hpp"
#include "converter/plain_text_editor.hpp"
#include "converter/window/automation.hpp"

// The "Convert As Plain Text" variant of the Word run. The user has said the text carries no
// formatting, so there is nothing for per-pair finds in Word to keep: the scope's text is read
// once, every pair is applied in memory (fonts ignored: all of the scope is converted), and
// Commit writes the result back in one call and gives it the replacement font. A document of
// hundreds of pages is then converted in seconds instead of hundreds of Word round trips.
//
// The scope is "ActiveWindow"."Selection"."Range" or "ActiveDocument"."Content", taken when the
// run binds it; its "Text" is read then and replaced by Commit.
namespace quilom::converter::window {

class WordPlainTextEditor final : public DocumentEditor {
 public:
  explicit WordPlainTextEditor(AutomationRef application);

  bool HasSelection() override;
  void SetScope(EditScope scope) override;
  void SetFindFont(std::u16string_view fontName) override;
  void SetReplacementFont(std::u16string_view fontName) override;
  bool ReplaceAll(std::u16string_view findText, std::u16string_view replacement) override;
  void SetScreenUpdating(bool on) override;
  void ClearUndo() override;
  ErrorDetails LastError() const override { return lastError_; }

  // Writes the converted text over the scope and sets its font to the last replacement font
  // (when one was set). False, with LastError, when Word refused; the document is then as it
  // was before the run. Does nothing when no scope was bound.
  bool Commit();

 private:
  AutomationRef application_;
  AutomationRef range_;
  std::optional<PlainTextEditor> text_;
  std::u16string replacementFont_;
  ErrorDetails lastError_;
};

}  // namespace quilom::converter::window
