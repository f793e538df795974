#include "shell/win32/notifier_player.hpp"

#include <windows.h>
#include <mmsystem.h>

#include <string>

#include "controls/win32/wide_text.hpp"
#include "settings/text_file.hpp"
#include "shell/notifier_sound.hpp"

namespace quilom::shell::win32 {

namespace {

// The path in the system code page, or empty when some character has no ANSI form there.
std::string AnsiPath(const std::wstring& path) {
  BOOL lossy = FALSE;
  const int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), -1, nullptr, 0, nullptr, &lossy);
  if (size <= 0 || lossy) return {};
  std::string ansi(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), -1, ansi.data(), size, nullptr, &lossy);
  ansi.resize(static_cast<std::size_t>(size - 1));
  return lossy ? std::string() : ansi;
}

// PlaySoundA only takes ANSI names: a Tamil folder name is reached through its short (8.3)
// form, which is always ANSI when the volume keeps short names.
std::string PlayablePath(const std::wstring& path) {
  std::string ansi = AnsiPath(path);
  if (!ansi.empty()) return ansi;
  const DWORD size = GetShortPathNameW(path.c_str(), nullptr, 0);
  if (size == 0) return {};
  std::wstring shortPath(size, L'\0');
  const DWORD written = GetShortPathNameW(path.c_str(), shortPath.data(), size);
  if (written == 0 || written >= size) return {};
  shortPath.resize(written);
  return AnsiPath(shortPath);
}

bool FileExists(std::u16string_view path) {
  const DWORD attributes = GetFileAttributesW(controls::ToWide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

NotifierPlayer::NotifierPlayer(std::filesystem::path typingFolder)
    : soundsFolder_(std::move(typingFolder) / std::filesystem::path(kNotifierSoundsFolderName)) {}

void NotifierPlayer::Announce(int choice, int hotkeyNumber) const noexcept {
  try {
    const std::u16string folder = soundsFolder_.u16string();
    const auto readList = [this] {
      return settings::ReadTextFile(soundsFolder_ / std::filesystem::path(kNotifierSoundListFile));
    };
    PlayFile(NotifierSoundFile(choice, hotkeyNumber, folder, readList, FileExists));
  } catch (...) {
    // A sound is a courtesy: nothing about it may stop a hotkey from switching typing.
  }
}

void NotifierPlayer::PlayFile(std::u16string_view path) noexcept {
  if (path.empty()) return;
  try {
    const std::string ansi = PlayablePath(controls::ToWide(path));
    if (ansi.empty()) return;
    PlaySoundA(ansi.c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
  } catch (...) {
  }
}

}  // namespace quilom::shell::win32
