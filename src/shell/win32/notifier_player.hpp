#pragma once

#include <filesystem>
#include <string_view>

// Plays the notifier sound that announces typing ON and OFF, without waiting for it.
namespace quilom::shell::win32 {

class NotifierPlayer {
 public:
  // `typingFolder` is the typing module's data folder ("Indic Direct Typer"); the sounds are
  // in its "Notifier Sounds" folder.
  explicit NotifierPlayer(std::filesystem::path typingFolder);

  // Resolves the settings' sound choice (1, 2, 3, other) for the keymap with `hotkeyNumber`
  // and plays it asynchronously. A missing file, or one whose path cannot be given to the ANSI
  // call, plays nothing. Never throws.
  void Announce(int choice, int hotkeyNumber) const noexcept;

  // Plays one file (PlaySoundA, SND_FILENAME | SND_ASYNC); an empty path plays nothing.
  static void PlayFile(std::u16string_view path) noexcept;

 private:
  std::filesystem::path soundsFolder_;
};

}  // namespace quilom::shell::win32
