#include "converter/libreoffice/font_census.hpp"

#include <map>

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/text/XTextRange.hpp>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {
namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

void Count(const Reference<css::container::XIndexAccess>& found, std::map<char16_t, long>& counts, long weight) {
  for (sal_Int32 i = 0; found.is() && i < found->getCount(); ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    if (!range.is()) continue;
    for (char16_t c : ToU16(range->getString())) counts[c] += weight;
  }
}

}  // namespace

std::set<char16_t> CharactersOutsideFont(const Reference<css::frame::XModel>& document,
                                         const std::u16string& fontProperty, const std::u16string& fontName) {
  FontSearch everything;
  everything.text = u".+";
  everything.regularExpression = true;
  FontSearch inFont = everything;
  inFont.fontProperty = fontProperty;
  inFont.fontName = fontName;
  std::map<char16_t, long> counts;
  Count(FindAllInFont(document, everything), counts, 1);
  Count(FindAllInFont(document, inFont), counts, -1);
  std::set<char16_t> outside;
  for (const auto& [c, count] : counts) {
    if (count > 0) outside.insert(c);
  }
  return outside;
}

}  // namespace quilom::converter::libreoffice
