#include "shell/general_settings.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "settings/settings_list.hpp"
#include "text/strings.hpp"

namespace quilom::shell {

namespace {

std::optional<int> SmallNumber(const std::vector<std::u16string>& values, std::size_t index) {
  if (index >= values.size()) return std::nullopt;
  const std::u16string value = text::Trim(values[index]);
  if (value.empty() || value.size() > 4) return std::nullopt;
  int number = 0;
  for (const char16_t c : value) {
    if (c < u'0' || c > u'9') return std::nullopt;
    number = number * 10 + (c - u'0');
  }
  return number;
}

}  // namespace

GeneralSettings LoadGeneralSettings(const settings::DataFolders& folders) {
  GeneralSettings general;
  const auto file = folders.mainDataFolder / "Settings - General.txt";
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return general;
  const auto values = settings::ReadSettingsListEntries(file, false);
  if (const auto choice = SmallNumber(values, 0)) general.notifierSoundChoice = *choice;
  if (const auto play = SmallNumber(values, 1)) general.playNotifierSounds = *play == 1;
  if (const auto seconds = SmallNumber(values, 2)) general.balloonSeconds = std::clamp(*seconds, 1, 60);
  return general;
}

}  // namespace quilom::shell
