#include "settings/code_page.hpp"

#include <array>
#include <mutex>

namespace quilom::settings {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Bytes 0x80 to 0x9F of Windows-1252; the rest of the page equals Latin-1. The five holes
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) are left undefined, as the system's own table leaves them.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC,       kReplacement, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,        // 80-87
    0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kReplacement, 0x017D, kReplacement,  // 88-8F
    kReplacement, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,        // 90-97
    0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kReplacement, 0x017E, 0x0178,        // 98-9F
};

class Windows1252Page final : public CodePage {
 public:
  int Number() const override { return 1252; }

  char16_t ToUnicode(unsigned char byte) const override {
    if (byte >= 0x80 && byte <= 0x9F) return kHighControls[byte - 0x80];
    return byte;
  }

  int FromUnicode(char16_t ch) const override {
    if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) return ch;
    if (ch == kReplacement) return -1;
    for (size_t i = 0; i < kHighControls.size(); ++i) {
      if (kHighControls[i] == ch) return static_cast<int>(0x80 + i);
    }
    return -1;
  }
};

bool IsHighSurrogate(char16_t ch) { return ch >= 0xD800 && ch <= 0xDBFF; }
bool IsLowSurrogate(char16_t ch) { return ch >= 0xDC00 && ch <= 0xDFFF; }

std::mutex& InstalledMutex() {
  static std::mutex mutex;
  return mutex;
}

std::shared_ptr<const CodePage>& Installed() {
  static std::shared_ptr<const CodePage> page = Windows1252();
  return page;
}

}  // namespace

std::u16string CodePage::Decode(std::string_view bytes) const {
  std::u16string out;
  out.reserve(bytes.size());
  for (char byte : bytes) out += ToUnicode(static_cast<unsigned char>(byte));
  return out;
}

std::string CodePage::Encode(std::u16string_view text) const {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    // A character outside the BMP is one character to the user, so it becomes one '?'.
    if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      out += '?';
      ++i;
      continue;
    }
    const int byte = FromUnicode(text[i]);
    out += byte < 0 ? '?' : static_cast<char>(byte);
  }
  return out;
}

std::shared_ptr<const CodePage> Windows1252() {
  static const auto page = std::make_shared<const Windows1252Page>();
  return page;
}

const CodePage& SystemCodePage() {
  std::lock_guard lock(InstalledMutex());
  return *Installed();
}

std::shared_ptr<const CodePage> SetSystemCodePage(std::shared_ptr<const CodePage> codePage) {
  std::lock_guard lock(InstalledMutex());
  // A null page would leave every reader without a decoder; keep the default instead.
  if (!codePage) codePage = Windows1252();
  auto previous = Installed();
  Installed() = std::move(codePage);
  return previous;
}

}  // namespace quilom::settings
