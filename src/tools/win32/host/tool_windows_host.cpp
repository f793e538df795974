// Opens the text tools' windows alone, without the typing program: for trying them out and for
// the end-to-end tests. Usage: QuilomToolsHost.exe [--data DIR] --window NAME [--window NAME ...]
// with NAME one of rt, rt2, at, at2, url, startup. Ends when the last window closes.
#include <windows.h>

#include <memory>
#include <string>

#include "settings/error_report.hpp"
#include "shell/win32/message_box_reporter.hpp"
#include "tools/win32/tool_windows.hpp"
#include "tools/win32/window_host.hpp"

namespace {

using namespace quilom;

bool OpenWindow(const std::wstring& name, HINSTANCE instance, const settings::DataFolders& folders) {
  using namespace tools::win32;
  if (name == L"rt") return ShowReverseTransliterationWindow(instance, nullptr, folders) != nullptr;
  if (name == L"rt2") return ShowReverseCompanionWindow(instance, nullptr, folders) != nullptr;
  if (name == L"at") return ShowAutoTransliteratorWindow(instance, nullptr, folders) != nullptr;
  if (name == L"at2") {
    return ShowAutoTransliteratorWindow(instance, nullptr, folders, AutoLayout::SideBySide) != nullptr;
  }
  if (name == L"url") return ShowUrlNormalizerWindow(instance, nullptr, folders) != nullptr;
  if (name == L"startup") return ShowStartupLinkWindow(instance, nullptr, folders) != nullptr;
  return false;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  SetErrorReporter(std::make_shared<shell::win32::MessageBoxReporter>());
  return tools::win32::RunWindowHost(instance, {L"rt", L"rt, rt2, at, at2, url or startup", OpenWindow});
}
