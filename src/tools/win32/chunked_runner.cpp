#include "tools/win32/chunked_runner.hpp"

namespace quilom::tools::win32 {

namespace {
// Piece length in UTF-16 units and time spent per tick: short enough that a click or a paint
// waits no longer than the budget, long enough that the timer's own delay stays a small part.
constexpr std::size_t kPieceLength = 512;
constexpr ULONGLONG kTickBudgetMs = 40;
}  // namespace

void ChunkedRunner::Start(HWND window, std::u16string input, bool keepGravePairs,
                          ChunkedConversion::ConvertChunk convert, Report progress, Report finished) {
  Stop();
  window_ = window;
  run_.emplace(std::move(input), kPieceLength, keepGravePairs);
  convert_ = std::move(convert);
  progress_ = std::move(progress);
  finished_ = std::move(finished);
  SetTimer(window_, kTimerId, USER_TIMER_MINIMUM, nullptr);
  Tick();
}

void ChunkedRunner::Tick() {
  if (!run_) return;
  const ULONGLONG started = GetTickCount64();
  while (!run_->Done() && GetTickCount64() - started < kTickBudgetMs) run_->Step(convert_);
  if (progress_) progress_(*run_);
  if (!run_->Done()) return;
  KillTimer(window_, kTimerId);
  // The run is moved out first, so `finished` may start the next one.
  ChunkedConversion done = std::move(*run_);
  run_.reset();
  Report finished = std::move(finished_);
  if (finished) finished(done);
}

void ChunkedRunner::Stop() {
  if (!run_) return;
  KillTimer(window_, kTimerId);
  run_.reset();
}

}  // namespace quilom::tools::win32
