// What the typing engine puts on the screen for a run of keys typed without a break: the
// oracle of the end-to-end reliability tests. Applies every edit (erase, then type) to a text,
// as the receiving edit box does.
// Usage: e2e_expected_typing DATA_ROOT KEYS_FILE   (prints UTF-8)
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

#include "settings/data_folders.hpp"
#include "text/utf.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

namespace {

class ScreenSink final : public quilom::translit::OutputSink {
 public:
  std::u16string screen;

 protected:
  void Emit(int eraseCount, std::u16string_view text) override {
    const auto erase = std::min<std::size_t>(static_cast<std::size_t>(std::max(eraseCount, 0)), screen.size());
    screen.erase(screen.size() - erase);
    screen += text;
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: e2e_expected_typing DATA_ROOT KEYS_FILE\n";
    return 2;
  }
  std::ifstream file(argv[2], std::ios::binary);
  const std::string keys{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto folders = quilom::settings::DataFolders::ForDataRoot(argv[1]);
  std::shared_ptr<const quilom::translit::PhoneticKeymap> tables;
  if (quilom::translit::LoadPhoneticKeymap(folders.keymapFolder, u"Tamil-Unicode-PhoneticTransliteration", {},
                                           tables) != quilom::translit::LoadOutcome::Loaded) {
    std::cerr << "e2e_expected_typing: cannot load the Tamil phonetic keymap from " << argv[1] << "\n";
    return 1;
  }
  ScreenSink sink;
  quilom::translit::Engine engine(sink);
  engine.SetKeymap(tables);
  for (const char key : keys) engine.ProcessKey(static_cast<char16_t>(static_cast<unsigned char>(key)));
  std::cout << quilom::text::Utf16ToUtf8(sink.screen);
  return 0;
}
