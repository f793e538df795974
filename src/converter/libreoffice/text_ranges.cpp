#include "converter/libreoffice/text_ranges.hpp"

#include <com/sun/star/beans/XMultiPropertySet.hpp>
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
  const Any font(fontName);
  // A cursor takes the three names in one change; the ranges a find returns take one at a time.
  const Reference<css::text::XTextCursor> cursor = range->getText()->createTextCursorByRange(range);
  if (const Reference<css::beans::XMultiPropertySet> several(cursor, UNO_QUERY); several.is()) {
    const rtl::OUString names[] = {rtl::OUString::createFromAscii("CharFontName"),
                                   rtl::OUString::createFromAscii("CharFontNameAsian"),
                                   rtl::OUString::createFromAscii("CharFontNameComplex")};
    const Any fonts[] = {font, font, font};
    several->setPropertyValues(css::uno::Sequence<rtl::OUString>(names, 3), css::uno::Sequence<Any>(fonts, 3));
    return;
  }
  const Reference<css::beans::XPropertySet> properties(range, UNO_QUERY_THROW);
  for (const char* name : {"CharFontName", "CharFontNameAsian", "CharFontNameComplex"}) {
    properties->setPropertyValue(rtl::OUString::createFromAscii(name), font);
  }
}

int SetFontWhere(const TextRange& range, const rtl::OUString& property, const rtl::OUString& fontName,
                 const rtl::OUString& newFont) {
  const Reference<css::beans::XPropertySet> whole(range, UNO_QUERY_THROW);
  rtl::OUString font;
  if (whole->getPropertyValue(property) >>= font) {
    if (font != fontName) return 0;
    SetRangeFont(range, newFont);
    return 1;
  }
  // Several fonts: a range without a single value is looked at one character at a time.
  const sal_Int32 length = range->getString().getLength();
  const Reference<css::text::XTextCursor> cursor = range->getText()->createTextCursorByRange(range->getStart());
  const Reference<css::beans::XPropertySet> character(cursor, UNO_QUERY_THROW);
  int changed = 0;
  for (sal_Int32 i = 0; i < length; ++i) {
    cursor->collapseToEnd();
    if (!cursor->goRight(1, true)) break;
    if ((character->getPropertyValue(property) >>= font) && font == fontName) {
      SetRangeFont(TextRange(cursor, UNO_QUERY_THROW), newFont);
      ++changed;
    }
  }
  return changed;
}

}  // namespace quilom::converter::libreoffice
