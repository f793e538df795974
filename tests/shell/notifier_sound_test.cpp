#include "shell/notifier_sound.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::shell {
namespace {

constexpr std::u16string_view kFolder = u"D:\\Sorvin\\Indic Direct Typer\\Notifier Sounds";

struct FakeDisk {
  std::set<std::u16string> files;
  int listReads = 0;
  std::u16string listText;
  std::function<std::u16string()> Reader() {
    return [this] {
      ++listReads;
      return listText;
    };
  }
  std::function<bool(std::u16string_view)> Exists() {
    return [this](std::u16string_view path) { return files.count(std::u16string(path)) != 0; };
  }
};

std::u16string InSounds(std::u16string_view name) { return std::u16string(kFolder) + u"\\" + std::u16string(name); }

TEST(NotifierSound, ChoicesResolveToTheirFiles) {
  FakeDisk disk;
  disk.files = {std::u16string(kSystemNotifySound), InSounds(u"! ! NotifierSound.wav")};
  EXPECT_EQ(NotifierSoundFile(1, 4, kFolder, disk.Reader(), disk.Exists()), kSystemNotifySound);
  for (int choice : {2, 0, 7, -1})
    EXPECT_EQ(NotifierSoundFile(choice, 4, kFolder, disk.Reader(), disk.Exists()), InSounds(u"! ! NotifierSound.wav"));
  EXPECT_EQ(disk.listReads, 0);  // the list is only read for the per-keymap choice
}

TEST(NotifierSound, MissingFilePlaysNothing) {
  FakeDisk disk;
  EXPECT_TRUE(NotifierSoundFile(1, 1, kFolder, disk.Reader(), disk.Exists()).empty());
  EXPECT_TRUE(NotifierSoundFile(2, 1, kFolder, disk.Reader(), disk.Exists()).empty());
  disk.listText = u"1.gone.wav\r\n";
  EXPECT_TRUE(NotifierSoundFile(3, 1, kFolder, disk.Reader(), disk.Exists()).empty());
}

TEST(NotifierSound, PathListMatchesTheKeymapNumber) {
  const std::u16string list =
      u"Title line: <number>.<path>\r\n"
      u"1.one.wav\r\n"
      u" 12 . C:\\Sounds\\twelve.wav \r\n"
      u"2.\r\n"
      u"1.second-one.wav\r\n"
      u"x.not-a-number.wav\r\n";
  EXPECT_EQ(SoundFromPathList(list, 1, kFolder), InSounds(u"one.wav"));
  EXPECT_EQ(SoundFromPathList(list, 12, kFolder), u"C:\\Sounds\\twelve.wav");
  EXPECT_TRUE(SoundFromPathList(list, 2, kFolder).empty());  // empty path, no default line
  EXPECT_TRUE(SoundFromPathList(list, 3, kFolder).empty());
}

TEST(NotifierSound, DefaultLineCoversUnlistedKeymaps) {
  EXPECT_EQ(SoundFromPathList(u"`````Use the file\r\n1.one.wav", 5, kFolder), InSounds(u"! ! NotifierSound.wav"));
  EXPECT_EQ(SoundFromPathList(u"1.one.wav\r\n`````Use the file: E:\\chime.wav", 5, kFolder), u"E:\\chime.wav");
  EXPECT_EQ(SoundFromPathList(u"`````Use the file: chime.wav\r\n1.one.wav", 1, kFolder), InSounds(u"one.wav"));
}

TEST(NotifierSound, ShippedListAndSoundsWorkTogether) {
  const std::filesystem::path folder =
      testing::SourceDataRoot() / "Indic Direct Typer" / std::filesystem::path(u"Notifier Sounds");
  const std::u16string folderText = text::Utf8ToUtf16(folder.string());
  auto readList = [&] { return settings::ReadTextFile(folder / std::filesystem::path(kNotifierSoundListFile)); };
  auto exists = [](std::u16string_view path) {
    return std::filesystem::is_regular_file(std::filesystem::path(std::u16string(path)));
  };
  // The core joins with a backslash, as the Windows program wants it; here read it back as "/".
  auto onLinux = [&](std::u16string_view path) {
    std::u16string p(path);
    for (auto& c : p)
      if (c == u'\\') c = u'/';
    return exists(p);
  };
  for (int number : {1, 2, 3, 9}) {
    const std::u16string file = NotifierSoundFile(3, number, folderText, readList, onLinux);
    EXPECT_FALSE(file.empty()) << "keymap number " << number;
  }
  EXPECT_FALSE(NotifierSoundFile(2, 1, folderText, readList, onLinux).empty());
  const auto wavSize = std::filesystem::file_size(folder / std::filesystem::path(kNotifierSoundFile));
  EXPECT_LT(wavSize, 64u * 1024u);
}

}  // namespace
}  // namespace quilom::shell
