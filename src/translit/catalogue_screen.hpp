#pragma once

#include <string>
#include <string_view>

#include "settings/data_folders.hpp"

// The catalogue window's own state, "inps\Settings-Lfks-Screen.txt": one setting a line,
// name + "`````" + value, CR LF, UTF-16LE with mark.
//
// Decisions of this implementation: sizes are in pixels; "Maximized State" is written "1" or
// "0" and read as maximised for "1", "-1" or "True"; a missing file, line or unusable number
// keeps the default below; lines of other names are kept when the file is written back.
namespace quilom::translit {

inline constexpr std::u16string_view kScreenSeparator = u"`````";

struct CatalogueScreen {
  int width = 0;  // 0: the window's own default size
  int height = 0;
  bool maximized = false;
  std::u16string fileToBeLoaded{u"Finalized"};  // a list name: "Original", "Choices-3", ...
  bool operator==(const CatalogueScreen&) const = default;
};

CatalogueScreen ParseCatalogueScreen(std::u16string_view text);
CatalogueScreen ReadCatalogueScreen(const settings::DataFolders& folders);
// The four settings put into `existing`'s lines (added at the end when missing).
std::u16string FormatCatalogueScreen(std::u16string_view existing, const CatalogueScreen& screen);
// Returns whether the file was written; a failure is reported ("WT-File").
bool WriteCatalogueScreen(const settings::DataFolders& folders, const CatalogueScreen& screen);

}  // namespace quilom::translit
