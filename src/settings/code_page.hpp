#pragma once

#include <memory>
#include <string>
#include <string_view>

// The system's "ANSI" code page. The core never asks the operating system: it uses the code
// page installed here, Windows-1252 unless the Windows program installs the one the system
// reports, so that tests are deterministic.
namespace quilom::settings {

class CodePage {
 public:
  virtual ~CodePage() = default;
  virtual int Number() const = 0;  // 1252, ...
  // The character of one byte; bytes the code page leaves undefined map to U+FFFD.
  virtual char16_t ToUnicode(unsigned char byte) const = 0;
  // The byte of one character, or -1 when the code page cannot show it.
  virtual int FromUnicode(char16_t ch) const = 0;

  std::u16string Decode(std::string_view bytes) const;
  // Characters the code page cannot show become '?', as the system's own conversion does.
  std::string Encode(std::u16string_view text) const;
};

std::shared_ptr<const CodePage> Windows1252();

// The reference stays valid while the page is installed, and after that while the shared
// pointer that SetSystemCodePage returned for it is kept.
const CodePage& SystemCodePage();
// Returns the previous code page.
std::shared_ptr<const CodePage> SetSystemCodePage(std::shared_ptr<const CodePage> codePage);

}  // namespace quilom::settings
