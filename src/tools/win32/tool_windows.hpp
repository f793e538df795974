#pragma once

#include <windows.h>

#include <functional>

#include "settings/data_folders.hpp"

// The text tools' windows. Each entry opens its window as a modeless top-level window owned by
// `owner` (which may be null), or brings it to the front when it is already open, and returns
// its handle (null when it could not be created). All must be called on the GUI thread; each
// window converts long texts a piece at a time from a timer, so the thread's message loop keeps
// running while it works (ChunkedConversion); closing a window mid-run drops the run.
//
// Choices the windows make:
// - The text boxes use the first installed of "Nirmala UI", "Latha", "Lohit Tamil" and "Noto
//   Sans Tamil" that draws both Tamil and Latin letters. Where none does (a system with only the
//   free Tamil fonts, which lack Latin letters), texts below 20 000 characters are shown with a
//   font per script, longer ones in the Tamil font alone.
// - Layouts are given at 96 DPI and scaled by the system DPI when the window opens.
// - The options of the reverse transliteration window start clear each time (it keeps no
//   settings file); `qmprt2` has no options and converts with the default ones.
// - Escape closes a tool window; Enter presses its convert button unless the focus is in a box.
namespace quilom::tools::win32 {

// `qmprt`: Tamil text to Latin spelling, with the main word list.
HWND ShowReverseTransliterationWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders);

// `qmprt2`: the small companion of `qmprt`, with its own word list (LoadCompanionWordList).
HWND ShowReverseCompanionWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders);

enum class AutoLayout {
  Stacked,     // `qmpat`: Latin box above the Tamil box
  SideBySide,  // `qmpat2`: the two boxes side by side
};

// `qmpat` / `qmpat2`. The window types the text through an engine of its own with the same
// keymap files, so neither the live typing state nor the main window's keymap is disturbed.
// `afterConversion`, when given, runs after each conversion: the typing program resets its live
// engine there, so that live typing starts from an empty buffer, as after any batch run.
HWND ShowAutoTransliteratorWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders,
                                  AutoLayout layout = AutoLayout::Stacked,
                                  std::function<void()> afterConversion = {});

// The URL normaliser; its options live in "URL Normalizer\Settings.txt".
HWND ShowUrlNormalizerWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders);

// The "StartQuilom++ WithWindows" choice: kept in "Indic Direct Typer\Settings.txt", and the
// start-up link that follows it, pointing at "Quilom++.exe" in `folders.programFolder`.
HWND ShowStartupLinkWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders);

// Keyboard navigation (Tab, the mnemonics, Enter on the default button) for the open tool
// windows. The message loop calls it for every message before TranslateMessage; true means the
// message was handled and must not be dispatched again.
bool HandleToolWindowMessage(MSG& message);

// Whether any tool window is open (the test host ends when none is).
bool AnyToolWindowOpen();

}  // namespace quilom::tools::win32
