#include "shell/hooked_key_processor.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "shell/key_classes.hpp"
#include "shell/us_keyboard.hpp"
#include "shell_fakes.hpp"

namespace quilom::shell {
namespace {

using testing::RecordingEngine;

class ProcessHookedKeyTest : public ::testing::Test {
 protected:
  TypingFrontState state;
  RecordingEngine engine;
  HookedKeyProcessor processor{state, engine};
};

TEST_F(ProcessHookedKeyTest, TypingKeysReachTheEngineAsUsKeyboardCharacters) {
  processor.ProcessHookedKey(0, 'K');
  processor.ProcessHookedKey(1, 'K');
  processor.ProcessHookedKey(1, '1');
  processor.ProcessHookedKey(0, 0xDE);
  processor.ProcessHookedKey(1, 0xBF);
  processor.ProcessHookedKey(0, 0x65);  // numeric pad 5
  EXPECT_EQ(engine.log, u"kK!'?5");
}

TEST_F(ProcessHookedKeyTest, ResetTabAndEnterBreakTheCompositionAndAreRemembered) {
  for (const int key : {kResetSignal, kVkTab, kVkReturn}) {
    processor.ProcessHookedKey(0, key);
    EXPECT_EQ(state.keys.LastKey, key);
  }
  EXPECT_EQ(engine.log, u"|||");
}

TEST_F(ProcessHookedKeyTest, HotkeyThenDigitSelectsInsteadOfTyping) {
  state.hotkeys = {0xA3, 0x7B, 0};
  std::vector<int> chosen;
  processor.SetHotkeyDigitHandler([&](int vk) { chosen.push_back(vk); });
  state.ClickPending = 1;
  processor.ProcessHookedKey(0, 0xA3);
  EXPECT_TRUE(state.HotkeyArmed);
  EXPECT_EQ(state.keys.LastKey, 0xA3);
  processor.ProcessHookedKey(0, '2');
  processor.ProcessHookedKey(0, 0x63);
  EXPECT_EQ(chosen, (std::vector<int>{'2', 0x63}));
  EXPECT_EQ(state.ClickPending, 0);
  EXPECT_EQ(engine.log, u"");

  processor.ProcessHookedKey(1, '3');  // shifted: ignored, the hotkey sequence goes on
  processor.ProcessHookedKey(0, 'K');  // ignored, and ends the sequence
  processor.ProcessHookedKey(0, 'K');
  EXPECT_EQ(chosen.size(), 2u);
  EXPECT_EQ(engine.log, u"k");
  EXPECT_FALSE(state.HotkeyArmed);
}

TEST_F(ProcessHookedKeyTest, BackspaceCarriesTheEditingChoicesToTheEngine) {
  const struct {
    bool smart, fast;
    std::u16string_view log;
  } rows[] = {{false, false, u"<"}, {true, false, u"<+"}, {false, true, u"<*"}, {true, true, u"<*+"}};
  for (const auto& row : rows) {
    engine.log.clear();
    state.editing.smartEditing = row.smart;
    state.editing.fastEditing = row.fast;
    processor.ProcessHookedKey(0, kVkBack);
    EXPECT_EQ(engine.log, row.log) << row.smart << row.fast;
    EXPECT_EQ(state.keys.LastKey, kVkBack);
  }
}

TEST_F(ProcessHookedKeyTest, WithoutIncludeHotkeysTheHotkeyAloneTogglesAndDigitsAreTyped) {
  state.hotkeys = {0xA4, 0x7B, 0};  // Alt+F12
  state.editing.includeHotkeys = false;
  std::vector<int> chosen;
  processor.SetHotkeyDigitHandler([&](int vk) { chosen.push_back(vk); });
  processor.ProcessHookedKey(0, 0xA4);  // Alt alone toggles nothing
  EXPECT_TRUE(chosen.empty());
  processor.ProcessHookedKey(0, 0x7B);
  EXPECT_EQ(chosen, (std::vector<int>{'1'}));
  EXPECT_FALSE(state.HotkeyArmed) << "the focal hook must let a digit through to the application";
  processor.ProcessHookedKey(0, '2');
  EXPECT_EQ(chosen.size(), 1u);
  EXPECT_EQ(engine.log, u"2");

  processor.ProcessHookedKey(0, 0x7B);  // F12 without Alt before it is no hotkey
  EXPECT_EQ(chosen.size(), 1u);
}

TEST_F(ProcessHookedKeyTest, AltOrWindowsHotkeyAsksForMenuSuppression) {
  state.hotkeys = {0xA4, 0x5B, 0x7B};  // left Alt primary, left Windows and F12 secondary
  EXPECT_EQ(processor.ProcessHookedKey(0, 0xA4), MenuSuppression::Alt);
  EXPECT_EQ(processor.ProcessHookedKey(0, 0x5B), MenuSuppression::Windows);
  EXPECT_EQ(processor.ProcessHookedKey(0, 0x7B), MenuSuppression::None);
  state.hotkeys = {0xA3, 0x5B, 0};  // a Ctrl primary never needs it
  EXPECT_EQ(processor.ProcessHookedKey(0, 0x5B), MenuSuppression::None);
}

TEST_F(ProcessHookedKeyTest, EngineFailureDoesNotEscape) {
  engine.throwOnKey = true;
  EXPECT_NO_THROW(processor.ProcessHookedKey(0, 'K'));
}

TEST(UsKeyboard, CharactersOfAUsKeyboard) {
  struct Row {
    int vk;
    bool shift;
    char16_t expected;
  };
  const Row rows[] = {{'A', false, u'a'},   {'Z', true, u'Z'},  {' ', true, u' '},  {'0', false, u'0'},
                      {'2', true, u'@'},    {'9', true, u'('},  {0xBA, true, u':'}, {0xC0, true, u'~'},
                      {0xDC, false, u'\\'}, {0xDE, true, u'"'}, {0x60, true, u'0'}, {0xDF, false, 0},
                      {0x25, false, 0}};
  for (const Row& row : rows) {
    EXPECT_EQ(UsKeyCharacter(row.vk, row.shift), row.expected) << "vk " << row.vk << " shift " << row.shift;
  }
}

// Every character some key gives is found back as a key that gives it, and nothing else is.
TEST(UsKeyboard, EveryCharacterAKeyGivesLeadsBackToSuchAKey) {
  int found = 0;
  for (char16_t ch = 1; ch < 0x250; ++ch) {
    const std::optional<UsKey> key = UsKeyFor(ch);
    bool given = false;
    for (int vk = 1; vk < 256 && !given; ++vk)
      given = UsKeyCharacter(vk, false) == ch || UsKeyCharacter(vk, true) == ch;
    EXPECT_EQ(key.has_value(), given) << int(ch);
    if (key) EXPECT_EQ(UsKeyCharacter(key->vk, key->shift), ch) << int(ch);
    found += key.has_value();
  }
  EXPECT_EQ(found, 95);  // printable ASCII, blank included
}

TEST_F(ProcessHookedKeyTest, KeyAfterTheHotkeyNumberIsTypedInTheNewKeymap) {
  state.hotkeys = {0xA4, 0x7B, 0};
  int selections = 0;
  // As the number selector does: the first digit after a hotkey marks the number as begun.
  processor.SetHotkeyDigitHandler([&](int) {
    state.keys.ComposeFlag = 1;
    ++selections;
  });
  processor.ProcessHookedKey(0, 0xA4);
  processor.ProcessHookedKey(0, 0x7B);
  processor.ProcessHookedKey(0, '1');
  processor.ProcessHookedKey(0, '2');
  processor.ProcessHookedKey(1, 'A');
  processor.ProcessHookedKey(0, 'M');
  EXPECT_EQ(selections, 2);
  EXPECT_EQ(engine.log, u"Am");
  EXPECT_FALSE(state.HotkeyArmed);

  // Without a digit first, the key after the hotkey is still only a way out of it.
  processor.ProcessHookedKey(0, 0xA4);
  processor.ProcessHookedKey(0, 'K');
  EXPECT_EQ(engine.log, u"Am");
}

}  // namespace
}  // namespace quilom::shell
