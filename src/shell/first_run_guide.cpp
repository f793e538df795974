#include "shell/first_run_guide.hpp"

#include <system_error>

namespace quilom::shell {

namespace {

std::optional<std::filesystem::path> ExistingInside(const settings::DataFolders& folders,
                                                    const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error) || !IsInsideDataRoot(folders, file)) return std::nullopt;
  return file;
}

}  // namespace

std::u16string FirstRunGuide(std::u16string_view presentHotkey, std::u16string_view firstKeymap) {
  const std::u16string keymap = firstKeymap.empty() ? u"the first keymap" : std::u16string(firstKeymap);
  std::u16string text;
  if (presentHotkey.empty() || presentHotkey == u"None") {
    text =
        u"To start typing: press 'Start' Global Typing below, or choose a hotkey in the list and press "
        u"Set New Hotkey.\r\n";
  } else {
    const std::u16string hotkey(presentHotkey);
    text = u"To start typing Tamil: press " + hotkey + u" then 1 (" + keymap + u") and type in any program.\r\n" +
           u"Press " + hotkey + u" then the same number to stop; another number switches the keymap.\r\n";
  }
  text +=
      u"Tray icon: left click hides or shows this window, right click opens the menu, middle click starts "
      u"or stops typing.";
  return text;
}

std::optional<std::filesystem::path> KeymapChartPath(const settings::DataFolders& folders, std::u16string_view keymap) {
  if (keymap.empty()) return std::nullopt;
  const std::filesystem::path name = std::filesystem::path(std::u16string(keymap) + u".svg");
  // A keymap name is one file name; anything with a folder in it is not a chart of ours.
  if (name.has_parent_path()) return std::nullopt;
  return ExistingInside(folders, folders.mainDataFolder / "help" / "charts" / name);
}

std::optional<std::filesystem::path> GettingStartedPath(const settings::DataFolders& folders) {
  return ExistingInside(folders, folders.mainDataFolder / "help" / "getting-started.html");
}

bool IsInsideDataRoot(const settings::DataFolders& folders, const std::filesystem::path& file) {
  std::error_code error;
  const auto root = std::filesystem::weakly_canonical(folders.dataRoot, error);
  if (error) return false;
  const auto target = std::filesystem::weakly_canonical(file, error);
  if (error) return false;
  auto rootPart = root.begin();
  auto targetPart = target.begin();
  for (; rootPart != root.end(); ++rootPart, ++targetPart) {
    if (rootPart->empty()) continue;
    if (targetPart == target.end() || *rootPart != *targetPart) return false;
  }
  return targetPart != target.end();
}

}  // namespace quilom::shell
