#pragma once

#include "settings/data_folders.hpp"

// The main window's share of "Settings - General.txt", read by position: the notifier sound
// choice (1 the system's notify sound, 2 our own, 3 one per keymap, see notifier_sound.hpp),
// whether sounds play at all, and how long a tray balloon stays up.
namespace quilom::shell {

struct GeneralSettings {
  int notifierSoundChoice = 2;
  bool playNotifierSounds = true;
  int balloonSeconds = 4;
  bool operator==(const GeneralSettings&) const = default;
};

// A missing file or value, or one that is not a number, keeps its default; a balloon time is
// kept between 1 and 60 seconds so a typo can neither hide it at once nor leave it up for good.
GeneralSettings LoadGeneralSettings(const settings::DataFolders& folders);

}  // namespace quilom::shell
