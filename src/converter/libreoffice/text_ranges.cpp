#include "converter/libreoffice/text_ranges.hpp"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>

#include "converter/libreoffice/uno_names.hpp"

namespace quilom::converter::libreoffice {

namespace {

using TextRange = Reference<css::text::XTextRange>;

// The comparer of the text both ranges belong to; empty when they belong to different texts.
Reference<css::text::XTextRangeCompare> SharedComparer(const TextRange& a, const TextRange& b) {
  const Reference<css::text::XText> text = a->getText();
  if (text != b->getText()) return {};
  return Reference<css::text::XTextRangeCompare>(text, UNO_QUERY);
}

// compareRegionStarts: 1 when the first point lies before the second, 0 same, -1 after.
bool Before(const Reference<css::text::XTextRangeCompare>& compare, const TextRange& a, const TextRange& b) {
  return compare->compareRegionStarts(a, b) > 0;
}

}  // namespace

bool RangeInside(const TextRange& inner, const TextRange& outer) {
  const Reference<css::text::XTextRangeCompare> compare = SharedComparer(inner, outer);
  if (!compare.is()) return false;
  try {
    return compare->compareRegionStarts(outer, inner) >= 0 && compare->compareRegionEnds(inner, outer) >= 0;
  } catch (const css::uno::Exception&) {
    return false;
  }
}

TextRange RangeOverlap(const TextRange& a, const TextRange& b) {
  const Reference<css::text::XTextRangeCompare> compare = SharedComparer(a, b);
  if (!compare.is()) return {};
  try {
    const TextRange start = Before(compare, a->getStart(), b->getStart()) ? b->getStart() : a->getStart();
    const TextRange end = Before(compare, a->getEnd(), b->getEnd()) ? a->getEnd() : b->getEnd();
    if (!Before(compare, start, end)) return {};
    const Reference<css::text::XTextCursor> cursor = a->getText()->createTextCursorByRange(start);
    cursor->gotoRange(end, true);
    return TextRange(cursor.get());
  } catch (const css::lang::IllegalArgumentException&) {
    return {};
  }
}

void SetRangeFont(const TextRange& range, const rtl::OUString& fontName) {
  const Reference<css::beans::XPropertySet> properties(range, UNO_QUERY_THROW);
  const Any font(fontName);
  for (const char* name : {"CharFontName", "CharFontNameAsian", "CharFontNameComplex"}) {
    properties->setPropertyValue(rtl::OUString::createFromAscii(name), font);
  }
}

}  // namespace quilom::converter::libreoffice
