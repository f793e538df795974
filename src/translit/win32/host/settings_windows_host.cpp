// Opens the typing settings windows and the catalogue alone, without the typing program: for
// trying them out and for the end-to-end tests.
// Usage: QuilomSettingsHost.exe [--data DIR] --window NAME [--window NAME ...] with NAME one of
// qmset, qmset2, qmAllXmls. Ends when the last window closes.
#include <windows.h>

#include <memory>
#include <string>

#include "settings/error_report.hpp"
#include "shell/win32/message_box_reporter.hpp"
#include "tools/win32/window_host.hpp"
#include "translit/win32/settings_windows.hpp"

namespace {

using namespace quilom;

bool OpenWindow(const std::wstring& name, HINSTANCE instance, const settings::DataFolders& folders) {
  using namespace translit::win32;
  if (name == L"qmset") return ShowTypingSettingsWindow(instance, nullptr, folders) != nullptr;
  if (name == L"qmset2") return ShowTypingSettingsMoreWindow(instance, nullptr, folders) != nullptr;
  if (name == L"qmAllXmls") return ShowKeymapCatalogueWindow(instance, nullptr, folders) != nullptr;
  return false;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  SetErrorReporter(std::make_shared<shell::win32::MessageBoxReporter>());
  return tools::win32::RunWindowHost(instance, {L"qmset", L"qmset, qmset2 or qmAllXmls", OpenWindow});
}
