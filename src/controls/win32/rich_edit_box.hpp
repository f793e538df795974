#pragma once

#include <windows.h>

#include "shell/editor_box.hpp"

// The editor-box interface over a RichEdit control. Positions are the control's character
// positions, which count UTF-16 code units.
namespace quilom::controls {

class RichEditBox final : public shell::EditorBox {
 public:
  // Loads the RichEdit library once and creates the control as a child of `parent`.
  static HWND Create(HWND parent, int id, const RECT& bounds);

  explicit RichEditBox(HWND control) : control_(control) {}
  HWND Handle() const { return control_; }

  std::u16string Text() const override;
  void SetText(std::u16string_view text) override;
  int SelStart() const override;
  void SetSelStart(int position) override;
  void SetSelLength(int length) override;
  void SetSelText(std::u16string_view text) override;

 private:
  HWND control_;
};

}  // namespace quilom::controls
