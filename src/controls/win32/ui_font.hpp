#pragma once

#include <windows.h>

#include <string_view>

// A font owned for the life of a window, released when the owner goes.
namespace quilom::controls {

class UiFont {
 public:
  // `pointSize` at the screen's resolution. Falls back to the system's GUI font if the face
  // cannot be had, so a window always has something to draw with.
  UiFont(std::wstring_view face, int pointSize, bool bold = false);
  ~UiFont();
  UiFont(const UiFont&) = delete;
  UiFont& operator=(const UiFont&) = delete;

  HFONT Handle() const { return font_ != nullptr ? font_ : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)); }
  // Sets the font on a control.
  void ApplyTo(HWND control) const;

 private:
  HFONT font_ = nullptr;
};

}  // namespace quilom::controls
