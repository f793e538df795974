#include "converter/libreoffice/leftover_check.hpp"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/text/XTextRange.hpp>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "settings/error_report.hpp"
#include "text/utf.hpp"

namespace quilom::converter::libreoffice {

namespace {

std::u16string CharacterClass(const std::set<char16_t>& characters) {
  std::u16string pattern = u"[";
  for (char16_t c : characters) pattern += RegexLiteral(c);
  pattern += u"]+";
  return pattern;
}

std::u16string Describe(const Reference<css::container::XIndexAccess>& found, const std::u16string& fontName) {
  const sal_Int32 count = found->getCount();
  std::u16string first;
  const Reference<css::text::XTextRange> range(found->getByIndex(0), UNO_QUERY);
  if (range.is()) first = ToU16(range->getString()).substr(0, 40);
  return text::AsciiToUtf16(std::to_string(count)) + u" piece(s) of text in the font '" + fontName +
         u"' were left unconverted (the font may come from a paragraph style, or a letter group may span "
         u"differently formatted text); the first reads \"" +
         first + u"\"";
}

}  // namespace

void LeftoverCheck::Note(const std::u16string& fontProperty, const std::u16string& searchedName,
                         const std::u16string& shownName, std::u16string_view findText) {
  if (searchedName.empty()) return;  // a run in any font leaves no font to check
  std::set<char16_t>& characters = looked_[Font{fontProperty, searchedName, shownName}];
  for (char16_t c : findText) {
    if (c != u' ' && c != u'\t') characters.insert(c);
  }
}

void LeftoverCheck::ReportLeftovers(const Reference<css::frame::XModel>& document) {
  const auto looked = std::move(looked_);
  looked_.clear();
  for (const auto& [font, characters] : looked) {
    if (characters.empty()) continue;
    FontSearch search;
    search.text = CharacterClass(characters);
    search.regularExpression = true;
    search.fontProperty = font.property;
    search.fontName = font.searchedName;
    const Reference<css::container::XIndexAccess> found = FindAllInFont(document, search);
    if (found.is() && found->getCount() > 0) {
      ErrorDetails details;
      details.number = found->getCount();
      details.source = u"LibreOffice";
      details.description = Describe(found, font.shownName);
      ReportError(u"LO - Left", details);
    }
  }
}

}  // namespace quilom::converter::libreoffice
