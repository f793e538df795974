#include <gtest/gtest.h>

#include "keymaps_typist.hpp"
#include "text/strings.hpp"

namespace quilom::testing {
namespace {

// The shipped Tamil phonetic keymap typed into a screen that obeys the engine's edits; '<' in a
// key string is a Backspace the application carries out before the engine hears of it.
class EngineBackspaceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    translit::KeymapLoadOptions options;
    const auto outcome = translit::LoadPhoneticKeymap(ShippedKeymapFolder(), u"Tamil-Unicode-PhoneticTransliteration",
                                                      options, tables_, [](std::u16string_view) {});
    ASSERT_EQ(outcome, translit::LoadOutcome::Loaded);
    engine_.SetKeymap(tables_);
  }

  std::u16string Type(std::u16string_view keys, bool wholeLetter, bool keepComposition) {
    for (const char16_t key : keys) {
      if (key != u'<') {
        engine_.ProcessKey(key);
        continue;
      }
      if (!sink_.screen.empty()) sink_.screen.pop_back();
      engine_.Backspace(wholeLetter, keepComposition);
    }
    return sink_.screen;
  }

  RecordingOutputSink sink_;
  translit::Engine engine_{sink_};
  std::shared_ptr<const translit::PhoneticKeymap> tables_;
};

struct Case {
  std::u16string_view keys;
  std::u16string_view screen;
};

TEST_F(EngineBackspaceTest, SmartBackspaceLetsTheNextKeyReformTheSyllable) {
  const Case cases[] = {
      {u"kaa<i", u"கி"},        // the vowel sign erased: the consonant takes the next vowel
      {u"kaa<", u"க"},          // nothing else changes on screen
      {u"paNam<<di", u"பணடி"},  // the last letter erased: "di" follows the bare ண
      {u"paNam<a", u"பணம"},     // the virama erased: ம waits for a vowel, "a" adds nothing
      {u"paNam<i", u"பணமி"},
      {u"vaNakkam<<<kam", u"வணக்கம்"},  // back beyond the buffered keys: "kam" after வணக்
      {u"vaNakkam<<<<am", u"வணகம்"},   // the bare க taken up again waits for its vowel
      {u"thamizh<<l", u"தமில்"},
      {u"kaa<<ki", u"கி"},  // everything erased: a fresh start
  };
  for (const auto& [keys, screen] : cases) {
    engine_.Reset();
    sink_.screen.clear();
    EXPECT_EQ(Type(keys, false, true), screen) << text::Utf16ToUtf8(keys);
    EXPECT_EQ(sink_.screen, engine_.CurrentOutput()) << text::Utf16ToUtf8(keys);
  }
}

TEST_F(EngineBackspaceTest, WithoutSmartEditingBackspaceEndsTheComposition) {
  // The old behaviour the user can still choose: the vowel key starts a new letter.
  EXPECT_EQ(Type(u"kaa<i", false, false), u"கஇ");
  EXPECT_EQ(engine_.TypedLength(), 1);
}

TEST_F(EngineBackspaceTest, FastEditingAloneStillErasesWholeLettersButJoinsNothing) {
  EXPECT_EQ(Type(u"vaNakkam<<<", true, false), u"வண");
  EXPECT_EQ(Type(u"a", true, false), u"வணஅ");
}

TEST_F(EngineBackspaceTest, FastBackspaceErasesTheWholeLetter) {
  const Case cases[] = {
      {u"kaa<", u""},      // consonant and vowel sign go together
      {u"paNam<", u"பண"},  // ம and its virama
      {u"paNam<<", u"ப"}, {u"paNam<di", u"பணடி"}, {u"kshaththiriyan<", u"க்ஷத்திரிய"},
      {u"aqdhu<", u"அஃ"},  // the aytham is a letter, not a sign of the one before it
      {u"aqdhu<<", u"அ"},
  };
  for (const auto& [keys, screen] : cases) {
    engine_.Reset();
    sink_.screen.clear();
    EXPECT_EQ(Type(keys, true, true), screen) << text::Utf16ToUtf8(keys);
    EXPECT_EQ(sink_.screen, engine_.CurrentOutput()) << text::Utf16ToUtf8(keys);
  }
}

TEST_F(EngineBackspaceTest, BackspaceBeforeOurTextErasesOnlyWhatTheApplicationDid) {
  // Nothing typed since the last reset: the engine sends nothing, even for a whole letter.
  Type(u"<", true, true);
  EXPECT_TRUE(sink_.edits.empty());
  EXPECT_EQ(engine_.TypedLength(), 0);
}

TEST(LastLetterLength, CountsTheBaseAndEverySignAfterIt) {
  EXPECT_EQ(translit::LastLetterLength(u""), 0);
  EXPECT_EQ(translit::LastLetterLength(u"a"), 1);
  EXPECT_EQ(translit::LastLetterLength(u"கா"), 2);
  EXPECT_EQ(translit::LastLetterLength(u"க்ஷ"), 1);  // the conjunct's last consonant
  EXPECT_EQ(translit::LastLetterLength(u"कीं"), 3);  // Devanagari vowel sign and anusvara
  EXPECT_EQ(translit::LastLetterLength(u"ொ"), 1);   // a sign alone is all there is
}

}  // namespace
}  // namespace quilom::testing
