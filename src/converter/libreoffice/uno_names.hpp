#pragma once

#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Reference.hxx>

// The short UNO names that the backend's sources use, said once. Only this backend's .cpp files
// include it; the names stay inside the backend's namespace.
namespace quilom::converter::libreoffice {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

}  // namespace quilom::converter::libreoffice
