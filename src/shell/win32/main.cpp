#include <windows.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include <memory>

#include "settings/leftover_saves.hpp"
#include "settings/win32/system_text_settings.hpp"
#include "shell/win32/app_windows.hpp"
#include "shell/win32/beloved_oska.hpp"
#include "shell/win32/floater_link.hpp"
#include "shell/win32/launch_options.hpp"
#include "shell/win32/message_box_reporter.hpp"
#include "shell/win32/single_instance.hpp"

namespace quilom::shell::win32 {

namespace {

void RunMessageLoop(HWND mainWindow) {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (RouteAppWindowMessage(message)) continue;
    // Tab, the mnemonics, Enter and Escape in the main window, as in a dialog.
    if (IsWindow(mainWindow) && IsDialogMessageW(mainWindow, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

// One copy at a time; the first copy shows the main window and runs the message loop until the
// window goes.
int Main(HINSTANCE instance, int showCommand) {
  SingleInstance single;
  if (single.AnotherCopyRunning()) {
    ActivateRunningCopy();
    return 0;
  }
  SetErrorReporter(std::make_shared<MessageBoxReporter>());
  settings::win32::InstallSystemTextSettings();
  // The manifest in the resources selects common controls 6 (visual styles); the classes are
  // registered here, before any window is made.
  INITCOMMONCONTROLSEX controls{sizeof(INITCOMMONCONTROLSEX), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);

  BelovedOska mainWindow(ParseLaunchOptions(CommandLineWords()));
  // Only the first copy gets here, so no save of ours is under way.
  settings::RemoveLeftoverSaves(mainWindow.Folders());
  const FloaterLink floater = MakeFloater(instance, mainWindow, mainWindow.Folders());
  mainWindow.AttachFloater(floater.floater.get(), floater.toggle);
  if (!mainWindow.Show(showCommand)) return 1;
  floater.showIfAsked();
  RunMessageLoop(mainWindow.Handle());
  return 0;
}

}  // namespace quilom::shell::win32

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int showCommand) {
  try {
    return quilom::shell::win32::Main(instance, showCommand);
  } catch (...) {
    return 1;
  }
}
