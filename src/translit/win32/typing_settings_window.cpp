#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/win32/wide_text.hpp"
#include "tools/win32/tool_window.hpp"
#include "translit/typing_settings.hpp"
#include "translit/typing_settings_items.hpp"
#include "translit/win32/message_box_prompter.hpp"
#include "translit/win32/settings_windows.hpp"

namespace quilom::translit::win32 {
namespace {

enum ControlId : int {
  kCategoriesLabel = 1301,
  kCategories,  // lcat
  kSectionLabel,
  kClose,
  kItemFirst = 1320,  // one box per TypingSettingItems() entry
};

class TypingSettingsWindow final : public tools::win32::ToolWindow {
 public:
  explicit TypingSettingsWindow(const settings::DataFolders& folders) : folders_(folders) {}

 protected:
  void OnCreate() override {
    AddLabel(kCategoriesLabel, L"&Category:");
    HWND list = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"",
                                WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY, 0, 0, 0, 0, Handle(),
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(kCategories)), nullptr, nullptr);
    SendMessageW(list, WM_SETFONT, SendMessageW(Item(kCategoriesLabel), WM_GETFONT, 0, 0), FALSE);
    for (const auto category : kSettingsCategories) {
      SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(controls::ToWide(category).c_str()));
    }
    AddLabel(kSectionLabel, L"");
    const auto items = TypingSettingItems();
    for (size_t i = 0; i < items.size(); ++i) {
      const int id = kItemFirst + static_cast<int>(i);
      AddCheckBox(id, controls::ToWide(items[i].caption));
      SetTicked(id, ReadTypingSetting(folders_, items[i].key));
    }
    AddButton(kClose, L"Close");
    SendMessageW(list, LB_SETCURSEL, 0, 0);
    ShowCategory(0);
    SetFocus(list);
  }

  void OnLayout(int width, int height) override {
    const int margin = Px(10), listWidth = Px(150), row = Px(24);
    Place(kCategoriesLabel, margin, margin, listWidth, Px(18));
    Place(kCategories, margin, margin + Px(20), listWidth, height - 2 * margin - Px(20));
    const int left = margin + listWidth + Px(12);
    const int inner = width - left - margin;
    Place(kSectionLabel, left, margin, inner, Px(18));
    // The boxes of one category share the same places; only the shown ones are visible.
    int y = margin + Px(24);
    int shownCategory = -1;
    const auto items = TypingSettingItems();
    for (size_t i = 0; i < items.size(); ++i) {
      if (items[i].categoryRow != shownCategory) {
        shownCategory = items[i].categoryRow;
        y = margin + Px(24);
      }
      Place(kItemFirst + static_cast<int>(i), left, y, inner, row);
      y += row + Px(4);
    }
    Place(kClose, width - margin - Px(90), height - margin - Px(26), Px(90), Px(26));
  }

  void OnCommand(int id, int code) override {
    if (id == kCategories && code == LBN_SELCHANGE) {
      ShowCategory(static_cast<int>(SendMessageW(Item(kCategories), LB_GETCURSEL, 0, 0)));
    } else if (id == kClose) {
      PostMessageW(Handle(), WM_CLOSE, 0, 0);
    } else if (id >= kItemFirst && id < kItemFirst + static_cast<int>(TypingSettingItems().size()) &&
               code == BN_CLICKED) {
      ItemClicked(id);
    }
  }

  std::u16string_view ErrorTag() const override { return u"qmset"; }

 private:
  // A separator row shows nothing new: the boxes of the last category stay.
  void ShowCategory(int row) {
    const auto sections = SectionsOfCategory(row);
    if (sections[0].empty()) return;
    std::u16string heading(sections[0]);
    if (!sections[1].empty()) heading += u"  /  " + std::u16string(sections[1]);
    SetCaption(kSectionLabel, heading);
    const auto items = TypingSettingItems();
    for (size_t i = 0; i < items.size(); ++i) {
      ShowWindow(Item(kItemFirst + static_cast<int>(i)), items[i].categoryRow == row ? SW_SHOW : SW_HIDE);
    }
  }

  void ItemClicked(int id) {
    const TypingSettingItem& item = TypingSettingItems()[static_cast<size_t>(id - kItemFirst)];
    const bool ticked = IsTicked(id);
    if (item.group == u"chbTevGeneral") {
      MessageBoxPrompter prompter(Handle());
      SetTicked(id, ClickGeneralItem(folders_, item.index, ticked, prompter));
    } else {
      WriteTypingSetting(folders_, item.key, ticked);
    }
    TellOwnerSettingsChanged(Handle());
  }

  settings::DataFolders folders_;
};

}  // namespace

HWND ShowTypingSettingsWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders) {
  return tools::win32::ToolWindow::Open(std::make_unique<TypingSettingsWindow>(folders), instance, owner, L"qmset",
                                        L"Quilom++ - Typing Settings", 620, 330, nullptr);
}

}  // namespace quilom::translit::win32
