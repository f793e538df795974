#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "settings/code_page.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

namespace quilom::testing {

// Records every edit the engine sends, and what a text box would show after them.
class RecordingOutputSink final : public translit::OutputSink {
 public:
  std::vector<translit::Edit> edits;
  std::u16string screen;  // the edits replayed: erase n, then append

 protected:
  void Emit(int eraseCount, std::u16string_view text) override {
    edits.push_back({eraseCount, std::u16string(text)});
    const size_t erase = std::min(screen.size(), static_cast<size_t>(std::max(eraseCount, 0)));
    screen.resize(screen.size() - erase);
    screen.append(text);
  }
};

// A keymap built from entries, through the real parser, as a file with these lines would be.
inline std::shared_ptr<const translit::PhoneticKeymap> MakeKeymap(
    const std::vector<std::pair<std::u16string, std::u16string>>& entries, int typingMode = 0,
    std::u16string_view extraLine = {}) {
  std::u16string text = u"title\r\n";
  if (!extraLine.empty()) text += std::u16string(extraLine) + u"\r\n";
  for (const auto& [key, output] : entries) text += u"<om>" + key + u" " + output + u"</om>\r\n";
  translit::DataFileProblem problem;
  auto map = translit::ParsePhoneticKeymap(text, {typingMode, 0}, *settings::Windows1252(), problem);
  return map ? std::make_shared<const translit::PhoneticKeymap>(std::move(*map)) : nullptr;
}

inline void TypeKeys(translit::Engine& engine, std::u16string_view keys) {
  for (char16_t key : keys) engine.ProcessKey(key);
}

}  // namespace quilom::testing
