#include "converter/libreoffice/run_markers.hpp"

#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextRange.hpp>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {

namespace {

constexpr char16_t kSoftHyphen = 0x00AD;

char16_t UnusedPrivateCharacter(const Reference<css::frame::XModel>& document, char16_t after) {
  for (char16_t c = after + 1; c < 0xF8FF; ++c) {
    if (!DocumentContains(document, std::u16string(1, c))) return c;
  }
  return 0;
}

// The last character of every non-empty paragraph, but never a field or anchor placeholder
// (U+0001 to U+001F stand for fields, footnote anchors and frames), which must not move.
constexpr char16_t kLastCharacterOfParagraph[] = u"[^\\x{0001}-\\x{001F}]$";

}  // namespace

void RunMarkers::Place(const Reference<css::frame::XModel>& document) {
  sentinel_ = UnusedPrivateCharacter(document, 0xDFFF);
  softHyphenStandIn_ = UnusedPrivateCharacter(document, sentinel_);
  if (sentinel_ == 0 || softHyphenStandIn_ == 0) {
    return;  // a document full of private characters: run without the markers
  }
  FontSearch softHyphen;
  softHyphen.text = std::u16string(1, kSoftHyphen);
  softHyphensMapped_ = true;
  ReplaceAllInFont(document, softHyphen, std::u16string(1, softHyphenStandIn_), u"");

  FontSearch lastCharacters;
  lastCharacters.text = kLastCharacterOfParagraph;
  lastCharacters.regularExpression = true;
  const Reference<css::container::XIndexAccess> found = FindAllInFont(document, lastCharacters);
  sentinelsPlaced_ = true;
  const rtl::OUString sentinel = ToOUString(std::u16string_view(&sentinel_, 1));
  for (sal_Int32 i = 0; found.is() && i < found->getCount(); ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    if (!range.is()) continue;
    // Inserted at the end of a run, the sentinel takes that run's formatting.
    range->getText()->insertString(range->getEnd(), sentinel, false);
  }
}

void RunMarkers::Remove(const Reference<css::frame::XModel>& document) {
  if (sentinelsPlaced_) {
    sentinelsPlaced_ = false;
    FontSearch sentinel;
    sentinel.text = std::u16string(1, sentinel_);
    ReplaceAllInFont(document, sentinel, u"", u"");
  }
  if (softHyphensMapped_) {
    softHyphensMapped_ = false;
    FontSearch standIn;
    standIn.text = std::u16string(1, softHyphenStandIn_);
    ReplaceAllInFont(document, standIn, std::u16string(1, kSoftHyphen), u"");
  }
}

std::u16string RunMarkers::MapSoftHyphens(std::u16string_view text) const {
  std::u16string mapped(text);
  if (softHyphenStandIn_ == 0) return mapped;
  for (char16_t& c : mapped) {
    if (c == kSoftHyphen) c = softHyphenStandIn_;
  }
  return mapped;
}

}  // namespace quilom::converter::libreoffice
