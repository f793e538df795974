// Arbitrary text through the loaders of the typing side's data files (keymaps, the modifier
// file, the catalogue's keymap lists, the reverse word list) and through the URL normaliser,
// then, when the text makes a keymap, the rest of the input typed into the engine with it.
// Besides crashes and undefined behaviour it checks what the callers rely on: a catalogue list
// written back reads the same, and no edit of the engine erases more than it typed.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "settings/code_page.hpp"
#include "text/utf.hpp"
#include "tools/reverse_word_list.hpp"
#include "tools/url_normalizer.hpp"
#include "translit/catalogue_lists.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"
#include "translit/modifier_file.hpp"

namespace {

using namespace quilom;

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

// What a window shows of the engine's edits; an edit may never reach before the first character.
class ScreenSink final : public translit::OutputSink {
 protected:
  void Emit(int eraseCount, std::u16string_view text) override {
    Check(eraseCount >= 0 && static_cast<std::size_t>(eraseCount) <= screen_.size());
    screen_.erase(screen_.size() - static_cast<std::size_t>(eraseCount));
    screen_ += text;
  }

 private:
  std::u16string screen_;
};

void TypeInto(std::shared_ptr<const translit::PhoneticKeymap> keymap, std::u16string_view keys) {
  ScreenSink sink;
  translit::Engine engine(sink);
  engine.SetKeymap(std::move(keymap));
  for (const char16_t key : keys) {
    if (key == u'\n') {
      engine.Reset();
    } else {
      engine.ProcessKey(key);
    }
  }
}

void CheckCatalogueList(std::u16string_view text) {
  const std::vector<translit::LfkRow> rows = translit::ParseLfkList(text);
  const std::vector<translit::LfkRow> again = translit::ParseLfkList(translit::FormatLfkList(rows));
  Check(again == rows);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t split = bytes.find('\0');
  const std::u16string text = text::Utf8ToUtf16(bytes.substr(0, split));
  const std::u16string keys = split == std::string::npos ? u"" : text::Utf8ToUtf16(bytes.substr(split + 1));

  translit::DataFileProblem problem;
  std::optional<translit::PhoneticKeymap> keymap =
      translit::ParsePhoneticKeymap(text, {}, *settings::Windows1252(), problem);
  translit::ParseModifierFile(text, {}, problem);
  translit::ParseModifierFile(text, {false, true, true}, problem);
  CheckCatalogueList(text);
  tools::ReverseWordList::Parse(text).Apply(keys);
  if (const auto normalized = tools::NormalizeUrl(text)) tools::AddressToOpen(*normalized);
  if (keymap) TypeInto(std::make_shared<const translit::PhoneticKeymap>(std::move(*keymap)), keys);
  return 0;
}
