#include "converter/document_backends.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <mutex>

namespace quilom::converter {
namespace {

struct Registry {
  std::mutex mutex;
  std::map<std::string, std::shared_ptr<DocumentBackend>, std::less<>> byExtension;
};

// A function-local static, so that registrations made during static initialisation of other
// files never meet an unconstructed registry.
Registry& TheRegistry() {
  static Registry registry;
  return registry;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

}  // namespace

void RegisterDocumentBackend(std::shared_ptr<DocumentBackend> backend) {
  if (!backend) {
    return;
  }
  Registry& registry = TheRegistry();
  std::lock_guard lock(registry.mutex);
  for (const std::string& extension : backend->Extensions()) {
    registry.byExtension[Lower(extension)] = backend;
  }
}

RegisterDocumentBackendAs::RegisterDocumentBackendAs(std::shared_ptr<DocumentBackend> backend) {
  RegisterDocumentBackend(std::move(backend));
}

std::string DocumentExtension(const std::filesystem::path& file) { return Lower(file.extension().string()); }

bool IsDocumentExtension(std::string_view extension) {
  static constexpr std::array<std::string_view, 4> kDocuments = {".doc", ".docx", ".odt", ".rtf"};
  const std::string lower = Lower(extension);
  return std::find(kDocuments.begin(), kDocuments.end(), lower) != kDocuments.end();
}

std::shared_ptr<DocumentBackend> FindDocumentBackend(std::string_view extension) {
  Registry& registry = TheRegistry();
  std::lock_guard lock(registry.mutex);
  const auto found = registry.byExtension.find(Lower(extension));
  return found == registry.byExtension.end() ? nullptr : found->second;
}

std::string DocumentBackendProblem(std::string_view extension) {
  const std::string lower = Lower(extension);
  const std::shared_ptr<DocumentBackend> backend = FindDocumentBackend(lower);
  if (!backend) {
    return "converting " + lower +
           " needs LibreOffice: this quilom was built without a document backend "
           "(build with -DQUILOM_BUILD_LIBREOFFICE=ON), or convert the text saved as a plain text file";
  }
  std::string why;
  if (backend->IsAvailable(why)) {
    return {};
  }
  return "converting " + lower + " needs " + backend->Name() + ": " + why;
}

}  // namespace quilom::converter
