#pragma once

#include <string>
#include <string_view>

// The start-up link: an internet-shortcut file "QuilomPP.url" in the user's Startup folder that
// points at the program, so that it starts at log-on. It is written through the system's
// ANSI ini writer, value by value, not as a shell shortcut; a program folder with characters
// outside the system code page therefore gives a link with a wrong path (accepted).
namespace quilom::tools {

// What the link needs of the system.
class StartupPlatform {
 public:
  virtual ~StartupPlatform() = default;
  // The current user's Startup folder without a trailing backslash; "" when the shell has none.
  virtual std::u16string StartupFolder() = 0;
  // Sets one value as the system's ANSI ini writer does (creating the file and section when
  // needed, replacing an existing key in place). Failures are not reported.
  virtual void WriteIniValue(std::u16string_view file, std::u16string_view section, std::u16string_view key,
                             std::u16string_view value) = 0;
  virtual bool FileExists(std::u16string_view path) = 0;
  virtual void RemoveFile(std::u16string_view path) = 0;
  // A plain message box titled "Quilom++".
  virtual void ShowMessage(std::u16string_view text) = 0;
};

inline constexpr std::u16string_view kStartupLinkName = u"QuilomPP.url";
inline constexpr std::u16string_view kProgramFileName = u"Quilom++.exe";
inline constexpr std::u16string_view kStartWithWindowsKey = u"StartQuilom++ WithWindows";
inline constexpr std::u16string_view kNoStartupFolderMessage =
    u"Unable to create a startup link to Quilom++. Create a shortcut to Quilom++ manually in "
    u"'Start->All Programs->StartUp' directory.";

// The link's full path: Startup folder + "\" + "QuilomPP.url"; "" when there is no Startup folder.
std::u16string StartupLinkPath(StartupPlatform& platform);

// Writes, in this order, [InternetShortcut] URL = "file:///" + programFolder + "\Quilom++.exe",
// IconIndex = "0", IconFile = programFolder + "\Quilom++.exe". `programFolder` has no trailing
// backslash. With no Startup folder, writes nothing, shows kNoStartupFolderMessage and returns
// false.
bool CreateStartupLink(StartupPlatform& platform, std::u16string_view programFolder);

// Deletes the link when it exists; otherwise does nothing and shows nothing.
void RemoveStartupLink(StartupPlatform& platform);

// Creates the link when it does not exist (a link the user deleted comes back).
void EnsureStartupLink(StartupPlatform& platform, std::u16string_view programFolder);

// Whether a stored or chosen value of "StartQuilom++ WithWindows" means on: "1" or "Yes"
// (trimmed, any case), as the settings files and the settings grid's choices write it.
bool IsStartWithWindowsOn(std::u16string_view choice);

// The settings grid row changed: on creates the link, any other choice removes it.
void ApplyStartWithWindowsChoice(StartupPlatform& platform, std::u16string_view programFolder,
                                 std::u16string_view choice);

// The settings grid loaded the row: when the stored choice is on, makes sure the link exists.
void RestoreStartWithWindows(StartupPlatform& platform, std::u16string_view programFolder,
                             std::u16string_view storedChoice);

}  // namespace quilom::tools
