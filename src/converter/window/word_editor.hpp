#pragma once

#include <string>
#include <string_view>

#include "converter/document_editor.hpp"
#include "converter/window/automation.hpp"

// The conversion run's document editor over Word's automation model, called by member name.
//
// Which Word members it uses, and why:
//   - The selection is "ActiveWindow"."Selection"; it counts as a selection when its "End"
//     lies after its "Start" (an insertion point is no selection).
//   - Selection scope searches with the selection's own "Find": Word then keeps the selection
//     around the text as replacements grow or shrink it. Wrap is wdFindStop (0), so the search
//     never runs on past the selection or asks whether to continue.
//   - Whole-document scope takes "ActiveDocument"."Content" afresh for every replace-all: a
//     range whose find succeeds is moved onto the match, so a range kept from one pair to the
//     next would shrink to the last match.
//   - Each replace-all clears the find and replacement formatting, sets "Font"."Name" on the
//     find and on its "Replacement" when a font is set, sets "Format" to True when any font is
//     set, and calls "Execute" with named arguments: FindText, ReplaceWith, Replace = 2
//     (wdReplaceAll), MatchCase True, MatchWholeWord, MatchWildcards, MatchSoundsLike,
//     MatchAllWordForms False, Forward True, Wrap 0, Format. The texts have every "^" doubled,
//     since Word reads "^" as the start of a special code.
//   - "ScreenUpdating" is the application's property; "UndoClear" is called on
//     "ActiveDocument".
//
// Failures: ReplaceAll returns false with LastError set (the run reports it with its own tag);
// the calls that cannot return a failure report it here with kWordEditorTag and carry on.
namespace quilom::converter::window {

inline constexpr std::u16string_view kWordEditorTag = u"TFC - Word";

inline constexpr std::int32_t kWdReplaceAll = 2;
inline constexpr std::int32_t kWdFindStop = 0;

class WordDocumentEditor final : public DocumentEditor {
 public:
  // `application` is Word's "Application" object; it must stay usable for the editor's life.
  explicit WordDocumentEditor(AutomationRef application);

  bool HasSelection() override;
  void SetScope(EditScope scope) override;
  void SetFindFont(std::u16string_view fontName) override { findFont_ = fontName; }
  void SetReplacementFont(std::u16string_view fontName) override { replacementFont_ = fontName; }
  bool ReplaceAll(std::u16string_view findText, std::u16string_view replacement) override;
  void SetScreenUpdating(bool on) override;
  void ClearUndo() override;
  ErrorDetails LastError() const override { return lastError_; }

 private:
  AutomationRef ScopeFind();
  bool PrepareFind(AutomationObject& find);
  bool SetFontName(AutomationObject& formatHolder, std::u16string_view fontName);
  bool Fail(const ErrorDetails& error);

  AutomationRef application_;
  EditScope scope_ = EditScope::WholeDocument;
  std::u16string findFont_;
  std::u16string replacementFont_;
  ErrorDetails lastError_;
};

}  // namespace quilom::converter::window
