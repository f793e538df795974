// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/win32/wide_text.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_window.hpp"
#include "translit/catalogue_filters.hpp"
#include "translit/catalogue_lists.hpp"
#include "translit/catalogue_screen.hpp"
#include "translit/catalogue_view.hpp"
#include "translit/win32/list_view_rows.hpp"
#include "translit/win32/settings_windows.hpp"

// Choices of this window:
// - The grid shows the filtered rows of the loaded list, with the fourth column as "No.".
// - "Load > Installed keymaps" lists the keymap files of the keymap folder; it is not a list
//   file, so the screen file keeps naming the list loaded before it.
// - A finder choice that only a row hidden by the filter matches drops the filter, so the row
//   can be shown and highlighted.
// - Finalising an empty view is refused: the main window would have nothing to offer.
namespace quilom::translit::win32 {
namespace {

enum ControlId : int {
  kFilterLabel = 1501,
  kFilterFirst,  // cbxFilters: language, encoding, layout
  kFindLabel = kFilterFirst + 3,
  kFinderFirst,  // cbxFinders
  kGrid = kFinderFirst + 3,
  kStatus,
  kMoveUp,
  kMoveDown,
  kMoveToLabel,
  kMoveTo,
  kSaveChoice,
  kFinalize,  // cmdFinalize
  kClose,
  // Menu commands.
  kLoadOriginal = 1600,
  kLoadSorted,
  kLoadFinalized,
  kLoadInstalled,
  kLoadChoiceFirst = 1610,  // mniLoadChoice 1 to 9
};

constexpr wchar_t kKind[] = L"qmAllXmls";

HMENU BuildMenu() {
  HMENU load = CreatePopupMenu();
  AppendMenuW(load, MF_STRING, kLoadOriginal, L"&Original");
  AppendMenuW(load, MF_STRING, kLoadSorted, L"&Sorted");
  AppendMenuW(load, MF_STRING, kLoadFinalized, L"&Finalized");
  AppendMenuW(load, MF_SEPARATOR, 0, nullptr);
  for (int n = 1; n <= kChoiceLists; ++n) {
    const std::wstring caption = L"Choices-&" + std::to_wstring(n);
    AppendMenuW(load, MF_STRING, kLoadChoiceFirst + n - 1, caption.c_str());
  }
  AppendMenuW(load, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(load, MF_STRING, kLoadInstalled, L"&Installed keymaps");
  HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(load), L"&Load");
  return bar;
}

class CatalogueWindow final : public tools::win32::ToolWindow {
 public:
  CatalogueWindow(const settings::DataFolders& folders, HWND owner, CatalogueScreen screen)
      : folders_(folders), owner_(owner), screen_(std::move(screen)) {}

 protected:
  void OnCreate() override {
    const std::u16string person =
        PersonNamedEncoding(LoadLfkList(folders_, kOriginalList).value_or(std::vector<LfkRow>{}));
    const std::array<std::vector<std::u16string>, 3> filters = {
        LanguageVocabulary(), EncodingVocabulary(person, VocabularyUse::Filter), LayoutVocabulary()};
    const std::array<std::vector<std::u16string>, 3> finders = {
        LanguageVocabulary(), EncodingVocabulary(person, VocabularyUse::Finder), LayoutVocabulary()};
    // A label's mnemonic reaches the control made after it, so each row is made in order.
    AddLabel(kFilterLabel, L"Filter &By:");
    for (int i = 0; i < 3; ++i) AddCombo(kFilterFirst + i, filters[static_cast<size_t>(i)]);
    AddLabel(kFindLabel, L"F&ind:");
    for (int i = 0; i < 3; ++i) AddCombo(kFinderFirst + i, finders[static_cast<size_t>(i)]);
    AddGrid();
    AddLabel(kStatus, L"");
    AddButton(kMoveUp, L"Move &Up");
    AddButton(kMoveDown, L"Move &Down");
    AddLabel(kMoveToLabel, L"Move &To:");
    std::vector<std::u16string> choices = MoveToEntries();
    AddCombo(kMoveTo, choices);
    AddButton(kSaveChoice, L"&Save as Choice");
    AddButton(kFinalize, L"Finali&ze");
    AddButton(kClose, L"Close");
    LoadStartList();
  }

