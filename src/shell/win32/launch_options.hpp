#pragma once

#include <filesystem>
#include <string>
#include <vector>

// The program takes no arguments from users. These switches exist for the end-to-end tests,
// which drive the real program under a script:
//   --start-typing      switch typing on in keymap 1 at the end of the main window's load
//   --state-file PATH   write PATH once the window is up and its hooks are installed, and again
//                       whenever typing is switched or the window is activated, minimised or
//                       restored, the hooks re-installed, an option clicked, and at exit
//                       (lines "typing=on|off", "active=1|0", "iconic=1|0", "visible=1|0",
//                       "button=X,Y", "fastbox=X,Y", "hotkeylist=X,Y", "sethotkey=X,Y" and
//                       "toolsmenu=X,Y": the centres of the start/stop button, the "Fast
//                       Editing" box, the hotkey list, the set-hotkey button and the Tools menu
//                       from the window's corner, "reinstalls=N", "slowest=MS" (the longest hook callback
//                       so far), "keymap=" the active keymap, "caption=" the button's caption,
//                       "hotkey=" the present hotkey, "options=" the hooking type then one digit
//                       each for Instant, Fast, Smart, CopyPaste Editing and Include Hotkeys,
//                       "tray=1|0" whether the tray icon is up, and "trayicon=X,Y" on the screen
//                       when the shell can tell)
//   --exit-when PATH    close the program (hooks removed first) when PATH appears
// Unknown words are ignored, so a stray argument never stops the program from starting.
namespace quilom::shell::win32 {

struct LaunchOptions {
  bool startTyping = false;
  std::filesystem::path stateFile;
  std::filesystem::path exitWhen;
};

LaunchOptions ParseLaunchOptions(const std::vector<std::wstring>& args);

// The words of this process's command line after the program name.
std::vector<std::wstring> CommandLineWords();

}  // namespace quilom::shell::win32
