#include "converter/libreoffice/writer_document.hpp"

#include <algorithm>
#include <cctype>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <osl/file.hxx>
#include <system_error>

#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {

namespace {

bool FileUrlOf(const std::filesystem::path& file, rtl::OUString& url, std::string& error) {
  std::error_code ec;
  const std::filesystem::path absolute = std::filesystem::absolute(file, ec);
  const rtl::OUString systemPath =
      rtl::OStringToOUString(rtl::OString(absolute.string().c_str()), RTL_TEXTENCODING_UTF8);
  if (ec || osl::FileBase::getFileURLFromSystemPath(systemPath, url) != osl::FileBase::E_None) {
    error = "cannot name " + file.string() + " for LibreOffice";
    return false;
  }
  return true;
}

std::string LowerExtension(const std::filesystem::path& file) {
  std::string extension = file.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension;
}

}  // namespace

std::u16string FilterForExtension(std::string_view lowerExtension) {
  if (lowerExtension == ".odt") return u"writer8";
  if (lowerExtension == ".docx") return u"MS Word 2007 XML";
  if (lowerExtension == ".doc") return u"MS Word 97";
  if (lowerExtension == ".rtf") return u"Rich Text Format";
  return {};
}

Reference<css::frame::XModel> LoadDocument(const Reference<css::frame::XDesktop2>& desktop,
                                           const std::filesystem::path& file, std::string& error) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) {
    error = "cannot read " + file.string() + ": no such file";
    return {};
  }
  rtl::OUString url;
  if (!FileUrlOf(file, url, error)) {
    return {};
  }
  const css::beans::PropertyValue options[] = {
      Property(u"Hidden", Any(true)),
      // The input is never written (copies are stored elsewhere), and a read-only load leaves
      // no lock file beside it.
      Property(u"ReadOnly", Any(true)), Property(u"MacroExecutionMode", Any(sal_Int16(0))),  // NEVER_EXECUTE
  };
  try {
    const Reference<css::lang::XComponent> component =
        Reference<css::frame::XComponentLoader>(desktop, UNO_QUERY_THROW)
            ->loadComponentFromURL(url, ToOUString(u"_blank"), 0, MakeSequence(options));
    Reference<css::lang::XServiceInfo> info(component, UNO_QUERY);
    // A document saved from Writer's web view loads as a web document: the same text model.
    if (!info.is() || (!info->supportsService(ToOUString(u"com.sun.star.text.TextDocument")) &&
                       !info->supportsService(ToOUString(u"com.sun.star.text.WebDocument")))) {
      if (component.is()) {
        CloseDocument(Reference<css::frame::XModel>(component, UNO_QUERY));
      }
      error = "LibreOffice could not open " + file.string() + " as a text document";
      return {};
    }
    return Reference<css::frame::XModel>(component, UNO_QUERY_THROW);
  } catch (const css::uno::Exception& e) {
    error = "LibreOffice could not open " + file.string() + ": " + ToUtf8(e.Message);
    return {};
  }
}

bool StoreDocumentAs(const Reference<css::frame::XModel>& document, const std::filesystem::path& output,
                     std::string& error) {
  std::u16string filter = FilterForExtension(LowerExtension(output));
  // The web view keeps its own filter for the OpenDocument package.
  const Reference<css::lang::XServiceInfo> info(document, UNO_QUERY);
  if (filter == u"writer8" && info.is() && info->supportsService(ToOUString(u"com.sun.star.text.WebDocument"))) {
    filter = u"writerweb8_writer";
  }
  if (filter.empty()) {
    error = "cannot write " + output.string() + ": use .odt, .docx, .doc or .rtf";
    return false;
  }
  std::filesystem::path temporary = output;
  temporary += ".quilom-partial" + output.extension().string();
  rtl::OUString url;
  if (!FileUrlOf(temporary, url, error)) {
    return false;
  }
  const css::beans::PropertyValue options[] = {
      Property(u"FilterName", Any(ToOUString(filter))),
      Property(u"Overwrite", Any(true)),
  };
  try {
    Reference<css::frame::XStorable>(document, UNO_QUERY_THROW)->storeToURL(url, MakeSequence(options));
  } catch (const css::uno::Exception& e) {
    std::error_code ec;
    std::filesystem::remove(temporary, ec);
    error = "LibreOffice could not write " + output.string() + ": " + ToUtf8(e.Message);
    return false;
  }
  std::error_code ec;
  std::filesystem::rename(temporary, output, ec);
  if (ec) {
    std::filesystem::remove(temporary, ec);
    error = "cannot write " + output.string() + ": " + ec.message();
    return false;
  }
  return true;
}

void CloseDocument(const Reference<css::frame::XModel>& document) noexcept {
  if (!document.is()) return;
  try {
    Reference<css::util::XCloseable> closeable(document, UNO_QUERY);
    if (closeable.is()) {
      closeable->close(true);
    } else {
      Reference<css::lang::XComponent>(document, UNO_QUERY_THROW)->dispose();
    }
  } catch (const css::uno::Exception&) {
    // A document the office cannot close now (a vetoed close, a dead connection) is left to
    // the office, which closes it when it ends.
  } catch (...) {
  }
}

}  // namespace quilom::converter::libreoffice
