#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <set>
#include <string>
#include <vector>

#include "converter/document_backends.hpp"

// Writer's font-restricted replace-all misses occurrences once a paragraph holds runs of the
// find font that differ in other formatting (bold next to plain) and replacements have split
// them; finding those one by one costs milliseconds each. A pair none of whose characters
// occurs anywhere outside the find font cannot match outside it, so for such a pair the
// editor uses the plain replace-all, which is fast and misses nothing. The census tells which
// characters occur outside a font.
namespace quilom::converter::libreoffice {

struct FontCensus {
  // Every character that occurs in the document's text (all stories) in some other font than
  // the one asked about. Errs on the side of listing too much: text whose font the search
  // cannot see (inherited from a style) counts as outside.
  std::set<char16_t> outside;
  // Every character that the font-restricted search finds in that font.
  std::set<char16_t> inside;
};

// The characters in and outside `fontName`, as `fontProperty` names it. Throws UNO exceptions.
FontCensus TakeFontCensus(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                          const std::u16string& fontProperty, const std::u16string& fontName);

// Gives every run of the document's text (see text_portions.hpp) whose `fontProperty` is
// `fontName` only by inheritance (from its paragraph style or the document default) that
// font as direct formatting. Writer's font-restricted search sees direct formatting only, so
// without this such text would never be converted. Nothing changes on screen. Returns the
// number of runs changed. Throws UNO exceptions.
int MakeInheritedFontDirect(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                            const std::u16string& fontProperty, const std::u16string& fontName);

// The fonts the document's text is shown in (a run holding Tamil letters by its complex-script
// font, any other by its Western one), in the order first met, each with the first characters
// set in it. Throws UNO exceptions.
std::vector<FontUse> FontsOfText(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);

}  // namespace quilom::converter::libreoffice
