#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/win32/ui_font.hpp"

// What the text tools' windows share: one window class, child controls created at the system
// DPI, a Tamil-capable font for the text boxes, and a window procedure that traps every error
// (reported with the window's own tag) so that none escapes into the message loop.
namespace quilom::tools::win32 {

class ToolWindow {
 public:
  virtual ~ToolWindow() = default;
  ToolWindow(const ToolWindow&) = delete;
  ToolWindow& operator=(const ToolWindow&) = delete;

  // Creates the window; the window owns `window` from then on and deletes it when it is
  // destroyed. `kind` names the tool: while a window of that kind is open, Open brings it to the
  // front instead and returns it. `width` and `height` are the client size at 96 DPI.
  static HWND Open(std::unique_ptr<ToolWindow> window, HINSTANCE instance, HWND owner, std::wstring_view kind,
                   std::wstring_view title, int width, int height, HMENU menu);

  // The open window of a kind, or null.
  static HWND FindOpen(std::wstring_view kind);
  static bool AnyOpen();
  // IsDialogMessage for the open window that `message` is meant for.
  static bool TranslateNavigation(MSG& message);

  HWND Handle() const { return window_; }

 protected:
  ToolWindow() = default;

  virtual void OnCreate() = 0;
  // The client area changed size (pixels).
  virtual void OnLayout(int width, int height) = 0;
  virtual void OnCommand(int id, int code) = 0;
  virtual void OnTimer(UINT_PTR) {}
  virtual void OnDestroy() {}
  // The button that Enter presses when the focus is not on a button; 0 for none.
  virtual int DefaultButton() const { return 0; }
  // The tag that errors trapped in this window are reported with.
  virtual std::u16string_view ErrorTag() const = 0;

  // Lengths given at 96 DPI, in pixels at the system's DPI.
  int Px(int units) const { return MulDiv(units, dpi_, 96); }

  HWND AddLabel(int id, std::wstring_view text);
  HWND AddButton(int id, std::wstring_view text, bool isDefault = false);
  HWND AddCheckBox(int id, std::wstring_view text);
  // A multi-line plain-text RichEdit box in the Tamil font. Tab leaves the box rather than
  // typing a tab, so the window stays usable from the keyboard. With `notifyChanges` the box
  // sends EN_CHANGE when its text changes.
  HWND AddTextBox(int id, bool readOnly, bool notifyChanges);

  HWND Item(int id) const { return GetDlgItem(window_, id); }
  // Replaces a text box's text (and, where the Tamil font lacks Latin letters, sets each
  // script's font).
  void ShowText(int id, std::u16string_view text);
  void Place(int id, int x, int y, int width, int height) const;
  bool IsTicked(int id) const;
  void SetTicked(int id, bool ticked) const;
  void SetCaption(int id, std::u16string_view text) const;

  // Runs `work`; an exception is reported with ErrorTag() instead of leaving the window.
  template <typename Work>
  void Guarded(Work&& work) noexcept;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam);
  void ReportTrapped(std::u16string_view description) noexcept;
  void MoveFocus(WPARAM target, bool isHandle);
  HWND AddControl(int id, const wchar_t* windowClass, std::wstring_view text, DWORD style);
  void FormatScripts(HWND box);

  HWND window_ = nullptr;
  std::wstring kind_;
  int dpi_ = 96;
  std::optional<controls::UiFont> uiFont_;
  std::optional<controls::UiFont> textFont_;
  std::wstring tamilFace_;
  std::wstring latinFace_;
  // The Tamil face lacks Latin letters, so the boxes hold rich text with a font per script.
  bool mixFonts_ = false;
  bool formatting_ = false;
  std::vector<HWND> notifying_;
};

template <typename Work>
void ToolWindow::Guarded(Work&& work) noexcept {
  try {
    work();
  } catch (const std::exception& error) {
    const std::string_view what = error.what();
    ReportTrapped(std::u16string(what.begin(), what.end()));
  } catch (...) {
    ReportTrapped(u"unexpected failure");
  }
}

}  // namespace quilom::tools::win32
