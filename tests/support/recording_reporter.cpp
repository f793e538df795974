#include "support/recording_reporter.hpp"

namespace quilom::testing {

void RecordingReporter::Show(std::u16string_view title, std::u16string_view message) noexcept {
  titles.emplace_back(title);
  messages.emplace_back(message);
}

bool RecordingReporter::HasTag(std::u16string_view tag) const {
  const std::u16string needle = u"problem in module: '" + std::u16string(tag) + u"'.";
  for (const auto& m : messages) {
    if (m.find(needle) != std::u16string::npos) return true;
  }
  return false;
}

ScopedRecordingReporter::ScopedRecordingReporter()
    : recorder_(std::make_shared<RecordingReporter>()), previous_(SetErrorReporter(recorder_)) {}

ScopedRecordingReporter::~ScopedRecordingReporter() { SetErrorReporter(previous_); }

}  // namespace quilom::testing
