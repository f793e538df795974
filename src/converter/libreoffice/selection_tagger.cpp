#include "converter/libreoffice/selection_tagger.hpp"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/text_ranges.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "text/utf.hpp"

namespace quilom::converter::libreoffice {

namespace {

constexpr char16_t kAnyRun[] = u".+";

// Every run of text whose `fontProperty` is `fontName`.
FontSearch RunsInFont(const std::u16string& fontProperty, const std::u16string& fontName) {
  FontSearch runs;
  runs.text = kAnyRun;
  runs.regularExpression = true;
  runs.fontProperty = fontProperty;
  runs.fontName = fontName;
  return runs;
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
  const Reference<css::container::XIndexAccess> found =
      FindAllInFont(document, RunsInFont(tag.fontProperty, tag.fontName));
  const Any temporary(ToOUString(tag.temporaryName));
  const rtl::OUString property = ToOUString(tag.fontProperty);
  for (sal_Int32 i = 0; found.is() && i < found->getCount(); ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    if (!range.is()) continue;
    for (const Reference<css::text::XTextRange>& selected : selection_) {
      const Reference<css::beans::XPropertySet> overlap(RangeOverlap(range, selected), UNO_QUERY);
      if (overlap.is()) overlap->setPropertyValue(property, temporary);
    }
  }
}

void SelectionTagger::RestoreAll(const Reference<css::frame::XModel>& document) {
  while (!tags_.empty()) {
    const Tag& tag = tags_.back();
    const Reference<css::container::XIndexAccess> found =
        FindAllInFont(document, RunsInFont(tag.fontProperty, tag.temporaryName));
    const Any realName(ToOUString(tag.fontName));
    for (sal_Int32 i = 0; found.is() && i < found->getCount(); ++i) {
      const Reference<css::beans::XPropertySet> range(found->getByIndex(i), UNO_QUERY);
      if (range.is()) range->setPropertyValue(ToOUString(tag.fontProperty), realName);
    }
    tags_.pop_back();
  }
}

}  // namespace quilom::converter::libreoffice
