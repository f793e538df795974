#pragma once

#include <string>
#include <string_view>

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/XModel.hpp>

// Writer's search and replace-all, set up the way the conversion needs it: case-sensitive,
// no whole words, no similarity search, and, unless a regular expression is asked for,
// literal text, so "^", "\", "$", "&" and the like are found and inserted as they stand.
namespace quilom::converter::libreoffice {

// What to look for. With an empty `fontName` text in any font matches; otherwise only text
// whose `fontProperty` ("CharFontName", "CharFontNameComplex") is that name.
struct FontSearch {
  std::u16string text;
  bool regularExpression = false;
  std::u16string fontProperty = u"CharFontName";
  std::u16string fontName;
};

// The font property that decides a find text's font. Writer keeps three fonts per run and
// shows complex-script letters (Tamil among them) in the complex one, so text containing such
// letters is matched by "CharFontNameComplex" and everything else by "CharFontName".
std::u16string FontPropertyFor(std::u16string_view findText);

// Replace-all over the whole document (body, tables, frames, headers, footnotes). A non-empty
// `replacementFont` is given to the inserted text as its western, Asian and complex font, so
// that whatever script the text is shown in, it shows in that font; other formatting of the
// found text is kept. Returns the number of replacements. Throws UNO exceptions.
sal_Int32 ReplaceAllInFont(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                           const FontSearch& search, std::u16string_view replacement,
                           std::u16string_view replacementFont);

// Every match in the document, as text ranges. Throws UNO exceptions.
com::sun::star::uno::Reference<com::sun::star::container::XIndexAccess> FindAllInFont(
    const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document, const FontSearch& search);

// True when the document holds `text` anywhere, in any font. Throws UNO exceptions.
bool DocumentContains(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                      std::u16string_view text);

// "\x{HHHH}" for each code unit: a regular-expression atom that matches exactly that character.
std::u16string RegexLiteral(char16_t c);

}  // namespace quilom::converter::libreoffice
