// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "controls/win32/wide_text.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_window.hpp"
#include "translit/typing_settings2.hpp"
#include "translit/win32/settings_windows.hpp"

namespace quilom::translit::win32 {
namespace {

enum ControlId : int {
  kHeading = 1401,
  kRestore,
  kHelp,
  kClose,
  kRowFirst = 1420,  // one control per row of "qm-setkeys.txt": a label for a separator
};

constexpr wchar_t kHelpPage[] = L"qm-settings-help.html";

class TypingSettingsMoreWindow final : public tools::win32::ToolWindow {
 public:
  explicit TypingSettingsMoreWindow(const settings::DataFolders& folders) : folders_(folders) {}

 protected:
  void OnCreate() override {
    AddLabel(kHeading, L"Options of the typing schemes; each click is saved at once:");
    rows_ = ReadSetKeys(folders_);
    for (size_t i = 0; i < rows_.size(); ++i) {
      const int id = kRowFirst + static_cast<int>(i);
      const std::wstring text = controls::ToWide(rows_[i].DisplayText());
      if (rows_[i].separator) {
        AddLabel(id, text);
      } else {
        AddCheckBox(id, text);
      }
    }
    AddButton(kRestore, L"&Restore Defaults");
    AddButton(kHelp, L"&Help");
    AddButton(kClose, L"Close");
    ShowTicks();
    if (rows_.empty()) SetCaption(kHeading, u"The list of options, \"inis\\qm-setkeys.txt\", is missing or empty.");
  }

  void OnLayout(int width, int height) override {
    const int margin = Px(10), row = Px(24), inner = width - 2 * margin;
    Place(kHeading, margin, margin, inner, Px(18));
    int y = margin + Px(26);
    for (size_t i = 0; i < rows_.size(); ++i) {
      Place(kRowFirst + static_cast<int>(i), margin + (rows_[i].separator ? 0 : Px(12)), y, inner, row);
      y += row + Px(2);
    }
    const int buttonsTop = height - margin - Px(26);
    Place(kRestore, margin, buttonsTop, Px(130), Px(26));
    Place(kHelp, margin + Px(140), buttonsTop, Px(90), Px(26));
    Place(kClose, width - margin - Px(90), buttonsTop, Px(90), Px(26));
  }

  void OnCommand(int id, int code) override {
    if (id == kRestore) return RestoreDefaults();
    if (id == kHelp) return OpenHelp();
    if (id == kClose) {
      PostMessageW(Handle(), WM_CLOSE, 0, 0);
      return;
    }
    const int row = id - kRowFirst;
    if (row >= 0 && row < static_cast<int>(rows_.size()) && code == BN_CLICKED) RowClicked(row);
  }

  std::u16string_view ErrorTag() const override { return u"qmset2"; }

 private:
  // The caption names the value in force, which a click or a scheme's partner changes.
  void ShowTicks() {
    for (size_t i = 0; i < rows_.size(); ++i) {
      if (rows_[i].separator) continue;
      const int id = kRowFirst + static_cast<int>(i);
      const bool ticked = RowTicked(folders_, rows_[i]);
      SetTicked(id, ticked);
      SetKeyRow shown = rows_[i];
      shown.value = ticked ? u"1" : u"0";
      SetCaption(id, shown.DisplayText());
    }
  }

  void RowClicked(int row) {
    const std::u16string warning = ClickSetKeyRow(folders_, rows_[static_cast<size_t>(row)], IsTicked(kRowFirst + row));
    // A scheme choice also changes its partner, so every box is read back.
    ShowTicks();
    TellOwnerSettingsChanged(Handle());
    if (!warning.empty()) tools::win32::ShowInformation(Handle(), warning);
  }

  void RestoreDefaults() {
    if (RestoreSettings2Defaults(folders_)) {
      ShowTicks();
      TellOwnerSettingsChanged(Handle());
      tools::win32::ShowInformation(Handle(), u"The options are back to their factory settings.");
    }
  }

  void OpenHelp() {
    const std::filesystem::path page = folders_.mainDataFolder / "inis" / kHelpPage;
    std::error_code error;
    if (!std::filesystem::exists(page, error)) {
      tools::win32::ShowInformation(Handle(), u"The options help page is missing: " + page.u16string());
      return;
    }
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(Handle(), L"open", page.wstring().c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    if (result <= 32) {
      tools::win32::ShowInformation(Handle(), u"The options help page could not be opened: " + page.u16string());
    }
  }

  settings::DataFolders folders_;
  std::vector<SetKeyRow> rows_;
};

}  // namespace

HWND ShowTypingSettingsMoreWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders) {
  return tools::win32::ToolWindow::Open(std::make_unique<TypingSettingsMoreWindow>(folders), instance, owner, L"qmset2",
                                        L"Quilom++ - More Typing Settings", 520, 340, nullptr);
}

}  // namespace quilom::translit::win32
