#pragma once

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <functional>

// Every run of text in a Writer document with one formatting (a text portion), wherever it is:
// the body, table cells, frames and text boxes (shapes on the draw page), footnotes and
// endnotes, and the headers and footers of every page style. One walk for every pass that works run by run.
namespace quilom::converter::libreoffice {

using PortionVisitor = std::function<void(const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet>&)>;

// Calls `visit` with each portion in turn. Throws UNO exceptions.
void ForEachTextPortion(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                        const PortionVisitor& visit);

}  // namespace quilom::converter::libreoffice
