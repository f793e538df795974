#include "tools/win32/startup_platform_win32.hpp"

#include <windows.h>
#include <shlobj.h>

#include <string>

namespace quilom::tools::win32 {
namespace {

std::string ToAnsi(std::u16string_view text) {
  if (text.empty()) return {};
  const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return {};
  std::string ansi(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide, length, ansi.data(), size, nullptr, nullptr);
  return ansi;
}

}  // namespace

std::u16string Win32StartupPlatform::StartupFolder() {
  wchar_t path[MAX_PATH] = {};
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_STARTUP, nullptr, SHGFP_TYPE_CURRENT, path))) return {};
  return std::u16string(reinterpret_cast<const char16_t*>(path));
}

void Win32StartupPlatform::WriteIniValue(std::u16string_view file, std::u16string_view section,
                                         std::u16string_view key, std::u16string_view value) {
  // The ini writer's failures are not the user's concern: the link is only a convenience.
  WritePrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(value).c_str(),
                             ToAnsi(file).c_str());
}

bool Win32StartupPlatform::FileExists(std::u16string_view path) {
  return GetFileAttributesA(ToAnsi(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void Win32StartupPlatform::RemoveFile(std::u16string_view path) { DeleteFileA(ToAnsi(path).c_str()); }

void Win32StartupPlatform::ShowMessage(std::u16string_view text) {
  const std::wstring message(text.begin(), text.end());
  MessageBoxW(nullptr, message.c_str(), L"Quilom++", MB_OK);
}

}  // namespace quilom::tools::win32
