#include "shell/offered_keymaps.hpp"

#include "translit/catalogue_lists.hpp"

namespace quilom::shell {

namespace {

std::vector<std::u16string> NamesOf(const std::optional<std::vector<translit::LfkRow>>& rows) {
  std::vector<std::u16string> names;
  if (!rows) return names;
  for (const auto& row : *rows) names.push_back(row.Name());
  return names;
}

}  // namespace

std::vector<std::u16string> LoadOfferedKeymaps(const settings::DataFolders& folders) {
  auto names = NamesOf(translit::LoadLfkList(folders, translit::kFinalizedList));
  if (names.empty()) names = NamesOf(translit::LoadLfkList(folders, translit::kOriginalList));
  if (names.empty()) names.emplace_back(kDefaultKeymap);
  return names;
}

std::u16string KeymapListLabel(int hotkeyNumber, std::u16string_view name) {
  std::u16string digits;
  for (int n = hotkeyNumber; n > 0; n /= 10) digits.insert(digits.begin(), static_cast<char16_t>(u'0' + n % 10));
  if (digits.empty()) digits = u"0";
  return digits + u"  " + std::u16string(name);
}

int HotkeyNumberOf(const std::vector<std::u16string>& offered, std::u16string_view name) {
  for (std::size_t i = 0; i < offered.size(); ++i)
    if (offered[i] == name) return static_cast<int>(i) + 1;
  return 0;
}

std::optional<KeymapRequest> RequestForNumber(const std::vector<std::u16string>& offered, int hotkeyNumber,
                                              bool showInGrid, bool returnFocus) {
  if (hotkeyNumber < 1 || hotkeyNumber > static_cast<int>(offered.size())) return std::nullopt;
  KeymapRequest request;
  request.SelectedKeymap = offered[hotkeyNumber - 1];
  request.hotkeyNumber = hotkeyNumber;
  request.showInGrid = showInGrid;
  request.returnFocus = returnFocus;
  return request;
}

int NumberForDigit(const DigitOutcome& outcome, int floaterChosen) {
  switch (outcome.kind) {
    case DigitOutcome::Kind::SelectIndex:
      return outcome.keymapIndex;
    case DigitOutcome::Kind::ApplyFloaterKeymap:
      return floaterChosen;
    case DigitOutcome::Kind::Nothing:
      break;
  }
  return 0;
}

std::optional<KeymapRequest> ToggleRequest(const std::vector<std::u16string>& offered, int floaterChosen,
                                           const SelectionState& state) {
  if (auto chosen = RequestForNumber(offered, floaterChosen, true, false)) return chosen;
  if (state.globalHookInstalled) return ActiveKeymapRequest(offered, state);
  return RequestForNumber(offered, 1, true, false);
}

KeymapRequest ActiveKeymapRequest(const std::vector<std::u16string>& offered, const SelectionState& state) {
  KeymapRequest request;
  request.SelectedKeymap = state.ActiveKeymap;
  request.hotkeyNumber = HotkeyNumberOf(offered, state.ActiveKeymap);
  return request;
}

}  // namespace quilom::shell
