#include "converter/libreoffice/font_search.hpp"

#include <cstdio>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/util/XPropertyReplace.hpp>
#include <com/sun/star/util/XReplaceDescriptor.hpp>
#include <com/sun/star/util/XReplaceable.hpp>
#include <com/sun/star/util/XSearchable.hpp>

#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {
using css::uno::Sequence;

namespace {

bool IsComplexScript(char16_t c) {
  return (c >= 0x0590 && c <= 0x08FF)     // Hebrew, Arabic, Syriac, Thaana
         || (c >= 0x0900 && c <= 0x0DFF)  // the Indic scripts, Tamil among them
         || (c >= 0x0E00 && c <= 0x0FFF)  // Thai, Lao, Tibetan
         || (c >= 0x1000 && c <= 0x109F)  // Myanmar
         || (c >= 0x1780 && c <= 0x17FF);  // Khmer
}

void SetUp(const Reference<css::util::XSearchDescriptor>& descriptor, const FontSearch& search) {
  descriptor->setSearchString(ToOUString(search.text));
  const Reference<css::beans::XPropertySet> options(descriptor, UNO_QUERY_THROW);
  // Legacy fonts put different letters under upper and lower case, and the search
  // otherwise ignores case.
  options->setPropertyValue(ToOUString(u"SearchCaseSensitive"), Any(true));
  options->setPropertyValue(ToOUString(u"SearchRegularExpression"), Any(search.regularExpression));
  options->setPropertyValue(ToOUString(u"SearchWords"), Any(false));
  options->setPropertyValue(ToOUString(u"SearchSimilarity"), Any(false));
  options->setPropertyValue(ToOUString(u"SearchStyles"), Any(false));
  options->setPropertyValue(ToOUString(u"SearchBackwards"), Any(false));
  const Reference<css::util::XPropertyReplace> attributes(descriptor, UNO_QUERY_THROW);
  // With value search off every font matches and the replacement font is not applied.
  attributes->setValueSearch(true);
  if (search.fontName.empty()) {
    attributes->setSearchAttributes({});
  } else {
    const css::beans::PropertyValue font[] = {
        Property(search.fontProperty, Any(ToOUString(search.fontName)))};
    attributes->setSearchAttributes(MakeSequence(font));
  }
}

}  // namespace

std::u16string FontPropertyFor(std::u16string_view findText) {
  for (char16_t c : findText) {
    if (IsComplexScript(c)) return u"CharFontNameComplex";
  }
  return u"CharFontName";
}

sal_Int32 ReplaceAllInFont(const Reference<css::frame::XModel>& document, const FontSearch& search,
                           std::u16string_view replacement, std::u16string_view replacementFont) {
  const Reference<css::util::XReplaceable> replaceable(document, UNO_QUERY_THROW);
  const Reference<css::util::XReplaceDescriptor> descriptor = replaceable->createReplaceDescriptor();
  SetUp(Reference<css::util::XSearchDescriptor>(descriptor, UNO_QUERY_THROW), search);
  descriptor->setReplaceString(ToOUString(replacement));
  const Reference<css::util::XPropertyReplace> attributes(descriptor, UNO_QUERY_THROW);
  if (replacementFont.empty()) {
    attributes->setReplaceAttributes({});
  } else {
    const Any font(ToOUString(replacementFont));
    const css::beans::PropertyValue fonts[] = {Property(u"CharFontName", font),
                                               Property(u"CharFontNameComplex", font),
                                               Property(u"CharFontNameAsian", font)};
    attributes->setReplaceAttributes(MakeSequence(fonts));
  }
  return replaceable->replaceAll(Reference<css::util::XSearchDescriptor>(descriptor, UNO_QUERY_THROW));
}

Reference<css::container::XIndexAccess> FindAllInFont(const Reference<css::frame::XModel>& document,
                                                      const FontSearch& search) {
  const Reference<css::util::XSearchable> searchable(document, UNO_QUERY_THROW);
  const Reference<css::util::XSearchDescriptor> descriptor = searchable->createSearchDescriptor();
  SetUp(descriptor, search);
  return searchable->findAll(descriptor);
}

bool DocumentContains(const Reference<css::frame::XModel>& document, std::u16string_view text) {
  const Reference<css::util::XSearchable> searchable(document, UNO_QUERY_THROW);
  const Reference<css::util::XSearchDescriptor> descriptor = searchable->createSearchDescriptor();
  FontSearch search;
  search.text = std::u16string(text);
  SetUp(descriptor, search);
  return searchable->findFirst(descriptor).is();
}

std::u16string RegexLiteral(char16_t c) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "\\x{%04X}", static_cast<unsigned>(c));
  std::u16string atom;
  for (const char* p = buffer; *p != '\0'; ++p) atom.push_back(static_cast<char16_t>(*p));
  return atom;
}

}  // namespace quilom::converter::libreoffice
