#include "converter/libreoffice/selection_tagger.hpp"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "text/utf.hpp"

namespace quilom::converter::libreoffice {
namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr char16_t kAnyRun[] = u".+";

// compareRegionStarts/Ends: 1 when the first point lies before the second, 0 same, -1 after.
bool Before(const Reference<css::text::XTextRangeCompare>& compare, const Reference<css::text::XTextRange>& a,
            const Reference<css::text::XTextRange>& b) {
  return compare->compareRegionStarts(a, b) > 0;
}

// Sets `property` to `value` on the part of `found` that lies inside `selected`, when both
// are in the same text and overlap.
void SetOnOverlap(const Reference<css::text::XTextRange>& found, const Reference<css::text::XTextRange>& selected,
                  const std::u16string& property, const rtl::OUString& value) {
  const Reference<css::text::XText> text = found->getText();
  if (text != selected->getText()) return;
  const Reference<css::text::XTextRangeCompare> compare(text, UNO_QUERY);
  if (!compare.is()) return;
  try {
    const Reference<css::text::XTextRange> start =
        Before(compare, found->getStart(), selected->getStart()) ? selected->getStart() : found->getStart();
    const Reference<css::text::XTextRange> end =
        Before(compare, found->getEnd(), selected->getEnd()) ? found->getEnd() : selected->getEnd();
    if (!Before(compare, start, end)) return;
    const Reference<css::text::XTextCursor> cursor = text->createTextCursorByRange(start);
    cursor->gotoRange(end, true);
    Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW)->setPropertyValue(ToOUString(property), Any(value));
  } catch (const css::lang::IllegalArgumentException&) {
    // Ranges of different cells of a table share no order; such a pair never overlaps.
  }
}

}  // namespace

std::vector<Reference<css::text::XTextRange>> SelectedRanges(const Reference<css::frame::XModel>& document) {
  std::vector<Reference<css::text::XTextRange>> ranges;
  const Reference<css::frame::XController> controller = document->getCurrentController();
  const Reference<css::view::XSelectionSupplier> supplier(controller, UNO_QUERY);
  if (!supplier.is()) return ranges;
  const Reference<css::container::XIndexAccess> selected(supplier->getSelection(), UNO_QUERY);
  if (!selected.is()) return ranges;  // a frame or picture is selected, not text
  for (sal_Int32 i = 0; i < selected->getCount(); ++i) {
    const Reference<css::text::XTextRange> range(selected->getByIndex(i), UNO_QUERY);
    if (range.is() && !range->getString().isEmpty()) ranges.push_back(range);
  }
  return ranges;
}

std::u16string SelectionTagger::TemporaryName(const Reference<css::frame::XModel>& document,
                                              const std::u16string& fontProperty, const std::u16string& fontName) {
  for (const Tag& tag : tags_) {
    if (tag.fontProperty == fontProperty && tag.fontName == fontName) return tag.temporaryName;
  }
  Tag tag{fontProperty, fontName, u"Quilom++ selection " + text::AsciiToUtf16(std::to_string(tags_.size() + 1))};
  tags_.push_back(tag);
  TagInsideSelection(document, tag);
  return tag.temporaryName;
}

void SelectionTagger::TagInsideSelection(const Reference<css::frame::XModel>& document, const Tag& tag) {
  FontSearch runs;
  runs.text = kAnyRun;
  runs.regularExpression = true;
  runs.fontProperty = tag.fontProperty;
  runs.fontName = tag.fontName;
  const Reference<css::container::XIndexAccess> found = FindAllInFont(document, runs);
  const rtl::OUString temporary = ToOUString(tag.temporaryName);
  for (sal_Int32 i = 0; found.is() && i < found->getCount(); ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    if (!range.is()) continue;
    for (const Reference<css::text::XTextRange>& selected : selection_) {
      SetOnOverlap(range, selected, tag.fontProperty, temporary);
    }
  }
}

void SelectionTagger::RestoreAll(const Reference<css::frame::XModel>& document) {
  while (!tags_.empty()) {
    const Tag& tag = tags_.back();
    FontSearch runs;
    runs.text = kAnyRun;
    runs.regularExpression = true;
    runs.fontProperty = tag.fontProperty;
    runs.fontName = tag.temporaryName;
    const Reference<css::container::XIndexAccess> found = FindAllInFont(document, runs);
    const Any realName(ToOUString(tag.fontName));
    for (sal_Int32 i = 0; found.is() && i < found->getCount(); ++i) {
      const Reference<css::beans::XPropertySet> range(found->getByIndex(i), UNO_QUERY);
      if (range.is()) range->setPropertyValue(ToOUString(tag.fontProperty), realName);
    }
    tags_.pop_back();
  }
}

}  // namespace quilom::converter::libreoffice
