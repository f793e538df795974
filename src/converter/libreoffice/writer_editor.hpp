#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "converter/document_editor.hpp"
#include "converter/libreoffice/font_census.hpp"
#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/leftover_check.hpp"
#include "converter/libreoffice/run_markers.hpp"
#include "converter/libreoffice/selection_tagger.hpp"

// The conversion run's DocumentEditor over a Writer document, through UNO.
//
// A run begins with the first ReplaceAll (or SetScreenUpdating(false)) and ends with
// SetScreenUpdating(true), ClearUndo(), FinishRun() or the editor's end. While it lasts:
//   - the document's controllers are locked (replace-all with font attributes is about three
//     times faster so) and the document carries the temporary markers of RunMarkers;
//   - on a document we loaded ourselves undo recording is off; on the user's own document the
//     whole run is one undo step ("Quilom++ conversion"), unless ClearUndo clears it.
// At its end the markers and temporary selection fonts are removed, leftover text in the find
// fonts is reported (tag "LO - Left"), and the controllers are unlocked.
//
// Decisions of this editor:
//   - WholeDocument scope is the whole document: body, tables, frames, headers, footers and
//     footnotes, as Writer's replace-all covers them.
//   - Selection scope with a find font set converts exactly the selected text of that font
//     (see SelectionTagger). Without a find font, the selection is converted occurrence by
//     occurrence (slower; each replacement takes the formatting at its start).
//   - A pair none of whose characters occurs outside the find font (a census taken when a
//     find font is first used, plus every replacement inserted since) runs as a plain
//     replace-all; other pairs run font-restricted, followed (once the find font's runs have
//     been split by a font change) by a look for the occurrences that Writer's font-restricted
//     replace-all misses next to differently formatted runs.
//   - Body text (paragraphs, table cells) whose find font comes from its paragraph style or
//     the document default gets that font as direct formatting when the font is first used,
//     so that the font-restricted search sees it; elsewhere (headers, footnotes, frames) such
//     text is left and reported.
//   - Replacing with the replacement font splits the find font's runs, after which Writer's
//     font-restricted replace-all misses most occurrences next to differently formatted runs
//     and they must be replaced one by one (milliseconds each). So where it is safe, a pair is
//     replaced without a font: the converted text keeps the find font, splits nothing, and
//     receives the replacement font in one formatting-only replace-all of the converted
//     characters in the find font, made before a later find text could match one of them,
//     before a pair of that font must set its font directly, and at the run's end. Safe means:
//     the find font is matched on the western font name (Writer's complex-script font search
//     does not see Latin letters), its runs have not been split by a font change during the
//     run, and no character of the replacement occurred in the find font when the font was
//     first used, so that every such character found in it later is converted text. The
//     formatting-only pass is followed by a check, without the font restriction, of every
//     occurrence of the converted characters, so that none is left in the find font.
//   - The find font is matched on the complex-script font for text with complex-script
//     letters (Unicode Tamil), on the western font otherwise (legacy encodings).
namespace quilom::converter::libreoffice {

class WriterEditor final : public DocumentEditor {
 public:
  // `ownDocument`: the document was loaded by us for this run and is not the user's view.
  WriterEditor(com::sun::star::uno::Reference<com::sun::star::frame::XModel> document, bool ownDocument);
  ~WriterEditor() override;
  WriterEditor(const WriterEditor&) = delete;
  WriterEditor& operator=(const WriterEditor&) = delete;

  bool HasSelection() override;
  void SetScope(EditScope scope) override;
  void SetFindFont(std::u16string_view fontName) override;
  void SetReplacementFont(std::u16string_view fontName) override;
  bool ReplaceAll(std::u16string_view findText, std::u16string_view replacement) override;
  void SetScreenUpdating(bool on) override;
  void ClearUndo() override;
  ErrorDetails LastError() const override { return lastError_; }

  // Ends a run now (see above). Returns false when the clean-up failed; LastError says why.
  bool FinishRun() noexcept;

 private:
  bool BeginRun();
  void PrepareFindFont(const std::u16string& fontProperty);
  bool CannotMatchOutsideFindFont(const FontSearch& search);
  struct Deferred {
    std::u16string replacementFont;
    std::set<char16_t> characters;
  };
  const FontCensus& CensusOf(const FontSearch& search);
  bool CanDeferFont(const FontSearch& search, const std::u16string& replacement);
  void StyleDeferredTextMatching(const std::u16string& findText);
  void StyleDeferredTextIn(const std::pair<std::u16string, std::u16string>& font);
  void StyleAllDeferredText();
  void StyleDeferredTextNow();
  void StyleDeferredText(const std::pair<std::u16string, std::u16string>& font, const Deferred& pending);
  void ReplaceMissedOccurrences(const FontSearch& search, const std::u16string& replacement);
  bool ReplaceInSelectionWithoutFont(const std::u16string& findText, const std::u16string& replacement);
  void Fail(const ErrorDetails& details);

  com::sun::star::uno::Reference<com::sun::star::frame::XModel> document_;
  bool ownDocument_;
  EditScope scope_ = EditScope::WholeDocument;
  std::u16string findFont_;
  std::u16string replacementFont_;
  std::set<std::u16string> givenFonts_;  // every font the run gave converted text
  bool running_ = false;
  bool controllersLocked_ = false;
  bool undoLocked_ = false;
  bool undoContextOpen_ = false;
  RunMarkers markers_;
  SelectionTagger tagger_;
  std::vector<com::sun::star::uno::Reference<com::sun::star::text::XTextRange>> selection_;
  LeftoverCheck leftovers_;
  std::map<std::pair<std::u16string, std::u16string>, FontCensus> census_;
  // Converted text still in its find font (property, name as searched), waiting for its font.
  std::map<std::pair<std::u16string, std::u16string>, Deferred> deferred_;
  // Find fonts (as searched) some of whose text has received another font during the run.
  std::set<std::pair<std::u16string, std::u16string>> splitFonts_;
  std::set<char16_t> insertedCharacters_;
  std::vector<std::pair<std::u16string, std::u16string>> preparedFonts_;
  ErrorDetails lastError_;
};

}  // namespace quilom::converter::libreoffice
