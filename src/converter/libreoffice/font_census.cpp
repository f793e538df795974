#include "converter/libreoffice/font_census.hpp"

#include <map>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/container/XEnumeration.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {

namespace {

void Count(const Reference<css::container::XIndexAccess>& found, std::map<char16_t, long>& counts, long weight) {
  for (sal_Int32 i = 0, count = found.is() ? found->getCount() : 0; i < count; ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    if (!range.is()) continue;
    for (char16_t c : ToU16(range->getString())) counts[c] += weight;
  }
}

struct Inheritance {
  rtl::OUString property;
  rtl::OUString fontName;
  int changed = 0;
};

void MakeDirectInText(const Reference<css::container::XEnumerationAccess>& text, Inheritance& work);

void MakeDirectInPortion(const Reference<css::beans::XPropertySet>& portion, Inheritance& work) {
  const Reference<css::beans::XPropertyState> state(portion, UNO_QUERY);
  if (!state.is() || state->getPropertyState(work.property) == css::beans::PropertyState_DIRECT_VALUE) return;
  rtl::OUString font;
  if ((portion->getPropertyValue(work.property) >>= font) && font == work.fontName) {
    portion->setPropertyValue(work.property, css::uno::Any(work.fontName));
    ++work.changed;
  }
}

void MakeDirectInTable(const Reference<css::uno::XInterface>& element, Inheritance& work) {
  const Reference<css::text::XTextTable> table(element, UNO_QUERY);
  if (!table.is()) return;
  const css::uno::Sequence<rtl::OUString> names = table->getCellNames();
  for (sal_Int32 i = 0; i < names.getLength(); ++i) {
    const Reference<css::container::XEnumerationAccess> cell(table->getCellByName(names[i]), UNO_QUERY);
    if (cell.is()) MakeDirectInText(cell, work);
  }
}

void MakeDirectInText(const Reference<css::container::XEnumerationAccess>& text, Inheritance& work) {
  const Reference<css::container::XEnumeration> elements = text->createEnumeration();
  while (elements->hasMoreElements()) {
    const Reference<css::lang::XServiceInfo> element(elements->nextElement(), UNO_QUERY);
    if (!element.is()) continue;
    if (element->supportsService(ToOUString(u"com.sun.star.text.TextTable"))) {
      MakeDirectInTable(element, work);
      continue;
    }
    const Reference<css::container::XEnumerationAccess> paragraph(element, UNO_QUERY);
    if (!paragraph.is()) continue;
    const Reference<css::container::XEnumeration> portions = paragraph->createEnumeration();
    while (portions->hasMoreElements()) {
      const Reference<css::beans::XPropertySet> portion(portions->nextElement(), UNO_QUERY);
      if (portion.is()) MakeDirectInPortion(portion, work);
    }
  }
}

}  // namespace

int MakeInheritedFontDirect(const Reference<css::frame::XModel>& document, const std::u16string& fontProperty,
                            const std::u16string& fontName) {
  Inheritance work{ToOUString(fontProperty), ToOUString(fontName)};
  const Reference<css::text::XTextDocument> textDocument(document, css::uno::UNO_QUERY_THROW);
  MakeDirectInText(Reference<css::container::XEnumerationAccess>(textDocument->getText(), css::uno::UNO_QUERY_THROW),
                   work);
  return work.changed;
}

FontCensus TakeFontCensus(const Reference<css::frame::XModel>& document, const std::u16string& fontProperty,
                          const std::u16string& fontName) {
  FontSearch everything;
  everything.text = u".+";
  everything.regularExpression = true;
  FontSearch inFont = everything;
  inFont.fontProperty = fontProperty;
  inFont.fontName = fontName;
  std::map<char16_t, long> counts;
  Count(FindAllInFont(document, everything), counts, 1);
  std::map<char16_t, long> inside;
  Count(FindAllInFont(document, inFont), inside, 1);
  FontCensus census;
  for (const auto& [c, count] : inside) {
    counts[c] -= count;
    census.inside.insert(c);
  }
  for (const auto& [c, count] : counts) {
    if (count > 0) census.outside.insert(c);
  }
  return census;
}

}  // namespace quilom::converter::libreoffice
