#pragma once

#include <memory>
#include <string>
#include <vector>

#include "settings/error_report.hpp"

namespace quilom::testing {

// Collects every problem report instead of showing it.
class RecordingReporter final : public ErrorReporter {
 public:
  void Show(std::u16string_view title, std::u16string_view message) noexcept override;
  std::vector<std::u16string> titles;
  std::vector<std::u16string> messages;
  // True when some report names `tag` as its module.
  bool HasTag(std::u16string_view tag) const;
};

// Installs a RecordingReporter for the scope of a test and restores the previous one.
class ScopedRecordingReporter {
 public:
  ScopedRecordingReporter();
  ~ScopedRecordingReporter();
  ScopedRecordingReporter(const ScopedRecordingReporter&) = delete;
  ScopedRecordingReporter& operator=(const ScopedRecordingReporter&) = delete;
  RecordingReporter& operator*() { return *recorder_; }
  RecordingReporter* operator->() { return recorder_.get(); }

 private:
  std::shared_ptr<RecordingReporter> recorder_;
  std::shared_ptr<ErrorReporter> previous_;
};

}  // namespace quilom::testing
