#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/text_file.hpp"
#include "settings/tool_settings.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "tools/url_normalizer.hpp"
#include "tools/url_normalizer_options.hpp"

namespace quilom::tools {
namespace {

std::optional<std::string> Normalize(const std::string& input) {
  const auto result = NormalizeUrl(text::Utf8ToUtf16(input));
  if (!result) return std::nullopt;
  return text::Utf16ToUtf8(*result);
}

TEST(UrlNormalizer, DecodesPercentEncodedUtf8) {
  EXPECT_EQ(Normalize("%E0%AE%A4%E0%AE%AE%E0%AE%BF%E0%AE%B4%E0%AF%8D"), "தமிழ்");
  EXPECT_EQ(Normalize("https://ta.example.org/wiki/%E0%AE%A4%E0%AE%AE%E0%AE%BF%E0%AE%B4%E0%AF%8D_x"),
            "https://ta.example.org/wiki/தமிழ்_x");
  // The run stops at a "/" and what follows it is kept.
  EXPECT_EQ(Normalize("a%41/%42/c"), "aA/B/c");
}

TEST(UrlNormalizer, OnlyCapitalHexadecimalCounts) {
  EXPECT_EQ(Normalize("x%e0y"), "xe0y");       // the "%" goes, the piece stays
  EXPECT_EQ(Normalize("%4a"), "\x04" "a");     // the run stops at the lower-case letter
  EXPECT_EQ(Normalize("100%"), "100");
  EXPECT_EQ(Normalize("%%41"), "A");
}

TEST(UrlNormalizer, RunsHaveNoLengthLimit) {
  EXPECT_EQ(Normalize("%20AB"), std::nullopt);   // 0x20AB = 8363
  EXPECT_EQ(Normalize("%0000000000000041"), "A");  // leading zeros keep the value small
  EXPECT_EQ(Normalize("%FFFFFFFFFFFFFFFFFFFFFFFF"), std::nullopt);  // no wrap-around
  EXPECT_EQ(Normalize("%100"), std::nullopt);
  EXPECT_EQ(Normalize("%FF"), "\xEF\xBF\xBD");  // a lone 0xFF byte is not UTF-8
}

TEST(UrlNormalizer, TextWithoutPercentPassesThroughUtf8Decoding) {
  EXPECT_EQ(Normalize("plain text"), "plain text");
  // é (U+00E9) becomes the single byte E9, which is not UTF-8 on its own.
  EXPECT_EQ(Normalize("caf\xC3\xA9"), "caf\xEF\xBF\xBD");
  // Its UTF-8 bytes, percent-encoded, decode to it.
  EXPECT_EQ(Normalize("caf%C3%A9"), "caf\xC3\xA9");
  EXPECT_EQ(Normalize("தமிழ்"), std::nullopt);   // characters above U+00FF cannot become bytes
  EXPECT_EQ(Normalize("   "), std::nullopt);
  EXPECT_EQ(Normalize(""), std::nullopt);
}

TEST(UrlAutoOpen, OnlyWellFormedWebAddressesAreOpened) {
  struct Case {
    const char* output;
    const char* opened;  // nullptr: nothing is opened
  };
  const std::vector<Case> cases = {
      {"https://ta.example.org/wiki/தமிழ்", "https://ta.example.org/wiki/தமிழ்"},
      {"see http://example.com:8080/a?b=c#d now", "http://example.com:8080/a?b=c#d"},
      {"  https://example.com\r\n", "https://example.com"},
      {"http://தமிழ்.example", "http://தமிழ்.example"},
      {"no address here", nullptr},
      {"httpx://example.com", nullptr},
      {"http:/example.com", nullptr},
      {"http://", nullptr},
      {"http://example.com:80x/", nullptr},
      {"http://user@evil.example/", nullptr},
      {"http://exa mple.com", "http://exa"},  // the address ends at the blank
      {"http://-bad.example/", nullptr},
      {"http://a..b/", nullptr},
      {"http://example.com/\"&calc.exe", nullptr},
      {"http://example.com/a|b", nullptr},
      {"http://example.com\\..\\cmd.exe", nullptr},
      {"HTTP://example.com", nullptr},
      {"file:///C:/Windows/system32/calc.exe http", nullptr},
  };
  for (const auto& c : cases) {
    const auto opened = AddressToOpen(text::Utf8ToUtf16(c.output));
    if (c.opened) {
      ASSERT_TRUE(opened) << c.output;
      EXPECT_EQ(text::Utf16ToUtf8(*opened), c.opened);
    } else {
      EXPECT_FALSE(opened) << c.output;
    }
  }
}

TEST(UrlNormalizerWindow, OutputChangeCopiesAndOpensOnlyWhenTicked) {
  UrlNormalizerOptions options;
  auto actions = ActionsForOutputChange(u"https://example.com", options);
  EXPECT_FALSE(actions.copyToClipboard);
  EXPECT_FALSE(actions.openAddress);
  options.autoCopy = true;
  options.autoOpen = true;
  actions = ActionsForOutputChange(u"decoded text", options);
  EXPECT_EQ(actions.copyToClipboard, u"decoded text");
  EXPECT_FALSE(actions.openAddress);
  actions = ActionsForOutputChange(u"https://example.com", options);
  EXPECT_EQ(actions.openAddress, u"https://example.com");

  EXPECT_FALSE(OutputForInputChange(u"%41", {}));
  options.autoNormalize = true;
  EXPECT_EQ(OutputForInputChange(u"%41", options), u"A");
  EXPECT_FALSE(OutputForInputChange(u"%20AB", options));
}

class UrlNormalizerSettings : public ::testing::Test {
 protected:
  void WriteSettings(const std::u16string& body) {
    ASSERT_TRUE(settings::WriteTextFile(folder / "Settings.txt", body, 3));
  }
  testing::TempFolder folder;
  settings::ToolSettings store{folder.path(), u"UV - GsUv", u"UV - WsUv"};
};

TEST_F(UrlNormalizerSettings, OptionsLoadAndSaveByKey) {
  WriteSettings(u"URL Normalizer\r\n`````Auto Normalize\r\n1\r\n`````Auto Copy\r\n0\r\n`````Auto Open\r\n1\r\n");
  testing::ScopedRecordingReporter reporter;
  auto options = LoadUrlNormalizerOptions(store);
  EXPECT_TRUE(options.autoNormalize);
  EXPECT_FALSE(options.autoCopy);
  EXPECT_TRUE(options.autoOpen);

  EXPECT_TRUE(SaveUrlNormalizerOption(store, UrlOption::AutoCopy, true));
  EXPECT_TRUE(SaveUrlNormalizerOption(store, UrlOption::AutoOpen, false));
  options = LoadUrlNormalizerOptions(store);
  EXPECT_TRUE(options.autoNormalize);
  EXPECT_TRUE(options.autoCopy);
  EXPECT_FALSE(options.autoOpen);
  EXPECT_TRUE(reporter->messages.empty());
}

TEST_F(UrlNormalizerSettings, MissingKeyIsReportedAndLeftClear) {
  WriteSettings(u"URL Normalizer\r\n`````Auto Normalize\r\n1\r\n");
  testing::ScopedRecordingReporter reporter;
  const auto options = LoadUrlNormalizerOptions(store);
  EXPECT_TRUE(options.autoNormalize);
  EXPECT_FALSE(options.autoCopy);
  EXPECT_TRUE(reporter->HasTag(u"urln-load"));
}

TEST(UrlNormalizerShippedSettings, StoreFindsEveryKeyInTheShippedFile) {
  const auto store = UrlNormalizerStore(settings::DataFolders::ForDataRoot(testing::SourceDataRoot()));
  EXPECT_EQ(store.SettingsFile(), testing::SourceDataRoot() / "URL Normalizer" / "Settings.txt");
  testing::ScopedRecordingReporter reporter;
  LoadUrlNormalizerOptions(store);
  EXPECT_TRUE(reporter->messages.empty());
}

}  // namespace
}  // namespace quilom::tools
