#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "controls/win32/rich_edit_box.hpp"
#include "controls/win32/ui_font.hpp"
#include "settings/data_folders.hpp"
#include "shell/typing_front.hpp"
#include "shell/typing_output.hpp"
#include "shell/win32/launch_options.hpp"
#include "shell/win32/low_level_hooks.hpp"
#include "shell/win32/system_input.hpp"
#include "translit/engine.hpp"

// The main typing window: owns the typing front end and its hooks for the life of the
// process, the start/stop button for global typing and the program's own editor box.
//
// Load order: data folders from the executable's folder; the Tamil phonetic keymap (a missing
// file is reported and keys then type as themselves); the output tables; the ids of running
// word processors; the cluster probe of the editor box; the version label; the focal hook; the
// hook health timer. The keymap comes first so that nothing can reach the engine before it has
// its tables, and the hook comes last so that no key is taken before the window can type it.
// Starting typing reads the keymap file again, so an edited keymap takes effect at once.
namespace quilom::shell::win32 {

class BelovedOska {
 public:
  explicit BelovedOska(LaunchOptions options);
  ~BelovedOska();
  BelovedOska(const BelovedOska&) = delete;
  BelovedOska& operator=(const BelovedOska&) = delete;

  // Registers the class, creates the window, runs the load and shows it. False when the
  // window cannot be created.
  bool Show(int showCommand);

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void CreateControls();
  void Load();
  void LoadKeymap();
  void StartStopGlobalTyping();
  void ShowTypingState();
  void OnTimer(UINT_PTR id);
  void OnCommand(int id, int code);
  void Close();
  void WriteStateFile() const;

  LaunchOptions options_;
  HWND window_ = nullptr;
  HWND startStop_ = nullptr;
  HWND status_ = nullptr;
  HWND version_ = nullptr;
  std::unique_ptr<controls::RichEditBox> editor_;
  controls::UiFont uiFont_;
  controls::UiFont titleFont_;
  controls::UiFont tamilFont_;
  controls::UiFont exampleFont_;

  settings::DataFolders folders_;
  std::vector<std::uint32_t> wordProcessIds_;
  SendInputSubmitter submitter_;
  TypingOutput output_;
  translit::Engine engine_;
  AsyncKeyState keyState_;
  TickClock clock_;
  LowLevelHookPlatform hookPlatform_;
  TypingFront front_;
  bool closing_ = false;
  bool loaded_ = false;
  bool active_ = false;
};

}  // namespace quilom::shell::win32