  void OnLayout(int width, int height) override {
    const int margin = Px(10), row = Px(26), label = Px(60), inner = width - 2 * margin;
    const int comboWidth = (inner - label - 2 * Px(6)) / 3;
    int y = margin;
    for (const int first : {kFilterFirst, kFinderFirst}) {
      Place(first - 1, margin, y + Px(4), label, Px(18));
      for (int i = 0; i < 3; ++i) {
        Place(first + i, margin + label + i * (comboWidth + Px(6)), y, comboWidth, Px(300));
      }
      y += row + Px(4);
    }
    const int bottom = height - margin - row;
    Place(kGrid, margin, y, inner, bottom - Px(24) - y);
    Place(kStatus, margin, bottom - Px(20), inner, Px(18));
    int x = margin;
    const auto button = [&](int id, int w) {
      Place(id, x, bottom, Px(w), row);
      x += Px(w) + Px(6);
    };
    button(kMoveUp, 80);
    button(kMoveDown, 90);
    Place(kMoveToLabel, x, bottom + Px(5), Px(56), Px(18));
    x += Px(58);
    Place(kMoveTo, x, bottom, Px(44), Px(300));
    x += Px(50);
    button(kSaveChoice, 110);
    Place(kFinalize, width - margin - Px(186), bottom, Px(90), row);
    Place(kClose, width - margin - Px(90), bottom, Px(90), row);
  }

  void OnCommand(int id, int code) override;
  void OnDestroy() override { SaveScreen(); }
  int DefaultButton() const override { return kFinalize; }
  std::u16string_view ErrorTag() const override { return u"qmAllXmls"; }

 private:
  void AddCombo(int id, const std::vector<std::u16string>& entries) {
    HWND combo =
        CreateWindowExW(0, WC_COMBOBOXW, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0, 0,
                        0, 0, Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    SendMessageW(combo, WM_SETFONT, SendMessageW(Item(kFilterLabel), WM_GETFONT, 0, 0), FALSE);
    for (const auto& entry : entries) {
      SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(controls::ToWide(entry).c_str()));
    }
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
  }

  void AddGrid() {
    HWND grid =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                        WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS, 0, 0, 0, 0,
                        Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kGrid)), nullptr, nullptr);
    SendMessageW(grid, WM_SETFONT, SendMessageW(Item(kFilterLabel), WM_GETFONT, 0, 0), FALSE);
    ListView_SetExtendedListViewStyle(grid, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    SetListColumns(
        grid, {{L"Language", Px(130)}, {L"Font Encoding", Px(120)}, {L"Keyboard Layout", Px(200)}, {L"No.", Px(50)}});
  }

  std::u16string ComboText(int id) const {
    HWND combo = Item(id);
    const auto index = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    if (index < 0) return {};
    std::wstring text(static_cast<size_t>(SendMessageW(combo, CB_GETLBTEXTLEN, index, 0)) + 1, L'\0');
    text.resize(static_cast<size_t>(SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()))));
    return controls::FromWide(text);
  }

  LfkChoice ChoiceOf(int first) const { return {ComboText(first), ComboText(first + 1), ComboText(first + 2)}; }

  void LoadStartList() {
    for (const std::u16string_view name :
         {std::u16string_view(screen_.fileToBeLoaded), kFinalizedList, kOriginalList}) {
      if (LoadNamedList(std::u16string(name), false)) return;
    }
    ShowRows();
  }

  bool LoadNamedList(const std::u16string& name, bool tellWhenMissing) {
    std::optional<std::vector<LfkRow>> rows = LoadLfkList(folders_, name);
    if (!rows) {
      if (tellWhenMissing) {
        tools::win32::ShowInformation(Handle(), u"The list \"" + name + u"\" has not been saved yet.");
      }
      return false;
    }
    listName_ = name;
    screen_.fileToBeLoaded = name;
    view_.SetRows(std::move(*rows));
    ShowRows();
    return true;
  }

  void LoadInstalled() {
    listName_ = u"Installed keymaps";
    view_.SetRows(InstalledLfks(folders_.keymapFolder));
    ShowRows();
  }

  void ShowRows(int highlight = -1) {
    std::vector<std::vector<std::u16string>> cells;
    for (size_t i = 0; i < view_.Shown().size(); ++i) {
      const LfkRow& row = view_.ShownRow(static_cast<int>(i));
      cells.push_back({row.language, row.encoding, row.layout, row.fourth});
    }
    SetListRows(Item(kGrid), cells);
    SelectListRow(Item(kGrid), highlight);
    const std::wstring status = L"List: " + controls::ToWide(listName_) + L"  -  " +
                                std::to_wstring(view_.Shown().size()) + L" of " + std::to_wstring(view_.Rows().size()) +
                                L" LFKs shown";
    SetWindowTextW(Item(kStatus), status.c_str());
  }

  void ClearFilters() {
    for (int i = 0; i < 3; ++i) SendMessageW(Item(kFilterFirst + i), CB_SETCURSEL, 0, 0);
    view_.SetFilter(LfkChoice{});
  }

  void Find(int changedId) {
    const CatalogueView::Found found = view_.Find(ChoiceOf(kFinderFirst), ComboText(changedId));
    if (!found.message.empty()) tools::win32::ShowInformation(Handle(), found.message);
    if (found.clearsFilter) ClearFilters();
    ShowRows(found.shownIndex);
    if (found.shownIndex >= 0) SetFocus(Item(kGrid));
  }

  void Move(int delta) {
    const int selected = SelectedListRow(Item(kGrid));
    if (selected < 0) return;
    ShowRows(view_.MoveShown(selected, delta));
    SetFocus(Item(kGrid));
  }

  void SaveAs(std::u16string_view listName) {
    if (SaveLfkList(folders_, listName, view_.ShownRows())) {
      tools::win32::ShowInformation(Handle(), u"The " + std::u16string(listName) + u" list is saved.");
    }
  }

  void Finalize() {
    const std::vector<LfkRow> rows = view_.ShownRows();
    if (rows.empty()) {
      tools::win32::ShowInformation(Handle(), u"No LFK is shown, so there is nothing to finalise.");
      return;
    }
    if (!SaveLfkList(folders_, kFinalizedList, rows)) return;
    if (owner_ != nullptr) PostMessageW(owner_, OfferedKeymapsChangedMessage(), rows.size(), 0);
    const std::wstring count = std::to_wstring(rows.size());
    tools::win32::ShowInformation(Handle(), u"The Finalized list now holds " + controls::FromWide(count) +
                                                u" LFKs: Quilom++ offers these for typing.");
  }

  void SaveScreen() {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof(placement);
    if (GetWindowPlacement(Handle(), &placement)) {
      screen_.width = placement.rcNormalPosition.right - placement.rcNormalPosition.left;
      screen_.height = placement.rcNormalPosition.bottom - placement.rcNormalPosition.top;
    }
    screen_.maximized = IsZoomed(Handle()) != FALSE;
    WriteCatalogueScreen(folders_, screen_);
  }

  settings::DataFolders folders_;
  HWND owner_;
  CatalogueScreen screen_;
  CatalogueView view_;
  std::u16string listName_;
};

