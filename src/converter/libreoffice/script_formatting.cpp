#include "converter/libreoffice/script_formatting.hpp"

#include <algorithm>
#include <com/sun/star/text/XTextRange.hpp>

#include "converter/libreoffice/text_portions.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {
namespace {

struct ScriptPair {
  const char16_t* western;
  const char16_t* complex;
};

constexpr ScriptPair kCarried[] = {
    {u"CharWeight", u"CharWeightComplex"},
    {u"CharPosture", u"CharPostureComplex"},
    {u"CharHeight", u"CharHeightComplex"},
};

bool HoldsTamil(const std::u16string& text) {
  return std::any_of(text.begin(), text.end(), [](char16_t c) { return c >= 0x0B80 && c <= 0x0BFF; });
}

bool InFont(const Reference<css::beans::XPropertySet>& portion, const std::set<std::u16string>& fonts) {
  for (const char16_t* property : {u"CharFontName", u"CharFontNameComplex"}) {
    rtl::OUString font;
    if ((portion->getPropertyValue(ToOUString(property)) >>= font) && fonts.count(ToU16(font))) return true;
  }
  return false;
}

bool Carry(const Reference<css::beans::XPropertySet>& portion, bool toComplex) {
  bool changed = false;
  for (const ScriptPair& pair : kCarried) {
    const rtl::OUString from = ToOUString(toComplex ? pair.western : pair.complex);
    const rtl::OUString to = ToOUString(toComplex ? pair.complex : pair.western);
    const Any value = portion->getPropertyValue(from);
    if (value != portion->getPropertyValue(to)) {
      portion->setPropertyValue(to, value);
      changed = true;
    }
  }
  return changed;
}

}  // namespace

int CarryFormattingAcrossScripts(const Reference<css::frame::XModel>& document, const std::set<std::u16string>& fonts) {
  if (fonts.empty()) return 0;
  int changed = 0;
  ForEachTextPortion(document, [&](const Reference<css::beans::XPropertySet>& portion) {
    const Reference<css::text::XTextRange> range(portion, UNO_QUERY);
    if (!range.is() || !InFont(portion, fonts)) return;
    changed += Carry(portion, HoldsTamil(ToU16(range->getString()))) ? 1 : 0;
  });
  return changed;
}

}  // namespace quilom::converter::libreoffice
