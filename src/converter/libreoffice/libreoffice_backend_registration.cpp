#include "converter/libreoffice/libreoffice_backend.hpp"

namespace quilom::converter::libreoffice {
namespace {

const RegisterDocumentBackendAs kRegistration{std::make_shared<LibreOfficeBackend>()};

}  // namespace
}  // namespace quilom::converter::libreoffice
