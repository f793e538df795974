#include "tools/win32/window_host.hpp"

// clang-format off
#include <commctrl.h>
#include <shellapi.h>
// clang-format on

#include <string>
#include <vector>

#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_windows.hpp"

namespace quilom::tools::win32 {
namespace {

std::vector<std::wstring> Arguments() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> arguments;
  for (int i = 1; i < count; ++i) arguments.emplace_back(list[i]);
  LocalFree(list);
  return arguments;
}

std::wstring& CaptionsFile() {
  static std::wstring file;
  return file;
}

BOOL CALLBACK NoteCaption(HWND control, LPARAM lines) {
  wchar_t text[256] = {};
  GetWindowTextW(control, text, 256);
  if (text[0] != 0) *reinterpret_cast<std::wstring*>(lines) += std::wstring(text) + L"\n";
  return TRUE;
}

BOOL CALLBACK NoteWindowCaptions(HWND window, LPARAM lines) {
  NoteCaption(window, lines);
  EnumChildWindows(window, NoteCaption, lines);
  return TRUE;
}

// A test cannot read a check box's caption from outside: the host writes every caption of its
// windows, one a line in UTF-8, replacing the file whole each time.
void CALLBACK WriteCaptions(HWND, UINT, UINT_PTR, DWORD) {
  std::wstring lines;
  EnumThreadWindows(GetCurrentThreadId(), NoteWindowCaptions, reinterpret_cast<LPARAM>(&lines));
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, lines.data(), static_cast<int>(lines.size()), nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, lines.data(), static_cast<int>(lines.size()), bytes.data(), size, nullptr, nullptr);
  const std::wstring temporary = CaptionsFile() + L".tmp";
  HANDLE file =
      CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  DWORD written = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(file);
  MoveFileExW(temporary.c_str(), CaptionsFile().c_str(), MOVEFILE_REPLACE_EXISTING);
}

}  // namespace

int RunWindowHost(HINSTANCE instance, const WindowHost& host) {
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);

  const std::wstring programFolder = ProgramFolder();
  auto folders = settings::DataFolders::ForProgramFolder(programFolder);
  const auto arguments = Arguments();
  std::vector<std::wstring> windows;
  for (size_t i = 0; i + 1 < arguments.size(); i += 2) {
    if (arguments[i] == L"--data") {
      folders = settings::DataFolders::ForDataRoot(arguments[i + 1]);
      folders.programFolder = programFolder;
    } else if (arguments[i] == L"--window") {
      windows.push_back(arguments[i + 1]);
    } else if (arguments[i] == L"--captions") {
      CaptionsFile() = arguments[i + 1];
    }
  }
  if (windows.empty()) windows.push_back(host.defaultWindow);
  for (const auto& name : windows) {
    if (!host.open(name, instance, folders)) {
      const std::wstring message = L"Unknown window \"" + name + L"\". Use " + host.knownNames + L".";
      MessageBoxW(nullptr, message.c_str(), L"Quilom++", MB_OK | MB_ICONINFORMATION);
      return 2;
    }
  }

  if (!CaptionsFile().empty()) SetTimer(nullptr, 0, 200, WriteCaptions);
  MSG message;
  while (AnyToolWindowOpen() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (HandleToolWindowMessage(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace quilom::tools::win32
