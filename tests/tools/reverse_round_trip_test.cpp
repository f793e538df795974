#include <gtest/gtest.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "settings/data_folders.hpp"
#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"
#include "tools/auto_transliteration.hpp"
#include "tools/reverse_transliteration.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

// Reverse transliteration must give Latin that the Tamil phonetic keymap types back into the
// same Tamil. These tests type the output through the real engine and keymap.
namespace quilom::tools {
namespace {

constexpr std::u16string_view kScheme = u"Tamil-Unicode-PhoneticTransliteration";

class ReverseRoundTrip : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto folders = settings::DataFolders::ForDataRoot(testing::SourceDataRoot());
    translit::LoadPhoneticKeymap(folders.keymapFolder, kScheme, {}, keymap_);
    if (!keymap_) GTEST_SKIP() << "the Tamil phonetic keymap is not in the data tree";
    words_ = LoadReverseWordList(folders.mainDataFolder);
  }

  // Each word reversed, then typed back; one result per word.
  std::vector<std::u16string> TypeBack(const std::vector<std::u16string>& tamilWords, const ReverseOptions& options,
                                       std::vector<std::u16string>* latinWords = nullptr) {
    const std::u16string latin = ReverseTransliterate(text::Join(tamilWords, u"\n"), options, words_);
    translit::NullOutputSink sink;
    translit::Engine engine(sink);
    engine.SetKeymap(keymap_);
    const std::u16string tamil = AutoTransliterate(latin, engine);
    if (latinWords) *latinWords = text::Split(latin, u"\n");
    return text::Split(tamil, u"\n");
  }

  std::shared_ptr<const translit::PhoneticKeymap> keymap_;
  ReverseWordList words_;
};

// Tamil words from Debian's aspell-ta dictionary, or nothing when it is not installed.
std::vector<std::u16string> DictionaryWords() {
  std::vector<std::u16string> words;
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen("aspell dump master -d ta --encoding=utf-8 2>/dev/null", "r"),
                                             pclose);
  if (!pipe) return words;
  std::string all;
  char buffer[4096];
  size_t read = 0;
  while ((read = fread(buffer, 1, sizeof buffer, pipe.get())) > 0) all.append(buffer, read);
  for (auto& line : text::Split(text::Utf8ToUtf16(all), u"\n")) {
    if (!line.empty() && line.back() == u'\r') line.pop_back();
    if (!line.empty() && line[0] >= u'\u0B80' && line[0] < u'\u0C00') words.push_back(line);
  }
  return words;
}

double ShareTypedBack(const std::vector<std::u16string>& words, const std::vector<std::u16string>& typed,
                      const std::vector<std::u16string>& latin, const char* label) {
  size_t same = 0;
  size_t shown = 0;
  for (size_t i = 0; i < words.size(); ++i) {
    if (i < typed.size() && typed[i] == words[i]) {
      ++same;
    } else if (shown++ < 15) {
      std::cout << "  " << label << ": " << text::Utf16ToUtf8(words[i]) << " -> " << text::Utf16ToUtf8(latin[i])
                << " -> " << (i < typed.size() ? text::Utf16ToUtf8(typed[i]) : "(missing)") << "\n";
    }
  }
  const double share = words.empty() ? 0 : 100.0 * same / words.size();
  std::cout << label << ": " << same << " of " << words.size() << " words typed back the same (" << share << " %)\n";
  return share;
}

TEST_F(ReverseRoundTrip, DictionaryWordsTypeBack) {
  const auto words = DictionaryWords();
  if (words.size() < 1000) {
    GTEST_SKIP() << "aspell-ta is not installed (apt-get install aspell-ta): the round trip over dictionary words "
                    "was not measured";
  }
  ReverseOptions typeable;
  typeable.typeableNa = true;
  std::vector<std::u16string> latin;
  auto typed = TypeBack(words, typeable, &latin);
  EXPECT_GE(ShareTypedBack(words, typed, latin, "typeable"), 99.0);

  // The tables' own spelling of ந as "n" costs the words that hold it; measured, not asserted
  // beyond a floor that catches a broken rule.
  typed = TypeBack(words, {}, &latin);
  EXPECT_GE(ShareTypedBack(words, typed, latin, "tables' n for ந"), 85.0);
}

TEST_F(ReverseRoundTrip, EveryListedWordTypesBack) {
  const std::u16string list =
      settings::ReadTextFile(testing::SourceDataRoot() / "Indic Direct Typer" / std::filesystem::path(kReverseWordListFile));
  std::vector<std::u16string> words;
  for (const auto& line : text::Split(list, u"\r\n")) {
    if (line.empty() || line[0] == u'#') continue;
    words.push_back(line.substr(0, line.find(u' ')));
  }
  ASSERT_GE(words.size(), 200u);
  std::vector<std::u16string> latin;
  const auto typed = TypeBack(words, {}, &latin);
  for (size_t i = 0; i < words.size(); ++i) {
    if (words[i].find(u'\u0BA8') != std::u16string::npos) continue;  // ந reads "n" in the list
    EXPECT_EQ(typed[i], words[i]) << text::Utf16ToUtf8(words[i]) << " spelled " << text::Utf16ToUtf8(latin[i]);
  }
}

TEST_F(ReverseRoundTrip, ContextRulesTypeBack) {
  // One word for each context rule, and letters whose spellings could run together.
  const std::vector<std::u16string> words = {
      u"மகன்", u"தங்கம்", u"பச்சை", u"கட்சி", u"பசி", u"சொல்", u"மஞ்சள்", u"படம்", u"வண்டி",
      u"பட்டம்", u"தமிழ்", u"பத்து", u"வந்தான்", u"செய்தி", u"அது", u"வார்த்தை", u"தம்பி", u"ஃபைல்",
      u"காற்று", u"நன்றி", u"என்று", u"ஞாயிறு", u"க்ஷேத்திரம்", u"ஸ்ரீராம்", u"ஶ்ரீ", u"எஃகு", u"ஔவை",
      u"நான்", u"நீ", u"பொருந்து", u"இன்னும்", u"பெட்ரோல்"};
  ReverseOptions typeable;
  typeable.typeableNa = true;
  std::vector<std::u16string> latin;
  const auto typed = TypeBack(words, typeable, &latin);
  for (size_t i = 0; i < words.size(); ++i) {
    EXPECT_EQ(typed[i], words[i]) << text::Utf16ToUtf8(words[i]) << " spelled " << text::Utf16ToUtf8(latin[i]);
  }
}

}  // namespace
}  // namespace quilom::tools
