#include "tools/win32/open_web_address.hpp"

#include <windows.h>
#include <shellapi.h>

#include <string>

#include "tools/url_normalizer.hpp"

namespace quilom::tools::win32 {

bool OpenWebAddress(std::u16string_view address) {
  if (!IsOpenableWebAddress(address)) return false;
  const std::wstring wide(address.begin(), address.end());
  // ShellExecute reports success as a value above 32.
  const auto result = reinterpret_cast<INT_PTR>(
      ShellExecuteW(nullptr, L"open", wide.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  return result > 32;
}

}  // namespace quilom::tools::win32
