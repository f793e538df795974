#pragma once

#include <string>
#include <string_view>

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Exception.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <rtl/ustring.hxx>

#include "settings/error_report.hpp"

// Small bridges between the program's UTF-16 strings and UNO's. Both sides are UTF-16 (the
// SDK spells a code unit `unsigned short`), so nothing is re-encoded.
namespace quilom::converter::libreoffice {

inline rtl::OUString ToOUString(std::u16string_view text) {
  return rtl::OUString(reinterpret_cast<const sal_Unicode*>(text.data()), static_cast<sal_Int32>(text.size()));
}

inline std::u16string ToU16(const rtl::OUString& text) {
  return std::u16string(reinterpret_cast<const char16_t*>(text.getStr()), static_cast<size_t>(text.getLength()));
}

inline std::string ToUtf8(const rtl::OUString& text) {
  const rtl::OString utf8 = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return std::string(utf8.getStr(), static_cast<size_t>(utf8.getLength()));
}

inline com::sun::star::beans::PropertyValue Property(std::u16string_view name, const com::sun::star::uno::Any& value) {
  com::sun::star::beans::PropertyValue property;
  property.Name = ToOUString(name);
  property.Value = value;
  return property;
}

template <typename T, size_t N>
com::sun::star::uno::Sequence<T> MakeSequence(const T (&items)[N]) {
  return com::sun::star::uno::Sequence<T>(items, static_cast<sal_Int32>(N));
}

// A UNO exception in the shape of the shared problem report.
inline ErrorDetails DetailsOf(const com::sun::star::uno::Exception& e, std::u16string_view source) {
  ErrorDetails details;
  details.number = -1;
  details.source = std::u16string(source);
  details.description = ToU16(e.Message);
  if (details.description.empty()) {
    details.description = u"LibreOffice reported a failure without a description";
  }
  return details;
}

}  // namespace quilom::converter::libreoffice
