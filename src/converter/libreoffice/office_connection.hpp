#pragma once

#include <chrono>
#include <memory>
#include <string>

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "converter/libreoffice/office_process.hpp"

// A UNO connection to a running LibreOffice: either one we start headless (OfficeProcess) or a
// desktop instance the user started with
//   soffice "--accept=pipe,name=NAME;urp;StarOffice.ComponentContext"
namespace quilom::converter::libreoffice {

class OfficeConnection {
 public:
  // Starts a private headless office and connects to it, trying until `timeout` has passed.
  // Null, with a message for the user in `error`, when LibreOffice is missing or not ready in
  // time (the process is then stopped again).
  static std::unique_ptr<OfficeConnection> StartPrivate(std::chrono::milliseconds timeout, std::string& error);

  // Connects to an office that already accepts on `pipeName`; never stops it.
  static std::unique_ptr<OfficeConnection> Attach(const std::string& pipeName, std::chrono::milliseconds timeout,
                                                  std::string& error);

  // A private office is terminated (and killed if it will not go); an attached one is left.
  ~OfficeConnection();
  OfficeConnection(const OfficeConnection&) = delete;
  OfficeConnection& operator=(const OfficeConnection&) = delete;

  const com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>& Desktop() const { return desktop_; }
  bool OwnsOffice() const { return process_ != nullptr; }
  // The pipe a private office accepts on (others may attach to it); empty for an attached one.
  std::string PipeName() const { return process_ ? process_->PipeName() : std::string(); }

 private:
  OfficeConnection() = default;
  bool Connect(const std::string& url, std::chrono::milliseconds timeout, std::string& error);

  std::unique_ptr<OfficeProcess> process_;
  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> remote_;
  com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> desktop_;
};

// How long to wait for a starting office: $QUILOM_OFFICE_TIMEOUT seconds, else 60 s (a
// first start with a fresh profile takes a few seconds; a loaded machine many more).
std::chrono::milliseconds OfficeStartTimeout();

}  // namespace quilom::converter::libreoffice
