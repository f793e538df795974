#include "shell/hotkey_check.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace quilom::shell {
namespace {

class FakeAvailability final : public HotkeyAvailability {
 public:
  bool Register(unsigned modifiers, int vk) noexcept override {
    ++registerCalls;
    lastModifiers = modifiers;
    lastVk = vk;
    if (!registerSucceeds) return false;
    held = true;
    return true;
  }
  bool Unregister() noexcept override {
    ++unregisterCalls;
    if (!unregisterSucceeds) return false;
    held = false;
    return true;
  }
  bool registerSucceeds = true;
  bool unregisterSucceeds = true;
  bool held = false;
  int registerCalls = 0;
  int unregisterCalls = 0;
  unsigned lastModifiers = 0;
  int lastVk = 0;
};

struct ParseRow {
  const char16_t* text;
  bool valid;
  unsigned modifiers;
  int vk;
};

TEST(HotkeyText, ParsesModifiersAndKeys) {
  const ParseRow rows[] = {
      {u"Alt+F12", true, kModAlt, 0x7B},
      {u"Ctrl+Shift+T", true, kModControl | kModShift, 'T'},
      {u"F9", true, 0, 0x78},
      {u"F24", true, 0, 0x87},
      {u"Win+Alt+Home", true, kModWin | kModAlt, 0x24},
      {u"Ctrl+/", true, kModControl, 0xBF},
      {u"Ctrl+\\", true, kModControl, 0xDC},
      {u"Alt+Num5", true, kModAlt, 0x65},
      {u"Shift+Space", true, kModShift, 0x20},
      {u"F25", false, 0, 0},
      {u"F0", false, 0, 0},
      {u"F01", false, 0, 0},
      {u"alt+F12", false, 0, 0},   // words are case-sensitive
      {u"Alt+Alt+F1", false, 0, 0},
      {u"Alt", false, 0, 0},       // modifiers alone name no key
      {u"Alt+F1+F2", false, 0, 0},
      {u"F1+Alt", false, 0, 0},
      {u"Ctrl++", false, 0, 0},
      {u"", false, 0, 0},
      {u"None", false, 0, 0},
      {u"Hyper+F1", false, 0, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.text, row.text + std::char_traits<char16_t>::length(row.text)));
    const auto parsed = ParseHotkeyText(row.text);
    ASSERT_EQ(parsed.has_value(), row.valid);
    if (!parsed) continue;
    EXPECT_EQ(parsed->modifiers, row.modifiers);
    EXPECT_EQ(parsed->vk, row.vk);
  }
}

TEST(HotkeyText, HookCodesKeepCharacterKeysOutOfTheSecondaries) {
  const HotkeyCodes altF12 = HotkeyCodesOf(u"Alt+F12");
  EXPECT_EQ(altF12.PrimaryHotkeyVk, 0xA4);
  EXPECT_EQ(altF12.SecondaryHotkeyVk1, 0x7B);
  EXPECT_EQ(altF12.SecondaryHotkeyVk2, 0);

  const HotkeyCodes ctrlShiftT = HotkeyCodesOf(u"Ctrl+Shift+T");
  EXPECT_EQ(ctrlShiftT.PrimaryHotkeyVk, 0xA2);
  EXPECT_EQ(ctrlShiftT.SecondaryHotkeyVk1, 0);

  const HotkeyCodes f9 = HotkeyCodesOf(u"F9");
  EXPECT_EQ(f9.PrimaryHotkeyVk, 0);
  EXPECT_EQ(f9.SecondaryHotkeyVk1, 0x78);

  EXPECT_EQ(HotkeyCodesOf(u"Win+F2").PrimaryHotkeyVk, 0x5B);
  EXPECT_EQ(HotkeyCodesOf(u"Shift+F2").PrimaryHotkeyVk, 0xA0);
  const HotkeyCodes none = HotkeyCodesOf(u"None");
  EXPECT_FALSE(none.IsHotkey(0));
  EXPECT_EQ(none.PrimaryHotkeyVk + none.SecondaryHotkeyVk1, 0);
}

