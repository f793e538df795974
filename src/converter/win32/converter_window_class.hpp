#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/win32/ui_font.hpp"
#include "converter/converter_lists.hpp"
#include "converter/win32/converter_window.hpp"
#include "converter/win32/converter_window_ids.hpp"
#include "converter/win32/message_prompter.hpp"
#include "converter/window/convert_click.hpp"
#include "converter/window/converter_settings.hpp"
#include "settings/data_folders.hpp"
#include "settings/tool_settings.hpp"

// The converter window's own state and handlers. Each handler is short: it reads the
// controls, calls the core, and shows the answer.
namespace quilom::converter::win32 {

// The quote lists show their quotes large: they differ by small strokes.
inline constexpr int kQuotePoints = 20;

class ConverterWindow {
 public:
  ConverterWindow(HINSTANCE instance, const ConverterWindowOptions& options);
  ~ConverterWindow();
  bool Create(HWND owner);
  HWND Handle() const { return window_; }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void OnCommand(int id, int code);
  void MoveFocus(WPARAM target, bool isHandle);

  // converter_window_controls.cpp
  void CreateControls();
  HWND Control(int id) const { return GetDlgItem(window_, id); }
  int Scale(int value) const { return MulDiv(value, dpi_, 96); }
  void SetTooltip(int id, std::u16string_view text);

  // converter_window_lists.cpp
  void LoadWindow();
  void FillListBox(int id, const std::vector<std::u16string>& rows);
  std::vector<std::u16string> ListRows(int id) const;
  int Selected(int id) const;
  void Select(int id, int position);
  bool Checked(int id) const;
  int LegacyPosition() const;
  std::u16string LegacyFontName() const;
  void RefillLegacyFonts(int clickedList);
  void FillQuoteLists();
  window::ConverterChoices Choices() const;
  void ApplyChoices(const window::ConverterChoices& choices);
  void Save(std::u16string_view key);
  void SaveListPositions();
  void ShowProgress(std::u16string_view text);
  ListsUi Ui();

  // converter_window_buttons.cpp
  window::WindowSnapshot Snapshot() const;
  window::ClickServices Services();
  void OnConvert();
  void OnSwap();
  void OnGenerateFontsList();
  void OnPlainTextClick();
  void OnConvertQuotes();
  void OnListClick(int id);
  void OnQuoteChoice(int id);

  HINSTANCE instance_;
  ConverterWindowOptions options_;
  settings::DataFolders folders_;
  std::filesystem::path converterFolder_;
  settings::ToolSettings settings_;
  HWND window_ = nullptr;
  HWND tooltip_ = nullptr;
  int dpi_ = 96;
  std::unique_ptr<controls::UiFont> uiFont_;
  std::unique_ptr<controls::UiFont> arialFont_;
  std::unique_ptr<controls::UiFont> legacyQuoteFont_;
  std::unique_ptr<MessagePrompter> prompter_;
  ConverterLists lists_;
  bool ignorePlainTextClick_ = false;
  bool comReady_ = false;
};

// Lets Tab, the arrows and mnemonics move between the window's controls while the caller's
// message loop knows nothing of it: a message hook of this thread hands keyboard messages for
// `window` to IsDialogMessage. Removed when the window goes.
void StartDialogNavigation(HWND window);
void StopDialogNavigation(HWND window);

}  // namespace quilom::converter::win32
