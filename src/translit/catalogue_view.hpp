#pragma once

#include <string_view>
#include <vector>

#include "translit/catalogue_filters.hpp"
#include "translit/catalogue_lists.hpp"

// What the catalogue window shows: the loaded list, the "Filter By" choice and the rows it lets
// through, in list order. The window keeps no state of its own beyond this; it only mirrors
// Shown() in its grid.
//
// Decisions of this implementation:
// - Finalising, and saving into a "Move To" choice, write the rows shown: filtering a list down
//   and finalising it is how the user chooses the keymaps the main window offers.
// - Moving a row while a filter is on swaps it with the next shown row above or below, wherever
//   that row stands in the whole list; the hidden rows keep their places.
namespace quilom::translit {

class CatalogueView {
 public:
  // A new list: the filter stays as chosen and is applied to the new rows.
  void SetRows(std::vector<LfkRow> rows);
  void SetFilter(const LfkChoice& choice);

  const std::vector<LfkRow>& Rows() const { return rows_; }
  const LfkChoice& Filter() const { return filter_; }
  // The list positions of the rows shown, in order.
  const std::vector<int>& Shown() const { return shown_; }
  const LfkRow& ShownRow(int shownIndex) const {
    return rows_[static_cast<size_t>(shown_[static_cast<size_t>(shownIndex)])];
  }
  std::vector<LfkRow> ShownRows() const;

  // Moves the shown row `shownIndex` one shown place up (delta < 0) or down (delta > 0).
  // Returns its new shown index; an index out of range, or a move past either end, leaves the
  // rows as they are and returns `shownIndex`.
  int MoveShown(int shownIndex, int delta);

  // The finder (FindLfk over the shown rows). `row` in the result is a list position; when the
  // row found is hidden by the filter, `clearsFilter` says the window must drop the filter to
  // show it.
  struct Found {
    int shownIndex = -1;  // after clearing the filter when clearsFilter is set
    bool clearsFilter = false;
    std::u16string message;
  };
  Found Find(const LfkChoice& finder, std::u16string_view changedEntry) const;

 private:
  void Refresh();
  int ShownIndexOf(int listRow) const;

  std::vector<LfkRow> rows_;
  LfkChoice filter_;
  std::vector<int> shown_;
};

}  // namespace quilom::translit
