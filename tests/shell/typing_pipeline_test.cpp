#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "settings/data_folders.hpp"
#include "shell/hook_pipeline.hpp"
#include "shell/key_classes.hpp"
#include "shell/typing_output.hpp"
#include "shell_fakes.hpp"
#include "support/temp_folder.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

namespace quilom::shell {
namespace {

using testing::FakeClock;
using testing::FakeKeys;
using testing::RecordingSubmitter;

// Like the system under some hosts: every injected press goes through the keyboard hook again,
// nested, before SendInput returns. The hook must let all of it through and change nothing.
class ReenteringSubmitter final : public InputSubmitter {
 public:
  void Submit(std::span<const InputBatch> plan, std::u16string_view text) noexcept override {
    screen.Submit(plan, text);
    for (const InputBatch& batch : plan) {
      const std::uint32_t vk = batch.table == InputTable::Backspace ? kVkBack : 0xE7;
      for (const std::uint32_t message : {kWmKeyDown, kWmKeyUp}) {
        const HookOutcome outcome = pipeline->HandleGlobal({message, vk, kFlagInjected, 0});
        injectedSwallowed += outcome.swallow ? 1 : 0;
      }
    }
  }
  RecordingSubmitter screen;
  HookPipeline* pipeline = nullptr;
  int injectedSwallowed = 0;
};

// The whole road of a key: hook decision, the real engine with the shipped Tamil phonetic
// keymap, and the output plan played back into a text.
class TypingPipeline : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto folders = settings::DataFolders::ForDataRoot(quilom::testing::SourceDataRoot());
    std::shared_ptr<const translit::PhoneticKeymap> tables;
    ASSERT_EQ(translit::LoadPhoneticKeymap(folders.keymapFolder, u"Tamil-Unicode-PhoneticTransliteration", {}, tables),
              translit::LoadOutcome::Loaded);
    engine.SetKeymap(tables);
    submitter.pipeline = &pipeline;
  }

  // Presses each character's key as a person would: Shift around capitals.
  void Type(std::u16string_view keys, std::uint32_t msBetweenKeys) {
    for (const char16_t key : keys) {
      const bool shifted = key >= u'A' && key <= u'Z';
      const int vk = shifted ? key : (key >= u'a' && key <= u'z' ? key - u'a' + u'A' : key);
      if (shifted) held.down.insert(kVkShift);
      pipeline.HandleGlobal({kWmKeyDown, static_cast<std::uint32_t>(vk), 0, clock.now});
      pipeline.HandleGlobal({kWmKeyUp, static_cast<std::uint32_t>(vk), kFlagUp, clock.now});
      held.down.erase(kVkShift);
      clock.now += msBetweenKeys;
    }
  }

  // A Backspace the hook lets through erases one character in the application.
  void PressBackspace() {
    if (!pipeline.HandleGlobal({kWmKeyDown, kVkBack, 0, clock.now}).swallow) submitter.screen.screen.pop_back();
    pipeline.HandleGlobal({kWmKeyUp, kVkBack, kFlagUp, clock.now});
  }

  ReenteringSubmitter submitter;
  TypingOutput output{submitter};
  translit::Engine engine{output};
  TypingFrontState state;
  HookedKeyProcessor processor{state, engine};
  FakeKeys held;
  FakeClock clock;
  HookPipeline pipeline{state, processor, held, clock};
};

TEST_F(TypingPipeline, PhoneticKeysTypeTamil) {
  Type(u"vaNakkam thamizh ", 10);
  EXPECT_EQ(submitter.screen.screen, u"வணக்கம் தமிழ் ");
  EXPECT_EQ(submitter.injectedSwallowed, 0);
}

TEST_F(TypingPipeline, SlowTypingAfterAClickGivesTheSameText) {
  pipeline.OnMouse(kWmLButtonDown);
  pipeline.OnMouse(kWmLButtonUp);
  Type(u"vaNakkam", 150);
  EXPECT_EQ(submitter.screen.screen, u"வணக்கம்");
}

TEST_F(TypingPipeline, ClickInTheMiddleOfAWordStartsAfresh) {
  Type(u"ka", 10);
  pipeline.OnMouse(kWmLButtonUp);
  Type(u"a", 150);
  // Without the break, "kaa" would erase the "கா" it thinks is still before the caret.
  EXPECT_EQ(submitter.screen.screen, u"கஅ");
}

TEST_F(TypingPipeline, EditingChoicesDecideWhatACorrectionGives) {
  const struct {
    bool smart, fast;
    std::u16string_view screen;
  } rows[] = {
      {false, false, u"கஇ பணடி"},  // the composition ended: the vowel starts a new letter
      {true, false, u"கி பணடி"},   // the syllable re-forms
      {false, true, u"இ படி"},     // the whole letter went; the next key starts afresh
      {true, true, u"இ படி"},      // two whole letters erased
  };
  for (const auto& row : rows) {
    state.editing.smartEditing = row.smart;
    state.editing.fastEditing = row.fast;
    submitter.screen.screen.clear();
    engine.Reset();
    Type(u"kaa", 10);
    PressBackspace();
    Type(u"i paNam", 10);
    PressBackspace();
    PressBackspace();
    Type(u"di", 10);
    EXPECT_EQ(submitter.screen.screen, row.screen) << row.smart << row.fast;
  }
}

}  // namespace
}  // namespace quilom::shell