void CatalogueWindow::OnCommand(int id, int code) {
  if (id >= kFilterFirst && id < kFilterFirst + 3 && code == CBN_SELCHANGE) {
    view_.SetFilter(ChoiceOf(kFilterFirst));
    ShowRows();
  } else if (id >= kFinderFirst && id < kFinderFirst + 3 && code == CBN_SELCHANGE) {
    Find(id);
  } else if (id == kLoadOriginal || id == kLoadSorted || id == kLoadFinalized) {
    const std::u16string_view names[] = {kOriginalList, kSortedList, kFinalizedList};
    LoadNamedList(std::u16string(names[id - kLoadOriginal]), true);
  } else if (id >= kLoadChoiceFirst && id < kLoadChoiceFirst + kChoiceLists) {
    LoadNamedList(ChoiceListName(id - kLoadChoiceFirst + 1), true);
  } else if (id == kLoadInstalled) {
    LoadInstalled();
  } else if (id == kMoveUp || id == kMoveDown) {
    Move(id == kMoveUp ? -1 : 1);
  } else if (id == kSaveChoice) {
    SaveAs(ChoiceListName(static_cast<int>(SendMessageW(Item(kMoveTo), CB_GETCURSEL, 0, 0)) + 1));
  } else if (id == kFinalize) {
    Finalize();
  } else if (id == kClose) {
    PostMessageW(Handle(), WM_CLOSE, 0, 0);
  }
}

}  // namespace

UINT OfferedKeymapsChangedMessage() {
  static const UINT message = RegisterWindowMessageW(L"Quilom++ Offered Keymaps Changed");
  return message;
}

UINT TypingSettingsChangedMessage() {
  static const UINT message = RegisterWindowMessageW(L"Quilom++ Typing Settings Changed");
  return message;
}

void TellOwnerSettingsChanged(HWND window) {
  HWND owner = GetWindow(window, GW_OWNER);
  if (owner != nullptr) PostMessageW(owner, TypingSettingsChangedMessage(), 0, 0);
}

HWND ShowKeymapCatalogueWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders) {
  if (HWND open = tools::win32::ToolWindow::FindOpen(kKind); open != nullptr) {
    return tools::win32::ToolWindow::Open(nullptr, instance, owner, kKind, L"", 0, 0, nullptr);
  }
  CatalogueScreen screen = ReadCatalogueScreen(folders);
  HWND window =
      tools::win32::ToolWindow::Open(std::make_unique<CatalogueWindow>(folders, owner, screen), instance, owner, kKind,
                                     L"Quilom++ - Languages, Font Encodings and Keyboards", 700, 520, BuildMenu());
  if (window == nullptr) return nullptr;
  if (screen.width > 0 && screen.height > 0) {
    SetWindowPos(window, nullptr, 0, 0, screen.width, screen.height, SWP_NOMOVE | SWP_NOZORDER);
  }
  if (screen.maximized) ShowWindow(window, SW_MAXIMIZE);
  return window;
}

}  // namespace quilom::translit::win32
