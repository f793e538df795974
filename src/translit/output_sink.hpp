#pragma once

#include <string_view>

// Where the engine's edits go: erase this many characters before the caret, then type this
// text. The Windows program plugs SendInput in behind it; tests record the stream of edits.
namespace quilom::translit {

class OutputSink {
 public:
  virtual ~OutputSink() = default;

  // The one output operation. In mode 2 every request is dropped, erasure included; the
  // engine keeps its own record of what it typed either way, so batch tools read the result
  // from the engine.
  void OutputReplacement(int eraseCount, std::u16string_view text) {
    if (outputSuppressed_ == kDropAll) return;
    Emit(eraseCount, text);
  }

  static constexpr int kDropAll = 2;
  void SetOutputSuppressed(int mode) { outputSuppressed_ = mode; }
  int OutputSuppressed() const { return outputSuppressed_; }

 protected:
  virtual void Emit(int eraseCount, std::u16string_view text) = 0;

 private:
  int outputSuppressed_ = 0;
};

// Drops everything: for runs that only want the engine's own record of its output.
class NullOutputSink final : public OutputSink {
 protected:
  void Emit(int, std::u16string_view) override {}
};

}  // namespace quilom::translit
