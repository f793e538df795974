#include "tools/startup_link.hpp"

#include "text/strings.hpp"

namespace quilom::tools {
namespace {

constexpr std::u16string_view kSection = u"InternetShortcut";

}  // namespace

std::u16string StartupLinkPath(StartupPlatform& platform) {
  const std::u16string folder = platform.StartupFolder();
  if (folder.empty()) return {};
  return folder + u"\\" + std::u16string(kStartupLinkName);
}

bool CreateStartupLink(StartupPlatform& platform, std::u16string_view programFolder) {
  const std::u16string link = StartupLinkPath(platform);
  if (link.empty()) {
    platform.ShowMessage(kNoStartupFolderMessage);
    return false;
  }
  const std::u16string program = std::u16string(programFolder) + u"\\" + std::u16string(kProgramFileName);
  platform.WriteIniValue(link, kSection, u"URL", u"file:///" + program);
  platform.WriteIniValue(link, kSection, u"IconIndex", u"0");
  platform.WriteIniValue(link, kSection, u"IconFile", program);
  return true;
}

void RemoveStartupLink(StartupPlatform& platform) {
  const std::u16string link = StartupLinkPath(platform);
  if (!link.empty() && platform.FileExists(link)) platform.RemoveFile(link);
}

void EnsureStartupLink(StartupPlatform& platform, std::u16string_view programFolder) {
  const std::u16string link = StartupLinkPath(platform);
  if (link.empty() || !platform.FileExists(link)) CreateStartupLink(platform, programFolder);
}

bool IsStartWithWindowsOn(std::u16string_view choice) {
  const std::u16string value = text::AsciiLower(text::Trim(choice));
  return value == u"1" || value == u"yes";
}

void ApplyStartWithWindowsChoice(StartupPlatform& platform, std::u16string_view programFolder,
                                 std::u16string_view choice) {
  if (IsStartWithWindowsOn(choice)) {
    CreateStartupLink(platform, programFolder);
  } else {
    RemoveStartupLink(platform);
  }
}

void RestoreStartWithWindows(StartupPlatform& platform, std::u16string_view programFolder,
                             std::u16string_view storedChoice) {
  if (IsStartWithWindowsOn(storedChoice)) EnsureStartupLink(platform, programFolder);
}

}  // namespace quilom::tools
