#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "tools/chunked_conversion.hpp"

// Drives a ChunkedConversion from a window timer. Timer messages come only when no input or
// paint is waiting, so the window answers the user between pieces; each tick converts pieces
// for a short time budget and then reports progress.
namespace quilom::tools::win32 {

class ChunkedRunner {
 public:
  using Report = std::function<void(const ChunkedConversion&)>;

  static constexpr UINT_PTR kTimerId = 0x5154;

  // Starts converting `input` in `window`, whose OnTimer must hand kTimerId ticks to Tick().
  // `finished` runs once, after the last piece. A run already going is dropped first.
  void Start(HWND window, std::u16string input, bool keepGravePairs, ChunkedConversion::ConvertChunk convert,
             Report progress, Report finished);
  void Tick();
  // Drops the run without finishing it (the window is closing).
  void Stop();
  bool Busy() const { return run_.has_value(); }

 private:
  HWND window_ = nullptr;
  std::optional<ChunkedConversion> run_;
  ChunkedConversion::ConvertChunk convert_;
  Report progress_;
  Report finished_;
};

}  // namespace quilom::tools::win32
