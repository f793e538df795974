#include "translit/win32/list_view_rows.hpp"

#include <commctrl.h>

#include "controls/win32/wide_text.hpp"

namespace quilom::translit::win32 {

void SetListColumns(HWND list, const std::vector<ListColumn>& columns) {
  while (ListView_DeleteColumn(list, 0)) {
  }
  for (size_t index = 0; index < columns.size(); ++index) {
    std::wstring caption(columns[index].caption);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = caption.data();
    column.cx = columns[index].width;
    ListView_InsertColumn(list, static_cast<int>(index), &column);
  }
}

void SetListRows(HWND list, const std::vector<std::vector<std::u16string>>& rows) {
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  ListView_DeleteAllItems(list);
  for (size_t row = 0; row < rows.size(); ++row) {
    for (size_t column = 0; column < rows[row].size(); ++column) {
      std::wstring text = controls::ToWide(rows[row][column]);
      if (column == 0) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(row);
        item.pszText = text.data();
        ListView_InsertItem(list, &item);
      } else {
        ListView_SetItemText(list, static_cast<int>(row), static_cast<int>(column), text.data());
      }
    }
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list, nullptr, TRUE);
}

void SelectListRow(HWND list, int row) {
  ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
  if (row < 0) return;
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_EnsureVisible(list, row, FALSE);
}

int SelectedListRow(HWND list) { return ListView_GetNextItem(list, -1, LVNI_SELECTED); }

}  // namespace quilom::translit::win32
