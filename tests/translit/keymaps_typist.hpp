#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "settings/data_folders.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"
#include "translit/recording_output_sink.hpp"

namespace quilom::testing {

inline std::filesystem::path ShippedKeymapFolder() {
  return settings::DataFolders::ForDataRoot(SourceDataRoot()).keymapFolder;
}

// A shipped keymap loaded through the real loader and typed through the real engine, as the
// auto transliterator types a word: a fresh buffer per word. What the engine believes it typed
// must be what its edits leave on a screen; every word checks that.
class KeymapTypist {
 public:
  explicit KeymapTypist(std::u16string_view scheme, const std::filesystem::path& folder = ShippedKeymapFolder(),
                        translit::KeymapLoadOptions options = {})
      : engine_(sink_) {
    const auto notify = [this](std::u16string_view message) { messages.emplace_back(message); };
    outcome = translit::LoadPhoneticKeymap(folder, scheme, options, tables, notify);
    engine_.SetKeymap(tables);
  }

  // Tables built elsewhere (an edited keymap text).
  explicit KeymapTypist(std::shared_ptr<const translit::PhoneticKeymap> keymap) : engine_(sink_) {
    outcome = translit::LoadOutcome::Loaded;
    tables = std::move(keymap);
    engine_.SetKeymap(tables);
  }

  void UseSettings(const translit::EngineSettings& settings) { engine_.SetSettings(settings); }

  // Blank-separated words, each typed into a reset engine; the blanks are kept.
  std::u16string Type(std::u16string_view keys) {
    std::u16string out;
    size_t start = 0;
    while (true) {
      const size_t blank = keys.find(u' ', start);
      const auto word = keys.substr(start, blank == std::u16string_view::npos ? keys.npos : blank - start);
      engine_.Reset();
      sink_.screen.clear();
      sink_.edits.clear();
      for (const char16_t key : word) engine_.ProcessKey(key);
      EXPECT_EQ(sink_.screen, engine_.CurrentOutput()) << text::Utf16ToUtf8(word);
      out += engine_.CurrentOutput();
      if (blank == std::u16string_view::npos) return out;
      out += u' ';
      start = blank + 1;
    }
  }

  std::string TypeUtf8(std::string_view keys) { return text::Utf16ToUtf8(Type(text::Utf8ToUtf16(keys))); }

  translit::LoadOutcome outcome = translit::LoadOutcome::Missing;
  std::shared_ptr<const translit::PhoneticKeymap> tables;
  std::vector<std::u16string> messages;

 private:
  RecordingOutputSink sink_;
  translit::Engine engine_;
};

}  // namespace quilom::testing
