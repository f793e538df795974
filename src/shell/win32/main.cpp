#include <windows.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include <memory>

#include "shell/win32/beloved_oska.hpp"
#include "shell/win32/launch_options.hpp"
#include "shell/win32/message_box_reporter.hpp"
#include "shell/win32/single_instance.hpp"
#include "settings/win32/system_text_settings.hpp"

namespace quilom::shell::win32 {

// One copy at a time; the first copy shows the main window and runs the message loop until the
// window goes.
int Main(int showCommand) {
  SingleInstance instance;
  if (instance.AnotherCopyRunning()) {
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
  if (!mainWindow.Show(showCommand)) return 1;
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace quilom::shell::win32

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int showCommand) {
  try {
    return quilom::shell::win32::Main(showCommand);
  } catch (...) {
    return 1;
  }
}
