#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/frame/XModel.hpp>

// Loading, saving and closing Writer documents by file.
namespace quilom::converter::libreoffice {

// The export filter for an output file's extension (".odt" "writer8", ".docx"
// "MS Word 2007 XML", ".doc" "MS Word 97", ".rtf" "Rich Text Format"); empty for others.
std::u16string FilterForExtension(std::string_view lowerExtension);

// Loads `file` as a hidden document (a document loaded without any view finds nothing in its
// searches). Null, with `error` set, when the file is missing, is not a text document, or the
// office fails.
com::sun::star::uno::Reference<com::sun::star::frame::XModel> LoadDocument(
    const com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>& desktop,
    const std::filesystem::path& file, std::string& error);

// Stores a copy of the document in the format of `output`'s extension. The copy is written
// beside `output` under a temporary name and then renamed, so an existing `output` is replaced
// whole or not at all.
bool StoreDocumentAs(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                     const std::filesystem::path& output, std::string& error);

// Closes without saving. Never throws.
void CloseDocument(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document) noexcept;

}  // namespace quilom::converter::libreoffice
