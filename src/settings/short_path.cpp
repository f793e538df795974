#include "settings/short_path.hpp"

#include <mutex>
#include <utility>

namespace quilom::settings {
namespace {

std::mutex& FunctionMutex() {
  static std::mutex mutex;
  return mutex;
}

ShortPathFunction& Installed() {
  static ShortPathFunction function;
  return function;
}

}  // namespace

std::filesystem::path ShortPathOf(const std::filesystem::path& path) {
  ShortPathFunction function;
  {
    std::lock_guard lock(FunctionMutex());
    function = Installed();
  }
  return function ? function(path) : path;
}

ShortPathFunction SetShortPathFunction(ShortPathFunction function) {
  std::lock_guard lock(FunctionMutex());
  return std::exchange(Installed(), std::move(function));
}

}  // namespace quilom::settings
