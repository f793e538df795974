#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What the program ships in each module's "Settings.txt": its title line and every key the
// program knows, in file order, with its default value. A missing settings file is made again
// from this, and a save puts back any known key a file has lost, so a key never disappears for
// good. The shipped data files hold the same text; a test keeps the two equal.
namespace quilom::settings {

struct SettingsDefaults {
  std::u16string_view title;
  std::vector<std::pair<std::u16string_view, std::u16string_view>> keys;  // key, default value
};

// The defaults of the "Settings.txt" in the module folder `moduleName`; nullptr for a folder
// the program ships no settings file in.
const SettingsDefaults* ShippedSettingsOf(std::u16string_view moduleName);

// The whole file as lines: the title, each key line and its value, and an empty last line so
// that the text ends with CR LF.
std::vector<std::u16string> DefaultSettingsLines(const SettingsDefaults& defaults);

}  // namespace quilom::settings
