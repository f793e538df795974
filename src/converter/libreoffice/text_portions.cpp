#include "converter/libreoffice/text_portions.hpp"

#include <com/sun/star/container/XEnumeration.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XEndnotesSupplier.hpp>
#include <com/sun/star/text/XFootnotesSupplier.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextFramesSupplier.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {
namespace {

using css::container::XEnumerationAccess;

void VisitText(const Reference<XEnumerationAccess>& text, const PortionVisitor& visit);

void VisitTable(const Reference<css::text::XTextTable>& table, const PortionVisitor& visit) {
  const css::uno::Sequence<rtl::OUString> names = table->getCellNames();
  for (sal_Int32 i = 0; i < names.getLength(); ++i) {
    const Reference<XEnumerationAccess> cell(table->getCellByName(names[i]), UNO_QUERY);
    if (cell.is()) VisitText(cell, visit);
  }
}

void VisitText(const Reference<XEnumerationAccess>& text, const PortionVisitor& visit) {
  if (!text.is()) return;
  const Reference<css::container::XEnumeration> elements = text->createEnumeration();
  while (elements->hasMoreElements()) {
    const Reference<css::lang::XServiceInfo> element(elements->nextElement(), UNO_QUERY);
    if (!element.is()) continue;
    if (const Reference<css::text::XTextTable> table(element, UNO_QUERY); table.is()) {
      VisitTable(table, visit);
      continue;
    }
    const Reference<XEnumerationAccess> paragraph(element, UNO_QUERY);
    if (!paragraph.is()) continue;
    const Reference<css::container::XEnumeration> portions = paragraph->createEnumeration();
    while (portions->hasMoreElements()) {
      const Reference<css::beans::XPropertySet> portion(portions->nextElement(), UNO_QUERY);
      if (portion.is()) visit(portion);
    }
  }
}

// Footnotes, endnotes and frames: collections of objects that each hold a text.
void VisitEach(const Reference<css::container::XIndexAccess>& texts, const PortionVisitor& visit) {
  for (sal_Int32 i = 0, count = texts.is() ? texts->getCount() : 0; i < count; ++i) {
    const Reference<css::text::XText> text(texts->getByIndex(i), UNO_QUERY);
    if (text.is()) VisitText(Reference<XEnumerationAccess>(text, UNO_QUERY), visit);
  }
}

void VisitHeadersAndFooters(const Reference<css::frame::XModel>& document, const PortionVisitor& visit) {
  const Reference<css::style::XStyleFamiliesSupplier> families(document, UNO_QUERY);
  if (!families.is()) return;
  const Reference<css::container::XNameAccess> pageStyles(
      families->getStyleFamilies()->getByName(ToOUString(u"PageStyles")), UNO_QUERY);
  if (!pageStyles.is()) return;
  const css::uno::Sequence<rtl::OUString> names = pageStyles->getElementNames();
  for (sal_Int32 i = 0; i < names.getLength(); ++i) {
    const Reference<css::beans::XPropertySet> style(pageStyles->getByName(names[i]), UNO_QUERY);
    if (!style.is()) continue;
    for (const char16_t* part :
         {u"HeaderText", u"HeaderTextFirst", u"HeaderTextLeft", u"FooterText", u"FooterTextFirst", u"FooterTextLeft"}) {
      if (!style->getPropertySetInfo()->hasPropertyByName(ToOUString(part))) continue;
      VisitText(Reference<XEnumerationAccess>(style->getPropertyValue(ToOUString(part)), UNO_QUERY), visit);
    }
  }
}

}  // namespace

void ForEachTextPortion(const Reference<css::frame::XModel>& document, const PortionVisitor& visit) {
  const Reference<css::text::XTextDocument> textDocument(document, UNO_QUERY_THROW);
  VisitText(Reference<XEnumerationAccess>(textDocument->getText(), UNO_QUERY_THROW), visit);
  if (const Reference<css::text::XTextFramesSupplier> frames(document, UNO_QUERY); frames.is()) {
    VisitEach(Reference<css::container::XIndexAccess>(frames->getTextFrames(), UNO_QUERY), visit);
  }
  if (const Reference<css::text::XFootnotesSupplier> footnotes(document, UNO_QUERY); footnotes.is()) {
    VisitEach(footnotes->getFootnotes(), visit);
  }
  if (const Reference<css::text::XEndnotesSupplier> endnotes(document, UNO_QUERY); endnotes.is()) {
    VisitEach(endnotes->getEndnotes(), visit);
  }
  // Text boxes (what other word processors' frames become) are shapes on the draw page.
  if (const Reference<css::drawing::XDrawPageSupplier> page(document, UNO_QUERY); page.is()) {
    VisitEach(Reference<css::container::XIndexAccess>(page->getDrawPage(), UNO_QUERY), visit);
  }
  VisitHeadersAndFooters(document, visit);
}

}  // namespace quilom::converter::libreoffice
