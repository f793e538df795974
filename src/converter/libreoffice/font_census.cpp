#include "converter/libreoffice/font_census.hpp"

#include <algorithm>
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
#include <map>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/text_portions.hpp"
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

}  // namespace

int MakeInheritedFontDirect(const Reference<css::frame::XModel>& document, const std::u16string& fontProperty,
                            const std::u16string& fontName) {
  const rtl::OUString property = ToOUString(fontProperty);
  const rtl::OUString font = ToOUString(fontName);
  int changed = 0;
  ForEachTextPortion(document, [&](const Reference<css::beans::XPropertySet>& portion) {
    const Reference<css::beans::XPropertyState> state(portion, UNO_QUERY);
    if (!state.is() || state->getPropertyState(property) == css::beans::PropertyState_DIRECT_VALUE) return;
    rtl::OUString current;
    if ((portion->getPropertyValue(property) >>= current) && current == font) {
      portion->setPropertyValue(property, css::uno::Any(font));
      ++changed;
    }
  });
  return changed;
}

std::vector<FontUse> FontsOfText(const Reference<css::frame::XModel>& document) {
  constexpr std::size_t kSample = 4000;
  std::vector<FontUse> fonts;
  ForEachTextPortion(document, [&](const Reference<css::beans::XPropertySet>& portion) {
    const Reference<css::text::XTextRange> range(portion, UNO_QUERY);
    if (!range.is()) return;
    const std::u16string text = ToU16(range->getString());
    if (text.find_first_not_of(u" \t") == std::u16string::npos) return;
    rtl::OUString font;
    portion->getPropertyValue(ToOUString(FontPropertyFor(text))) >>= font;
    const std::u16string name = ToU16(font);
    auto use = std::find_if(fonts.begin(), fonts.end(), [&](const FontUse& f) { return f.name == name; });
    if (use == fonts.end()) use = fonts.insert(fonts.end(), FontUse{name, {}});
    if (use->sample.size() < kSample) use->sample += text + u" ";
  });
  return fonts;
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
