#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

// Report-mode list views filled a whole row at a time, shared by the catalogue and the floater.
namespace quilom::translit::win32 {

struct ListColumn {
  std::wstring_view caption;
  int width;  // pixels
};

// Replaces every column of `list` with `columns`.
void SetListColumns(HWND list, const std::vector<ListColumn>& columns);

// Replaces every row with `rows` (one text per column), redrawing once at the end.
void SetListRows(HWND list, const std::vector<std::vector<std::u16string>>& rows);

// Selects and focuses row `row` alone and scrolls it into view; -1 clears the selection.
void SelectListRow(HWND list, int row);

// The selected row, -1 for none.
int SelectedListRow(HWND list);

}  // namespace quilom::translit::win32
