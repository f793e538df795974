#include "shell/focused_typing.hpp"

#include <gtest/gtest.h>

namespace quilom::shell {
namespace {

SelectionState Focused(WindowId hooked) {
  SelectionState state;
  state.FocusedMode = kFocusedOnOneApplication;
  state.HookedWindow = hooked;
  return state;
}

TEST(FocusedTyping, OnlyTheHookedWindowsThreadGetsTheKeymap) {
  struct Case {
    const char* what;
    SelectionState state;
    ThreadId foreground;
    ThreadId hooked;
    bool reaches;
  };
  SelectionState global;
  global.FocusedMode = kTypingInAllApplications;
  global.HookedWindow = 0x50;  // left over from an earlier focused spell: must not matter
  const Case cases[] = {
      {"all applications", global, 7, 9, true},
      {"focused, nothing hooked yet", Focused(0), 7, 0, true},
      {"focused, hooked window in front", Focused(0x50), 9, 9, true},
      {"focused, another window in front", Focused(0x50), 7, 9, false},
      {"focused, hooked window gone", Focused(0x50), 7, 0, false},
      {"focused, hooked window gone, nothing in front", Focused(0x50), 0, 0, false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(TypingReachesForeground(c.state, c.foreground, c.hooked), c.reaches) << c.what;
    if (!TypingLimitedToHookedWindow(c.state)) EXPECT_TRUE(c.reaches) << c.what;
  }
}

TEST(FocusedTyping, GateReportsEachChangeOfVerdictOnce) {
  FocusGate gate;
  EXPECT_FALSE(gate.Changed(true));
  EXPECT_TRUE(gate.Changed(false));
  EXPECT_FALSE(gate.Changed(false));
  EXPECT_TRUE(gate.Changed(true));
  EXPECT_FALSE(gate.Changed(true));
}

}  // namespace
}  // namespace quilom::shell
