#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "tools/chunked_conversion.hpp"
#include "tools/win32/chunked_runner.hpp"
#include "tools/win32/tool_window.hpp"

// A tool window that converts the text of a source box into an output box a piece at a time,
// with a convert button that Enter presses, a progress line and character counts. While a run
// goes the boxes are read-only and the buttons that would start another are disabled; closing
// the window drops the run.
namespace quilom::tools::win32 {

// The ids of the controls that every conversion window has.
struct ConversionControls {
  int sourceBox;
  int outputBox;
  int convertButton;
  int progressLabel;
  int countsLabel;
};

// One item of a tool window's menu.
struct MenuItem {
  int id;
  const wchar_t* caption;
};

// A menu bar with one "&Tools" menu: `items`, a separator, then "&Close" (which closes the window
// as Escape does).
HMENU BuildToolsMenu(std::initializer_list<MenuItem> items);

class ConversionWindow : public ToolWindow {
 protected:
  explicit ConversionWindow(ConversionControls controls) : controls_(controls) {}

  void OnTimer(UINT_PTR id) override;
  void OnDestroy() override;
  int DefaultButton() const override { return controls_.convertButton; }

  // Converts the source box's text with `convert`. Does nothing while a run goes or when the
  // source box is empty. `startCaption` is shown on the progress line until the first report.
  void StartConversion(bool keepGravePairs, ChunkedConversion::ConvertChunk convert,
                       std::u16string_view startCaption = {});
  bool Busy() const { return runner_.Busy(); }

  // The progress line during a run, and the counts line after it.
  virtual std::u16string ProgressText(const ChunkedConversion& run) const = 0;
  virtual std::u16string CountsText(size_t inputLength, size_t outputLength) const = 0;
  // Runs after each finished conversion, once the output is shown.
  virtual void AfterConversion() {}
  // Further buttons to disable while a run goes.
  virtual void LockMore(bool) {}

  // Puts `sample` in the source box and converts it.
  void ConvertSample(std::u16string_view sample);
  virtual void Convert() = 0;
  // Takes the grave accents out of the output box's text.
  void RemoveGravesFromOutput();

 private:
  void Lock(bool locked);

  ConversionControls controls_;
  ChunkedRunner runner_;
};

}  // namespace quilom::tools::win32
