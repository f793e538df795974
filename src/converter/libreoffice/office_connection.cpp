#include "converter/libreoffice/office_connection.hpp"

#include <cstdlib>
#include <mutex>
#include <thread>

#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/bridge/XUnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <cppuhelper/bootstrap.hxx>

#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {

namespace {

// The local UNO runtime, made once per process. Without the office's fundamentalrc the
// runtime lacks the office's types and the first Desktop call crashes the client, so it is
// pointed there unless the caller chose otherwise.
Reference<css::uno::XComponentContext> LocalContext(std::string& error) {
  static std::once_flag once;
  static Reference<css::uno::XComponentContext> context;
  static std::string failure;
  std::call_once(once, [] {
    setenv("URE_BOOTSTRAP", "vnd.sun.star.pathname:" QUILOM_LO_PROGRAM_DIR "/fundamentalrc", 0);
    try {
      context = cppu::defaultBootstrap_InitialComponentContext();
    } catch (const css::uno::Exception& e) {
      failure = "cannot start the UNO runtime: " + ToUtf8(e.Message);
    }
  });
  error = failure;
  return context;
}

}  // namespace

std::chrono::milliseconds OfficeStartTimeout() {
  if (const char* seconds = std::getenv("QUILOM_OFFICE_TIMEOUT"); seconds != nullptr) {
    const int value = std::atoi(seconds);
    if (value > 0) return std::chrono::seconds(value);
  }
  return std::chrono::seconds(60);
}

std::unique_ptr<OfficeConnection> OfficeConnection::StartPrivate(std::chrono::milliseconds timeout,
                                                                 std::string& error) {
  const std::filesystem::path soffice = FindSoffice();
  if (soffice.empty()) {
    error = "LibreOffice is not installed (no soffice program found; on Debian: "
            "apt-get install libreoffice-writer-nogui)";
    return nullptr;
  }
  std::unique_ptr<OfficeConnection> connection(new OfficeConnection());
  connection->process_ = std::make_unique<OfficeProcess>();
  if (!connection->process_->Start(soffice, error)) {
    return nullptr;
  }
  if (!connection->Connect(connection->process_->ConnectionUrl(), timeout, error)) {
    return nullptr;  // the destructor kills what was started
  }
  return connection;
}

std::unique_ptr<OfficeConnection> OfficeConnection::Attach(const std::string& pipeName,
                                                           std::chrono::milliseconds timeout, std::string& error) {
  std::unique_ptr<OfficeConnection> connection(new OfficeConnection());
  if (!connection->Connect("uno:pipe,name=" + pipeName + ";urp;StarOffice.ComponentContext", timeout, error)) {
    return nullptr;
  }
  return connection;
}

bool OfficeConnection::Connect(const std::string& url, std::chrono::milliseconds timeout, std::string& error) {
  const Reference<css::uno::XComponentContext> local = LocalContext(error);
  if (!local.is()) {
    return false;
  }
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  const rtl::OUString unoUrl = rtl::OStringToOUString(rtl::OString(url.c_str()), RTL_TEXTENCODING_UTF8);
  try {
    const Reference<css::bridge::XUnoUrlResolver> resolver = css::bridge::UnoUrlResolver::create(local);
    while (true) {
      try {
        remote_.set(resolver->resolve(unoUrl), UNO_QUERY_THROW);
        desktop_ = css::frame::Desktop::create(remote_);
        return true;
      } catch (const css::connection::NoConnectException&) {
        if (std::chrono::steady_clock::now() >= deadline) {
          error = "LibreOffice did not start within " +
                  std::to_string(std::chrono::duration_cast<std::chrono::seconds>(timeout).count()) +
                  " seconds (set QUILOM_OFFICE_TIMEOUT to wait longer)";
          return false;
        }
        if (process_ && !process_->Running()) {
          error = "LibreOffice ended before it accepted a connection";
          return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
      }
    }
  } catch (const css::uno::Exception& e) {
    error = "cannot connect to LibreOffice: " + ToUtf8(e.Message);
    return false;
  }
}

OfficeConnection::~OfficeConnection() {
  bool asked = false;
  if (process_ && desktop_.is()) {
    try {
      asked = desktop_->terminate();
    } catch (const css::uno::Exception&) {
      // The office may end before it answers; the bridge then reports a disposed connection.
      asked = true;
    }
  }
  desktop_.clear();
  remote_.clear();
  if (process_) {
    process_->Stop(asked ? std::chrono::milliseconds(10000) : std::chrono::milliseconds(0));
  }
}

}  // namespace quilom::converter::libreoffice
