#pragma once

// The other system headers need the types of <windows.h>.
// clang-format off
#include <windows.h>
#include <oaidl.h>
// clang-format on

#include <filesystem>
#include <memory>
#include <string>

// A stand-in for a running Word, for the end-to-end tests only: a hand-written IDispatch tree
// that answers the members the converter uses and writes every call it receives, one line
// each, to a log file ("call ActiveDocument.Content.Find.Execute(FindText=...,...)",
// "put ScreenUpdating=False"). It goes through the same DispatchObject layer as the real Word.
namespace quilom::converter::win32::host {

struct FakeWordState {
  int documentCount = 1;
  int selectionStart = 0;
  int selectionEnd = 0;
  std::wstring contentText;
  std::filesystem::path logFile;
  // A method that fails, from its `failFromCall`-th call on, as Word does: DISP_E_EXCEPTION
  // with the error in EXCEPINFO.
  std::wstring failingMethod;
  int failFromCall = 1;
  int failingCalls = 0;
};

// The application object, with one reference for the caller.
IDispatch* CreateFakeWord(std::shared_ptr<FakeWordState> state);

}  // namespace quilom::converter::win32::host
