#include "shell/hook_set.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/hook_health.hpp"
#include "shell/process_list.hpp"
#include "shell/typing_front.hpp"
#include "shell_fakes.hpp"
#include "support/recording_reporter.hpp"

namespace quilom::shell {
namespace {

using testing::FakeClock;
using testing::FakeHookPlatform;
using testing::FakeKeys;
using testing::RecordingEngine;

int KeyboardHooks(const FakeHookPlatform& platform) {
  return platform.LiveCount(HookKind::GlobalKeyboard) + platform.LiveCount(HookKind::FocalKeyboard);
}

class HookSetTest : public ::testing::Test {
 protected:
  FakeHookPlatform platform;
  int resets = 0;
  HookSet hooks{platform, [this] { ++resets; }};
  quilom::testing::ScopedRecordingReporter reports;
};

TEST_F(HookSetTest, ExactlyOneKeyboardHookThroughEveryToggle) {
  hooks.InstallFocal();
  EXPECT_EQ(KeyboardHooks(platform), 1);
  for (int round = 0; round < 3; ++round) {
    EXPECT_TRUE(hooks.InstallGlobal(true));
    EXPECT_EQ(platform.LiveCount(HookKind::GlobalKeyboard), 1);
    EXPECT_EQ(platform.LiveCount(HookKind::FocalKeyboard), 0);
    EXPECT_EQ(platform.LiveCount(HookKind::Mouse), 1);
    hooks.RemoveGlobal(true);
    EXPECT_EQ(platform.LiveCount(HookKind::FocalKeyboard), 1);
    EXPECT_EQ(platform.LiveCount(HookKind::Mouse), 0);
    EXPECT_EQ(KeyboardHooks(platform), 1);
  }
  EXPECT_EQ(resets, 3);
  hooks.RemoveAll();
  EXPECT_TRUE(platform.live.empty());
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(HookSetTest, InstallingTwiceInstallsOnce) {
  hooks.InstallFocal();
  hooks.InstallFocal();
  hooks.InstallGlobal(false);
  hooks.InstallGlobal(false);
  hooks.InstallMouse();
  EXPECT_EQ(platform.log,
            (std::vector<std::string>{"install focal", "remove focal", "install global", "install mouse"}));
}

TEST_F(HookSetTest, FailedInstallIsReportedWithItsTagAndRetried) {
  platform.failing = {HookKind::GlobalKeyboard};
  hooks.InstallFocal();
  EXPECT_FALSE(hooks.InstallGlobal(true));
  EXPECT_TRUE(reports->HasTag(u"DT-HTI-Global"));
  EXPECT_FALSE(hooks.GlobalInstalled());
  EXPECT_EQ(platform.LiveCount(HookKind::FocalKeyboard), 1) << "the hotkeys must keep working";
  EXPECT_EQ(platform.LiveCount(HookKind::Mouse), 0);

  EXPECT_FALSE(hooks.InstallGlobal(false));
  EXPECT_TRUE(reports->HasTag(u"DT-HTI-Global-SIMPLE"));
  platform.failing.clear();
  EXPECT_TRUE(hooks.InstallGlobal(true));
  EXPECT_EQ(KeyboardHooks(platform), 1);
}

TEST_F(HookSetTest, EveryFailureCarriesItsOwnTag) {
  platform.failing = {HookKind::FocalKeyboard, HookKind::Mouse};
  hooks.InstallFocal();
  hooks.InstallMouse();
  EXPECT_TRUE(reports->HasTag(u"DT-HHKS-Focal"));
  EXPECT_TRUE(reports->HasTag(u"DT-HMI-Global"));
  platform.failing.clear();
  hooks.InstallGlobal(true);
  platform.refuseRemove = true;
  hooks.RemoveGlobal(true);
  EXPECT_TRUE(reports->HasTag(u"UNHT-I-G"));
  EXPECT_TRUE(reports->HasTag(u"UNHM-I-G"));
  EXPECT_FALSE(hooks.GlobalInstalled()) << "a handle the system refused to free is forgotten all the same";
  hooks.RemoveFocal();
  EXPECT_TRUE(reports->HasTag(u"UNHFHS-I-G"));
}

TEST_F(HookSetTest, ReinstallPutsTheNewHookInBeforeTheOldGoes) {
  hooks.InstallGlobal(false);
  platform.log.clear();
  hooks.Reinstall();
  EXPECT_EQ(platform.log,
            (std::vector<std::string>{"install global", "remove global", "install mouse", "remove mouse"}));
  EXPECT_EQ(KeyboardHooks(platform), 1);
  EXPECT_EQ(platform.LiveCount(HookKind::Mouse), 1);
}

TEST(HookHealth, SlowCallbackAsksForReinstallOnce) {
  FakeClock clock;
  HookHealth health(clock);
  const auto entered = health.CallbackEntered();
  clock.now += HookHealth::kSlowCallbackMs + 1;
  health.CallbackLeft(entered);
  EXPECT_TRUE(health.NeedsReinstall(clock.now, false));
  health.Reinstalled();
  EXPECT_FALSE(health.NeedsReinstall(clock.now, false));
  EXPECT_EQ(health.ReinstallCount(), 1);
}

TEST(HookHealth, InputTheHooksNeverSawMeansTheyWereDropped) {
  FakeClock clock;
  HookHealth health(clock);
  health.CallbackLeft(health.CallbackEntered());
  const std::uint32_t seen = clock.now;
  clock.now += 100;
  EXPECT_FALSE(health.NeedsReinstall(seen, true)) << "input the hooks saw";
  clock.now += HookHealth::kSilenceMs;
  EXPECT_FALSE(health.NeedsReinstall(seen + 5, true)) << "a time stamp a little ahead of ours is the same event";
  clock.now = seen + HookHealth::kSkewToleranceMs + 1;
  EXPECT_FALSE(health.NeedsReinstall(clock.now, true)) << "too recent: a callback may be on its way";
  const std::uint32_t unseen = clock.now;
  clock.now += HookHealth::kSilenceMs;
  EXPECT_FALSE(health.NeedsReinstall(unseen, false)) << "without the mouse hook, mouse moves prove nothing";
  EXPECT_TRUE(health.NeedsReinstall(unseen, true));
}

TEST(TypingFront, ToggleKeepsOneKeyboardHookAndResetsOnStop) {
  RecordingEngine engine;
  FakeKeys keys;
  FakeClock clock;
  FakeHookPlatform platform;
  TypingFront front(engine, keys, clock, platform);
  front.Hooks().InstallFocal();
  EXPECT_TRUE(front.ToggleTyping());
  EXPECT_TRUE(front.TypingOn());
  front.Pipeline().HandleGlobal({kWmKeyDown, 'K', 0, 0});
  EXPECT_FALSE(front.ToggleTyping());
  EXPECT_EQ(KeyboardHooks(platform), 1);
  EXPECT_EQ(engine.log, u"|k|") << "a composition never survives a toggle";
}

TEST(ProcessList, FindsTheWordProcessorInAnyCase) {
  const std::vector<ProcessEntry> processes = {
      {4, u"WINWORD.EXE"}, {8, u"explorer.exe"}, {9, u"winword.exe"}, {12, u"winword.exe.bak"}};
  EXPECT_EQ(ProcessIdsNamed(processes, u"winword.exe"), (std::vector<std::uint32_t>{4, 9}));
}

}  // namespace
}  // namespace quilom::shell
