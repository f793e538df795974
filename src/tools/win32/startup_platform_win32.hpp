#pragma once

#include "tools/startup_link.hpp"

// The start-up link's view of Windows: the shell's Startup folder, the ANSI ini writer, the
// ANSI file calls (the link is written through the system code page, so it is found and
// deleted the same way) and a plain message box.
namespace quilom::tools::win32 {

class Win32StartupPlatform final : public StartupPlatform {
 public:
  std::u16string StartupFolder() override;
  void WriteIniValue(std::u16string_view file, std::u16string_view section, std::u16string_view key,
                     std::u16string_view value) override;
  bool FileExists(std::u16string_view path) override;
  void RemoveFile(std::u16string_view path) override;
  void ShowMessage(std::u16string_view text) override;
};

}  // namespace quilom::tools::win32