TEST(HotkeyText, OfferedListStartsWithNoneAndEveryEntryPassesTheTextChecks) {
  const auto texts = OfferedHotkeyTexts();
  ASSERT_FALSE(texts.empty());
  EXPECT_EQ(texts.front(), u"None");
  EXPECT_NE(std::find(texts.begin(), texts.end(), u"Alt+F12"), texts.end());
  EXPECT_NE(std::find(texts.begin(), texts.end(), u"Ctrl+Shift+T"), texts.end());
  EXPECT_EQ(std::set<std::u16string>(texts.begin(), texts.end()).size(), texts.size());
  FakeAvailability free;
  for (std::size_t i = 1; i < texts.size(); ++i)
    EXPECT_EQ(CheckHotkey(texts[i], free).verdict, HotkeyVerdict::Accepted);
}

TEST(HotkeyCheck, NoneClearsWithoutAskingTheSystem) {
  FakeAvailability system;
  const auto result = CheckHotkey(u"None", system);
  EXPECT_EQ(result.verdict, HotkeyVerdict::Cleared);
  EXPECT_EQ(system.registerCalls, 0);
}

TEST(HotkeyCheck, TextChecksRefuseWithTheirMessages) {
  struct Row {
    const char16_t* text;
    const char16_t* message;
  };
  const Row rows[] = {
      {u"Alt+Q+", u"Alt+Q+ is not a valid hotkey. Choose some other hotkey."},
      {u"Shift+A",
       u"You shall not try to set any such combination of 'Shift+[Alphabet/Numeral/Punctuation]' as your hotkey "
       u"('Shift+A' being the hotkey tried by you to be set, in this case)."},
      {u"Shift+;",
       u"You shall not try to set any such combination of 'Shift+[Alphabet/Numeral/Punctuation]' as your hotkey "
       u"('Shift+;' being the hotkey tried by you to be set, in this case)."},
      {u"7",
       u"You shall not try to set any such solitary character [Alphabet/Numeral/Punctuation] as your hotkey "
       u"('7' being the hotkey tried by you to be set, in this case)."},
      {u"Space",
       u"You shall not try to set any such solitary character [Alphabet/Numeral/Punctuation] as your hotkey "
       u"('Space' being the hotkey tried by you to be set, in this case)."},
  };
  for (const auto& row : rows) {
    FakeAvailability system;
    const auto result = CheckHotkey(row.text, system);
    EXPECT_EQ(result.verdict, HotkeyVerdict::Refused);
    EXPECT_EQ(result.message, row.message);
    EXPECT_EQ(system.registerCalls, 0);
  }
}

TEST(HotkeyCheck, ShiftWithAnotherModifierOrAFunctionKeyGoesToTheSystem) {
  for (const char16_t* text : {u"Ctrl+Shift+A", u"Shift+F5", u"F5", u"Home"}) {
    FakeAvailability system;
    EXPECT_EQ(CheckHotkey(text, system).verdict, HotkeyVerdict::Accepted);
    EXPECT_EQ(system.registerCalls, 1);
  }
}

TEST(HotkeyCheck, AcceptedHotkeyIsRegisteredOnlyForAMoment) {
  FakeAvailability system;
  const auto result = CheckHotkey(u"Ctrl+Alt+F3", system);
  EXPECT_EQ(result.verdict, HotkeyVerdict::Accepted);
  EXPECT_TRUE(result.message.empty());
  EXPECT_EQ(system.lastModifiers, kModControl | kModAlt);
  EXPECT_EQ(system.lastVk, 0x72);
  EXPECT_FALSE(system.held);
  EXPECT_EQ(result.codes.PrimaryHotkeyVk, 0xA2);
  EXPECT_EQ(result.codes.SecondaryHotkeyVk1, 0x72);
}

TEST(HotkeyCheck, SystemRefusalsGiveTheirMessages) {
  FakeAvailability taken;
  taken.registerSucceeds = false;
  const auto refused = CheckHotkey(u"Alt+F4", taken);
  EXPECT_EQ(refused.verdict, HotkeyVerdict::Refused);
  EXPECT_EQ(refused.message,
            u"Unable to register this hotkey (Alt+F4). It is probably already registered - EITHER by your operating "
            u"system OR by some other application.\r\nHence, choose a different hotkey.");
  EXPECT_EQ(taken.unregisterCalls, 0);

  FakeAvailability stuck;
  stuck.unregisterSucceeds = false;
  const auto notGivenBack = CheckHotkey(u"Alt+F4", stuck);
  EXPECT_EQ(notGivenBack.verdict, HotkeyVerdict::Refused);
  EXPECT_EQ(notGivenBack.message, u"Unable to unregister the present hotkey. Please try again at a later time.");
}

}  // namespace
}  // namespace quilom::shell
