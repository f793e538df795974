#include "settings/win32/system_text_settings.hpp"

#include <windows.h>

#include <array>
#include <memory>
#include <string>

#include "settings/code_page.hpp"
#include "settings/short_path.hpp"

namespace quilom::settings::win32 {
namespace {

// The system's single-byte view of its code page, read once. Bytes that are lead bytes of a
// double-byte code page, or undefined, read as U+FFFD, like the core's own tables.
class SystemAnsiCodePage final : public CodePage {
 public:
  SystemAnsiCodePage() : number_(static_cast<int>(GetACP())) {
    for (int byte = 0; byte < 256; ++byte) {
      const char in = static_cast<char>(byte);
      wchar_t out = 0;
      const int made = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &in, 1, &out, 1);
      toUnicode_[byte] = made == 1 ? static_cast<char16_t>(out) : u'\uFFFD';
    }
  }
  int Number() const override { return number_; }
  char16_t ToUnicode(unsigned char byte) const override { return toUnicode_[byte]; }
  int FromUnicode(char16_t ch) const override {
    if (ch == u'\uFFFD') return -1;
    for (int byte = 0; byte < 256; ++byte) {
      if (toUnicode_[byte] == ch) return byte;
    }
    return -1;
  }

 private:
  int number_;
  std::array<char16_t, 256> toUnicode_{};
};

std::filesystem::path ShortPathByGetShortPathName(const std::filesystem::path& path) {
  wchar_t buffer[260];
  const DWORD length = GetShortPathNameW(path.c_str(), buffer, 260);
  if (length == 0 || length >= 260) return {};
  return std::filesystem::path(std::wstring(buffer, length));
}

}  // namespace

void InstallSystemTextSettings() {
  SetSystemCodePage(std::make_shared<SystemAnsiCodePage>());
  SetShortPathFunction(ShortPathByGetShortPathName);
}

}  // namespace quilom::settings::win32
