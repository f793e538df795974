// The one file writer, checked on the cases that lose people's files: links, permissions,
// read-only marks, two writers at once, and a run cut short.

#include "settings/file_replacement.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temp_folder.hpp"

namespace quilom::settings {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> FolderEntries(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(FileReplacement, WritesThroughALinkAndKeepsTheTargetsPermissions) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "real.txt", "old");
  fs::permissions(folder / "real.txt", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("real.txt", folder / "link.txt");
  ASSERT_FALSE(ReplaceFileContents(folder / "link.txt", "new"));
  EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
  EXPECT_EQ(testing::ReadBytes(folder / "real.txt"), "new");
  EXPECT_EQ(fs::status(folder / "real.txt").permissions() & fs::perms::all,
            fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(FolderEntries(folder.path()), (std::vector<std::string>{"link.txt", "real.txt"}));
}

TEST(FileReplacement, RefusesReadOnlyFilesAndFolders) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "locked.txt", "keep");
  fs::permissions(folder / "locked.txt", fs::perms::owner_read);
  EXPECT_EQ(ReplaceFileContents(folder / "locked.txt", "lost"), std::errc::permission_denied);
  EXPECT_EQ(testing::ReadBytes(folder / "locked.txt"), "keep");
  EXPECT_EQ(ReplaceFileContents(folder.path(), "x"), std::errc::is_a_directory);
  EXPECT_EQ(FolderEntries(folder.path()), std::vector<std::string>{"locked.txt"});
}

TEST(FileReplacement, TwoWritersAtOnceNeverShareATemporary) {
  testing::TempFolder folder;
  FileReplacement first, second;
  std::error_code error;
  ASSERT_TRUE(first.Open(folder / "out.txt", error));
  ASSERT_TRUE(second.Open(folder / "out.txt", error));
  ASSERT_TRUE(first.Write("first", error) && second.Write("second", error));
  EXPECT_EQ(FolderEntries(folder.path()).size(), 2u);
  EXPECT_TRUE(first.Commit(error)) << error.message();
  EXPECT_TRUE(second.Commit(error)) << error.message();
  EXPECT_EQ(testing::ReadBytes(folder / "out.txt"), "second");
  EXPECT_EQ(FolderEntries(folder.path()), std::vector<std::string>{"out.txt"});
}

TEST(FileReplacement, AnUnfinishedWriteLeavesTheOldFileAndNoTemporary) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "out.txt", "old");
  {
    FileReplacement dropped;
    std::error_code error;
    ASSERT_TRUE(dropped.Open(folder / "out.txt", error));
    ASSERT_TRUE(dropped.Write("half", error));
  }
  EXPECT_EQ(testing::ReadBytes(folder / "out.txt"), "old");
  EXPECT_EQ(FolderEntries(folder.path()), std::vector<std::string>{"out.txt"});

  // What a signal handler does mid-write.
  FileReplacement interrupted;
  std::error_code error;
  ASSERT_TRUE(interrupted.Open(folder / "out.txt", error));
  EXPECT_EQ(FolderEntries(folder.path()).size(), 2u);
  RemovePendingTemporary();
  EXPECT_EQ(FolderEntries(folder.path()), std::vector<std::string>{"out.txt"});
}

TEST(FileReplacement, LeftoversOfInterruptedSavesAreCleanedAtStart) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "Settings.txt", "kept");
  testing::WriteBytes(folder / "Settings.txt.123456.saving", "half");
  testing::WriteBytes(folder / "notes.saving.txt", "not ours");
  EXPECT_EQ(RemoveLeftoverTemporaries(folder.path()), 1);
  EXPECT_EQ(FolderEntries(folder.path()), (std::vector<std::string>{"Settings.txt", "notes.saving.txt"}));
}

}  // namespace
}  // namespace quilom::settings
