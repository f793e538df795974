#include "tools/win32/conversion_window.hpp"

#include <richedit.h>

#include <utility>

#include "tools/reverse_transliteration.hpp"
#include "tools/win32/tool_controls.hpp"

namespace quilom::tools::win32 {

HMENU BuildToolsMenu(std::initializer_list<MenuItem> items) {
  HMENU tools = CreatePopupMenu();
  for (const MenuItem& item : items) AppendMenuW(tools, MF_STRING, item.id, item.caption);
  AppendMenuW(tools, MF_SEPARATOR, 0, nullptr);
  // IDCANCEL from a menu is what Escape sends, so the window closes the same way.
  AppendMenuW(tools, MF_STRING, IDCANCEL, L"&Close\tEsc");
  HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(tools), L"&Tools");
  return bar;
}

void ConversionWindow::OnTimer(UINT_PTR id) {
  if (id == ChunkedRunner::kTimerId) runner_.Tick();
}

void ConversionWindow::OnDestroy() { runner_.Stop(); }

void ConversionWindow::StartConversion(bool keepGravePairs, ChunkedConversion::ConvertChunk convert,
                                       std::u16string_view startCaption) {
  if (runner_.Busy()) return;
  std::u16string input = BoxText(Item(controls_.sourceBox));
  if (input.empty()) return;
  if (!startCaption.empty()) SetCaption(controls_.progressLabel, startCaption);
  ShowText(controls_.outputBox, u"");
  Lock(true);
  runner_.Start(
      Handle(), std::move(input), keepGravePairs, std::move(convert),
      [this](const ChunkedConversion& run) {
        SetCaption(controls_.progressLabel, ProgressText(run));
        UpdateWindow(Item(controls_.progressLabel));
      },
      [this](const ChunkedConversion& run) {
        ShowText(controls_.outputBox, run.Output());
        Lock(false);
        SetCaption(controls_.countsLabel, CountsText(run.Input().size(), run.Output().size()));
        AfterConversion();
      });
}

void ConversionWindow::ConvertSample(std::u16string_view sample) {
  if (runner_.Busy()) return;
  ShowText(controls_.sourceBox, sample);
  Convert();
}

void ConversionWindow::RemoveGravesFromOutput() {
  const std::u16string output = BoxText(Item(controls_.outputBox));
  if (output.find(u'`') != std::u16string::npos) ShowText(controls_.outputBox, RemoveGraveAccents(output));
}

// The boxes stay readable but cannot change while a conversion runs.
void ConversionWindow::Lock(bool locked) {
  SendMessageW(Item(controls_.sourceBox), EM_SETREADONLY, locked, 0);
  SendMessageW(Item(controls_.outputBox), EM_SETREADONLY, locked, 0);
  EnableWindow(Item(controls_.convertButton), !locked);
  LockMore(locked);
}

}  // namespace quilom::tools::win32
