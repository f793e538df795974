#include "shell/foreground_tracker.hpp"

#include <gtest/gtest.h>

namespace quilom::shell {
namespace {

TEST(ForegroundTracker, TaskbarAndOwnWindowsNeverBecomeTheTarget) {
  ForegroundTracker tracker;
  EXPECT_TRUE(tracker.Observe(0x100, u"Notepad", false));
  EXPECT_FALSE(tracker.Observe(0x200, u"Shell_TrayWnd", false));
  EXPECT_FALSE(tracker.Observe(0x300, u"QuilomPlusPlus.BelovedOska", true));
  EXPECT_FALSE(tracker.Observe(0, u"", false));
  EXPECT_EQ(tracker.Target(), 0x100u);
  EXPECT_FALSE(tracker.Observe(0x100, u"Notepad", false));
  EXPECT_TRUE(tracker.Observe(0x400, u"OpusApp", false));
  EXPECT_EQ(tracker.Target(), 0x400u);
}

TEST(ForegroundTracker, ForgetsOnlyTheWindowThatWent) {
  ForegroundTracker tracker;
  tracker.Observe(0x100, u"Notepad", false);
  tracker.Forget(0x999);
  EXPECT_EQ(tracker.Target(), 0x100u);
  tracker.Forget(0x100);
  EXPECT_EQ(tracker.Target(), 0u);
}

}  // namespace
}  // namespace quilom::shell
