#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "settings/error_report.hpp"

// What the conversion run needs from a word processor, and from the person at the screen.
//
// The run applies a conversion table as one replace-all per pair, in table order. It never
// talks to a word processor directly: it drives a DocumentEditor, which the Word automation
// layer, the LibreOffice layer and the in-memory plain-text editor each implement, and it asks
// its questions through a Prompter, so that every decision of the run is tested on Linux.
//
// Threading: everything is called on the caller's thread, one call at a time.
// No call may throw: implementations trap their own failures and report them as below.
namespace quilom::converter {

// Which text the replace-alls work on.
enum class EditScope {
  Selection,     // the text selected when the run began
  WholeDocument  // the document's main text (the body, as Word's "Content" range holds it)
};

// One open document, seen as text that can be searched and replaced.
//
// Find semantics every implementation must give ReplaceAll (the run relies on them; the
// in-memory editor is the reference):
//   - `findText` and `replacement` are literal: no character is special. Word's find treats
//     "^" as the start of a special code, so the Word implementation doubles every "^" itself
//     (see EscapeCaretsForWord in conversion_table.hpp) right before it sets the find and
//     replacement texts; the run and the tables always pass literal text. Wildcards / regular
//     expressions are off.
//   - case-sensitive, code-unit exact (legacy fonts keep different glyphs under 'a' and 'A'):
//     match case on, whole words off, "sounds like" and "all word forms" off, and no matching
//     that folds diacritics, widths or Kashida.
//   - occurrences are found left to right, without overlap; text that a replacement inserts is
//     never searched again by the same call (it is by later pairs).
//   - the search covers the scope once and stops at its end (no wrap, no question).
//   - an empty `findText` replaces nothing and succeeds.
//   - when a find font is set, only text in that font matches; when a replacement font is set,
//     the inserted text gets that font. Other formatting of the surrounding text is kept.
class DocumentEditor {
 public:
  virtual ~DocumentEditor() = default;

  // True when the user has selected some text (an insertion point alone is no selection).
  virtual bool HasSelection() = 0;

  // Binds the scope of every later ReplaceAll. In WholeDocument scope the editor searches the
  // whole main text on each call, whatever the pairs before it did to the text's length. In
  // Selection scope the selection's range is kept across the calls and grows or shrinks with
  // the replacements made inside it.
  virtual void SetScope(EditScope scope) = 0;

  // The font name that found text must have. Empty: any font.
  virtual void SetFindFont(std::u16string_view fontName) = 0;
  // The font name given to replacement text. Empty: the replacement keeps the found text's
  // font.
  virtual void SetReplacementFont(std::u16string_view fontName) = 0;

  // Replaces every occurrence of `findText` in the scope by `replacement` (see the semantics
  // above). Returns false when the word processor failed; `LastError` then says why, and what
  // was replaced before the failure stays in the document.
  virtual bool ReplaceAll(std::u16string_view findText, std::u16string_view replacement) = 0;

  // Turns the word processor's screen updating off for the run and on again after it. Editors
  // without a screen ignore it.
  virtual void SetScreenUpdating(bool on) = 0;

  // Clears the document's undo list, called once after a run: a run makes hundreds of
  // replace-alls, whose undo records would otherwise swamp the word processor.
  virtual void ClearUndo() = 0;

  // The failure of the last call that returned false: number, source, description, as the
  // shared problem report shows them.
  virtual ErrorDetails LastError() const = 0;
};

enum class PromptAnswer { Yes, No, Cancel, Other };

// Questions and notices on the screen. Each is a modal message box titled "Quilom++" in the
// Windows program; tests give fixed answers.
class Prompter {
 public:
  virtual ~Prompter() = default;
  // Yes / No / Cancel buttons. A closed box or any other button is PromptAnswer::Other.
  virtual PromptAnswer AskYesNoCancel(std::u16string_view message) = 0;
  // Yes / No buttons; `defaultNo` makes No the default button.
  virtual PromptAnswer AskYesNo(std::u16string_view message, bool defaultNo) = 0;
  // An information message with an OK button.
  virtual void Inform(std::u16string_view message) = 0;
};

// Sets the window's progress label (`lblPerc`) and lets the window repaint. The command line
// draws its progress bar from it; tests record it.
using ProgressLabel = std::function<void(std::u16string_view text)>;

}  // namespace quilom::converter
