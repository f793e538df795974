// The application that the end-to-end tests type into: one edit box in a Tamil font. It keeps
// a file with the box's whole text (UTF-8), replaced atomically on every change, and a log of
// the key messages the box received, so a test can tell what reached the application and how.
//
// Usage: target.exe TEXT_FILE KEY_LOG STOP_FILE READY_FILE
// The program ends by itself when STOP_FILE appears.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

constexpr wchar_t kTitle[] = L"E2ETarget";
constexpr UINT_PTR kStopTimer = 1;

std::wstring g_textFile;
std::wstring g_stopFile;
FILE* g_keyLog = nullptr;
HWND g_edit = nullptr;
WNDPROC g_editProc = nullptr;

std::string ToUtf8(const std::wstring& text) {
  if (text.empty()) return {};
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(), size, nullptr, nullptr);
  return bytes;
}

void SaveText() {
  const int length = GetWindowTextLengthW(g_edit);
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  GetWindowTextW(g_edit, text.data(), length + 1);
  text.resize(static_cast<size_t>(length));
  const std::wstring temporary = g_textFile + L".tmp";
  FILE* file = _wfopen(temporary.c_str(), L"wb");
  if (file == nullptr) return;
  const std::string bytes = ToUtf8(text);
  fwrite(bytes.data(), 1, bytes.size(), file);
  fclose(file);
  MoveFileExW(temporary.c_str(), g_textFile.c_str(), MOVEFILE_REPLACE_EXISTING);
}

bool Held(int vk) { return (GetKeyState(vk) & 0x8000) != 0; }

void LogKey(const char* kind, WPARAM wParam) {
  if (g_keyLog == nullptr) return;
  std::fprintf(g_keyLog, "%s 0x%04X ctrl=%d alt=%d win=%d\n", kind, static_cast<unsigned>(wParam), Held(VK_CONTROL),
               Held(VK_MENU), Held(VK_LWIN) || Held(VK_RWIN));
  std::fflush(g_keyLog);
}

LRESULT CALLBACK EditProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      LogKey("KEYDOWN", wParam);
      break;
    case WM_SYSKEYDOWN:
      LogKey("SYSKEYDOWN", wParam);
      break;
    case WM_KEYUP:
      LogKey("KEYUP", wParam);
      break;
    case WM_SYSKEYUP:
      LogKey("SYSKEYUP", wParam);
      break;
    case WM_CHAR:
      LogKey("CHAR", wParam);
      break;
    default:
      break;
  }
  return CallWindowProcW(g_editProc, window, message, wParam, lParam);
}

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(wParam) == EN_CHANGE) SaveText();
      return 0;
    case WM_TIMER:
      if (GetFileAttributesW(g_stopFile.c_str()) != INVALID_FILE_ATTRIBUTES) DestroyWindow(window);
      return 0;
    case WM_SETFOCUS:
      SetFocus(g_edit);
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  int count = 0;
  LPWSTR* args = CommandLineToArgvW(GetCommandLineW(), &count);
  if (args == nullptr || count < 5) return 2;
  g_textFile = args[1];
  g_keyLog = _wfopen(args[2], L"wb");
  g_stopFile = args[3];
  const std::wstring readyFile = args[4];

  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = WindowProc;
  windowClass.hInstance = instance;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  windowClass.lpszClassName = L"E2ETargetWindow";
  RegisterClassW(&windowClass);
  HWND window = CreateWindowExW(0, windowClass.lpszClassName, kTitle, WS_OVERLAPPEDWINDOW, 40, 450, 700, 240, nullptr,
                                nullptr, instance, nullptr);
  g_edit = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL, 10,
                           10, 670, 180, window, nullptr, instance, nullptr);
  HFONT font = CreateFontW(-28, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                           CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, L"Lohit Tamil");
  SendMessageW(g_edit, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  SendMessageW(g_edit, EM_SETLIMITTEXT, 0, 0);
  g_editProc = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(g_edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditProc)));
  ShowWindow(window, SW_SHOW);
  UpdateWindow(window);
  SetForegroundWindow(window);
  SetFocus(g_edit);
  SetTimer(window, kStopTimer, 100, nullptr);
  SaveText();
  if (FILE* ready = _wfopen(readyFile.c_str(), L"wb")) {
    std::fputs("ready\n", ready);
    std::fclose(ready);
  }

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  if (g_keyLog != nullptr) std::fclose(g_keyLog);
  DeleteObject(font);
  return 0;
}
