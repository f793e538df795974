#include <richedit.h>

#include <memory>

#include "settings/tool_settings.hpp"
#include "tools/url_normalizer.hpp"
#include "tools/url_normalizer_options.hpp"
#include "tools/win32/open_web_address.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_window.hpp"
#include "tools/win32/tool_windows.hpp"

namespace quilom::tools::win32 {

namespace {

enum ControlId : int {
  kInputLabel = 1201,
  kInputBox,  // rtbPerc
  kOutputLabel,
  kOutputBox,          // rtbUni
  kNormalize,          // cmdNormalize
  kOptionFirst = 1210  // chbOptions(0..2)
};

constexpr const wchar_t* kOptionCaptions[] = {L"Auto Normali&ze", L"Auto Cop&y", L"Auto &Open"};

class UrlNormalizerWindow final : public ToolWindow {
 public:
  explicit UrlNormalizerWindow(const settings::DataFolders& folders) : store_(UrlNormalizerStore(folders)) {}

 protected:
  void OnCreate() override {
    AddLabel(kInputLabel, L"&Percent-encoded address:");
    AddTextBox(kInputBox, false, true);
    AddButton(kNormalize, L"&Normalize", true);
    for (int i = 0; i < 3; ++i) AddCheckBox(kOptionFirst + i, kOptionCaptions[i]);
    AddLabel(kOutputLabel, L"&Unicode text:");
    // Read-only: only the normaliser writes here, so each change is one result to copy or open.
    AddTextBox(kOutputBox, true, false);
    options_ = LoadUrlNormalizerOptions(store_);
    for (int i = 0; i < 3; ++i) SetTicked(kOptionFirst + i, options_[static_cast<UrlOption>(i)]);
    SetFocus(Item(kInputBox));
  }

  void OnLayout(int width, int height) override {
    const int margin = Px(10), labelHeight = Px(18), rowHeight = Px(26);
    const int inner = width - 2 * margin;
    const int fixed = margin + 2 * (labelHeight + Px(2)) + Px(8) + rowHeight + Px(8) + margin;
    const int boxHeight = std::max((height - fixed) / 2, Px(40));
    int y = margin;
    Place(kInputLabel, margin, y, inner, labelHeight);
    y += labelHeight + Px(2);
    Place(kInputBox, margin, y, inner, boxHeight);
    y += boxHeight + Px(8);
    Place(kNormalize, margin, y, Px(96), rowHeight);
    int x = margin + Px(96) + Px(16);
    for (int i = 0; i < 3; ++i) {
      Place(kOptionFirst + i, x, y + Px(1), Px(120), Px(24));
      x += Px(128);
    }
    y += rowHeight + Px(8);
    Place(kOutputLabel, margin, y, inner, labelHeight);
    y += labelHeight + Px(2);
    Place(kOutputBox, margin, y, inner, boxHeight);
  }

  void OnCommand(int id, int code) override {
    if (id == kNormalize) return Normalize();
    if (id == kInputBox && code == EN_CHANGE) return InputChanged();
    if (id >= kOptionFirst && id < kOptionFirst + 3 && code == BN_CLICKED) return OptionClicked(id - kOptionFirst);
  }

  int DefaultButton() const override { return kNormalize; }

  std::u16string_view ErrorTag() const override { return u"urln-load"; }

 private:
  void Normalize() {
    if (const auto output = NormalizeUrl(BoxText(Item(kInputBox)))) ShowOutput(*output);
  }

  void InputChanged() {
    if (const auto output = OutputForInputChange(BoxText(Item(kInputBox)), options_)) ShowOutput(*output);
  }

  // The output box's change: its actions follow every new result, typed or pasted, manual or
  // automatic.
  void ShowOutput(const std::u16string& output) {
    ShowText(kOutputBox, output);
    const UrlOutputActions actions = ActionsForOutputChange(output, options_);
    if (actions.copyToClipboard) CopyToClipboard(Handle(), *actions.copyToClipboard);
    if (actions.openAddress) OpenWebAddress(*actions.openAddress);
  }

  void OptionClicked(int index) {
    const auto option = static_cast<UrlOption>(index);
    options_[option] = IsTicked(kOptionFirst + index);
    SaveUrlNormalizerOption(store_, option, options_[option]);
  }

  settings::ToolSettings store_;
  UrlNormalizerOptions options_;
};

}  // namespace

HWND ShowUrlNormalizerWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders) {
  return ToolWindow::Open(std::make_unique<UrlNormalizerWindow>(folders), instance, owner, L"urlnorm",
                          L"Quilom++ - URL Normalizer", 560, 360, nullptr);
}

}  // namespace quilom::tools::win32
