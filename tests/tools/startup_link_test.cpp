#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/startup_link.hpp"

namespace quilom::tools {
namespace {

// Keeps ini files in memory the way the system's ini writer does: a key that exists is
// replaced in place, a new key goes to the end of its section, a new section to the end.
class FakeStartupPlatform final : public StartupPlatform {
 public:
  using Section = std::vector<std::pair<std::u16string, std::u16string>>;
  using IniFile = std::vector<std::pair<std::u16string, Section>>;

  std::u16string startupFolder = u"C:\\Users\\u\\Start Menu\\Programs\\Startup";
  std::map<std::u16string, IniFile> files;
  std::vector<std::u16string> messages;
  int writes = 0;
  int removals = 0;

  std::u16string StartupFolder() override { return startupFolder; }
  void WriteIniValue(std::u16string_view file, std::u16string_view section, std::u16string_view key,
                     std::u16string_view value) override {
    ++writes;
    IniFile& ini = files[std::u16string(file)];
    auto sectionIt = std::find_if(ini.begin(), ini.end(), [&](const auto& s) { return s.first == section; });
    if (sectionIt == ini.end()) sectionIt = ini.insert(ini.end(), {std::u16string(section), {}});
    auto& entries = sectionIt->second;
    auto keyIt = std::find_if(entries.begin(), entries.end(), [&](const auto& e) { return e.first == key; });
    if (keyIt == entries.end()) {
      entries.emplace_back(key, value);
    } else {
      keyIt->second = value;
    }
  }
  bool FileExists(std::u16string_view path) override { return files.count(std::u16string(path)) > 0; }
  void RemoveFile(std::u16string_view path) override {
    ++removals;
    files.erase(std::u16string(path));
  }
  void ShowMessage(std::u16string_view text) override { messages.emplace_back(text); }
};

constexpr std::u16string_view kProgramFolder = u"D:\\Tools\\Quilom";
const std::u16string kLink = u"C:\\Users\\u\\Start Menu\\Programs\\Startup\\QuilomPP.url";

TEST(StartupLink, CreateWritesTheThreeValuesInOrder) {
  FakeStartupPlatform platform;
  EXPECT_TRUE(CreateStartupLink(platform, kProgramFolder));
  ASSERT_EQ(platform.files.count(kLink), 1u);
  const auto& ini = platform.files[kLink];
  ASSERT_EQ(ini.size(), 1u);
  EXPECT_EQ(ini[0].first, u"InternetShortcut");
  const FakeStartupPlatform::Section expected = {
      {u"URL", u"file:///D:\\Tools\\Quilom\\Quilom++.exe"},
      {u"IconIndex", u"0"},
      {u"IconFile", u"D:\\Tools\\Quilom\\Quilom++.exe"},
  };
  EXPECT_EQ(ini[0].second, expected);
  EXPECT_TRUE(platform.messages.empty());
}

TEST(StartupLink, TurningOnTwiceRewritesTheSameSection) {
  FakeStartupPlatform platform;
  ApplyStartWithWindowsChoice(platform, kProgramFolder, u"1");
  const auto first = platform.files[kLink];
  ApplyStartWithWindowsChoice(platform, kProgramFolder, u"Yes");
  EXPECT_EQ(platform.writes, 6);
  EXPECT_EQ(platform.files[kLink], first);
  EXPECT_EQ(platform.files[kLink].size(), 1u);
}

TEST(StartupLink, NoStartupFolderWritesNothingAndSaysSo) {
  FakeStartupPlatform platform;
  platform.startupFolder.clear();
  EXPECT_FALSE(CreateStartupLink(platform, kProgramFolder));
  EXPECT_EQ(platform.writes, 0);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0],
            u"Unable to create a startup link to Quilom++. Create a shortcut to Quilom++ manually in "
            u"'Start->All Programs->StartUp' directory.");
  RemoveStartupLink(platform);
  EXPECT_EQ(platform.removals, 0);
}

TEST(StartupLink, TurningOffRemovesOnlyAnExistingLinkSilently) {
  FakeStartupPlatform platform;
  ApplyStartWithWindowsChoice(platform, kProgramFolder, u"0");
  EXPECT_EQ(platform.removals, 0);
  EXPECT_TRUE(platform.messages.empty());

  ApplyStartWithWindowsChoice(platform, kProgramFolder, u"1");
  ApplyStartWithWindowsChoice(platform, kProgramFolder, u"No");
  EXPECT_EQ(platform.removals, 1);
  EXPECT_TRUE(platform.files.empty());
}

TEST(StartupLink, LoadingTheSettingsRestoresALinkDeletedByHand) {
  FakeStartupPlatform platform;
  RestoreStartWithWindows(platform, kProgramFolder, u"0");
  EXPECT_TRUE(platform.files.empty());

  RestoreStartWithWindows(platform, kProgramFolder, u" 1 ");
  EXPECT_EQ(platform.writes, 3);
  RestoreStartWithWindows(platform, kProgramFolder, u"1");
  EXPECT_EQ(platform.writes, 3);  // an existing link is left alone

  platform.files.clear();
  RestoreStartWithWindows(platform, kProgramFolder, u"yes");
  EXPECT_EQ(platform.files.count(kLink), 1u);
}

}  // namespace
}  // namespace quilom::tools
