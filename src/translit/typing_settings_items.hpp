#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "settings/data_folders.hpp"
#include "translit/typing_settings.hpp"

// The check boxes of the typing settings window (`qmset`), one per key, grouped by the category
// rows of `lcat` that show them. The captions are this window's own wording.
namespace quilom::translit {

struct TypingSettingItem {
  int categoryRow;            // the `lcat` row that shows it
  std::u16string_view group;  // the control array it belongs to: "chbTevGeneral", "chbTev", ...
  int index;                  // its item number within that array
  TypingSettingKey key;
  std::u16string_view caption;
};

// Every item, in the order the window lays them out.
std::span<const TypingSettingItem> TypingSettingItems();

// The items a click on `lcat` row `row` shows; none for a separator row or a row out of range.
std::vector<TypingSettingItem> ItemsOfCategory(int row);

// The tick the item's box shows: "1" in the file ticks, anything else unticks; a missing file
// or key gives the key's default.
bool ReadTypingSetting(const settings::DataFolders& folders, const TypingSettingKey& key);

}  // namespace quilom::translit
