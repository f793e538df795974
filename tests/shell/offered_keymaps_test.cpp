#include "shell/offered_keymaps.hpp"

#include <gtest/gtest.h>

#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "translit/catalogue_lists.hpp"
#include "translit/keymap_resolution.hpp"
#include "translit/typing_settings.hpp"

namespace quilom::shell {
namespace {

using testing::SourceDataRoot;
using testing::TempFolder;
using testing::Utf16LeWithMark;
using testing::WriteBytes;

const std::vector<std::u16string> kOffered = {u"Tamil-Unicode-PhoneticTransliteration", u"Tamil-Unicode-TamilNet99",
                                              u"Hindi-Unicode-PhoneticTransliteration"};

TEST(OfferedKeymaps, ShippedListIsTheFinalizedOneInOrder) {
  const auto folders = settings::DataFolders::ForDataRoot(SourceDataRoot());
  const auto offered = LoadOfferedKeymaps(folders);
  ASSERT_GE(offered.size(), 9u);
  EXPECT_EQ(offered[0], kDefaultKeymap);
  EXPECT_EQ(offered[1], u"Tamil-Unicode-TamilNet99");
}

// Every keymap the window offers must really load, or its hotkey number would type Latin.
TEST(OfferedKeymaps, EveryShippedOfferedKeymapLoads) {
  const auto folders = settings::DataFolders::ForDataRoot(SourceDataRoot());
  const auto typing = translit::LoadTypingSettings(folders);
  for (const auto& name : LoadOfferedKeymaps(folders)) {
    std::shared_ptr<const translit::PhoneticKeymap> tables;
    std::u16string problem;
    const auto outcome =
        translit::LoadKeymapForSettings(folders, typing, name, tables, [&](std::u16string_view m) { problem = m; });
    EXPECT_EQ(outcome, translit::LoadOutcome::Loaded) << std::string(name.begin(), name.end());
    EXPECT_TRUE(tables != nullptr);
    EXPECT_TRUE(problem.empty());
  }
}

TEST(OfferedKeymaps, MissingListsFallBackToOriginalThenTamilPhonetic) {
  TempFolder root;
  const auto folders = settings::DataFolders::ForDataRoot(root.path());
  EXPECT_EQ(LoadOfferedKeymaps(folders), std::vector<std::u16string>{std::u16string(kDefaultKeymap)});

  std::filesystem::create_directories(translit::LfkListPath(folders, translit::kOriginalList).parent_path());
  WriteBytes(translit::LfkListPath(folders, translit::kOriginalList),
             Utf16LeWithMark(u"Hindi-Unicode-PhoneticTransliteration 1\r\n"));
  EXPECT_EQ(LoadOfferedKeymaps(folders), std::vector<std::u16string>{u"Hindi-Unicode-PhoneticTransliteration"});
}

TEST(OfferedKeymaps, NumbersMapToListPositions) {
  EXPECT_EQ(KeymapListLabel(12, u"Hindi-Unicode-PhoneticTransliteration"),
            u"12  Hindi-Unicode-PhoneticTransliteration");
  EXPECT_EQ(HotkeyNumberOf(kOffered, u"Tamil-Unicode-TamilNet99"), 2);
  EXPECT_EQ(HotkeyNumberOf(kOffered, u"Tamil-Unicode-TypeWriterNew"), 0);

  const auto third = RequestForNumber(kOffered, 3, true, false);
  ASSERT_TRUE(third.has_value());
  EXPECT_EQ(third->SelectedKeymap, u"Hindi-Unicode-PhoneticTransliteration");
  EXPECT_EQ(third->hotkeyNumber, 3);
  EXPECT_TRUE(third->showInGrid);
  EXPECT_FALSE(RequestForNumber(kOffered, 0, false, false).has_value());
  EXPECT_FALSE(RequestForNumber(kOffered, 4, false, false).has_value());
}

TEST(OfferedKeymaps, DigitOutcomesBecomeNumbers) {
  EXPECT_EQ(NumberForDigit({DigitOutcome::Kind::SelectIndex, 7}, 2), 7);
  EXPECT_EQ(NumberForDigit({DigitOutcome::Kind::ApplyFloaterKeymap, 0}, 2), 2);
  EXPECT_EQ(NumberForDigit({DigitOutcome::Kind::ApplyFloaterKeymap, 0}, 0), 0);
  EXPECT_EQ(NumberForDigit({DigitOutcome::Kind::Nothing, 5}, 2), 0);
}

// Hotkey, then 1: keymap 1 goes on; hotkey, then 1 again: the same keymap goes off.
TEST(OfferedKeymaps, HotkeyDigitsThroughTheSelectorToggleTheKeymap) {
  HotkeyNumberSelector numbers;
  KeymapSelector selector;
  HookKeyState keys;
  const auto press = [&](int vk) {
    keys.ComposeFlag = 0;  // a hotkey key arrived
    const int number = NumberForDigit(
        numbers.OnDigit(keys, vk, static_cast<int>(kOffered.size()), selector.State().globalHookInstalled), 0);
    const auto request = RequestForNumber(kOffered, number, true, true);
    if (!request) return SelectionActions{};
    auto actions = selector.SelectKeymap(*request, {});
    selector.FinishSelection(actions.removeHooks ? false : true);
    return actions;
  };
  EXPECT_TRUE(press(0x31).installHooks);
  EXPECT_EQ(selector.State().ActiveKeymap, kOffered[0]);
  EXPECT_TRUE(press(0x32).keymapToApply == kOffered[1]);
  EXPECT_TRUE(press(0x32).removeHooks);
  EXPECT_FALSE(selector.State().globalHookInstalled);
  // Out of range: nothing selected, nothing changed.
  const auto none = press(0x39);
  EXPECT_FALSE(none.installHooks);
  EXPECT_FALSE(selector.State().globalHookInstalled);
}

TEST(OfferedKeymaps, ToggleTakesFloaterChoiceThenStopsTheActiveThenStartsTheFirst) {
  SelectionState state;
  state.globalHookInstalled = true;
  state.ActiveKeymap = u"Tamil-Unicode-TamilNet99";
  EXPECT_EQ(ToggleRequest(kOffered, 3, state)->SelectedKeymap, kOffered[2]);
  EXPECT_EQ(ToggleRequest(kOffered, 9, state)->SelectedKeymap, u"Tamil-Unicode-TamilNet99");
  state.globalHookInstalled = false;
  EXPECT_EQ(ToggleRequest(kOffered, 0, state)->hotkeyNumber, 1);
  EXPECT_FALSE(ToggleRequest({}, 0, state).has_value());
}

// Typing in a keymap that has since left the list must still be switched off by the button.
TEST(OfferedKeymaps, ActiveKeymapNoLongerOfferedStillTogglesOff) {
  KeymapSelector selector;
  selector.SelectKeymap(*RequestForNumber({u"Gone-Unicode-Layout"}, 1, false, false), {});
  selector.FinishSelection(true);
  const auto request = ToggleRequest(kOffered, 0, selector.State());
  ASSERT_TRUE(request.has_value());
  EXPECT_EQ(request->hotkeyNumber, 0);
  EXPECT_TRUE(selector.SelectKeymap(*request, {}).removeHooks);
}

}  // namespace
}  // namespace quilom::shell
