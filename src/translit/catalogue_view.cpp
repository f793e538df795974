#include "translit/catalogue_view.hpp"

#include <algorithm>
#include <utility>

namespace quilom::translit {

void CatalogueView::SetRows(std::vector<LfkRow> rows) {
  rows_ = std::move(rows);
  Refresh();
}

void CatalogueView::SetFilter(const LfkChoice& choice) {
  filter_ = choice;
  Refresh();
}

void CatalogueView::Refresh() {
  shown_.clear();
  const std::vector<bool> visible = VisibleRows(rows_, filter_);
  for (size_t i = 0; i < visible.size(); ++i) {
    if (visible[i]) shown_.push_back(static_cast<int>(i));
  }
}

std::vector<LfkRow> CatalogueView::ShownRows() const {
  std::vector<LfkRow> rows;
  rows.reserve(shown_.size());
  for (const int row : shown_) rows.push_back(rows_[static_cast<size_t>(row)]);
  return rows;
}

int CatalogueView::MoveShown(int shownIndex, int delta) {
  const int count = static_cast<int>(shown_.size());
  if (shownIndex < 0 || shownIndex >= count || delta == 0) return shownIndex;
  const int target = shownIndex + (delta < 0 ? -1 : 1);
  if (target < 0 || target >= count) return shownIndex;
  std::swap(rows_[static_cast<size_t>(shown_[static_cast<size_t>(shownIndex)])],
            rows_[static_cast<size_t>(shown_[static_cast<size_t>(target)])]);
  // Both rows pass the filter, so the shown positions need no refresh.
  return target;
}

int CatalogueView::ShownIndexOf(int listRow) const {
  const auto found = std::find(shown_.begin(), shown_.end(), listRow);
  return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

CatalogueView::Found CatalogueView::Find(const LfkChoice& finder, std::u16string_view changedEntry) const {
  std::vector<bool> visible(rows_.size(), false);
  for (const int row : shown_) visible[static_cast<size_t>(row)] = true;
  const FinderResult result = FindLfk(rows_, visible, finder, changedEntry);
  Found found;
  found.message = result.message;
  if (result.row < 0) return found;
  found.shownIndex = ShownIndexOf(result.row);
  if (found.shownIndex < 0) {
    // Without a filter every row is shown, in list order.
    found.clearsFilter = true;
    found.shownIndex = result.row;
  }
  return found;
}

}  // namespace quilom::translit
