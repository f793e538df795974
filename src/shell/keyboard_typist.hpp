#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "shell/hooked_key_processor.hpp"
#include "shell/typing_front_state.hpp"
#include "translit/engine.hpp"

// A text typed as a person at an English (US) keyboard types it while typing is on: every
// character a key gives goes in as that key (with Shift where the key needs it), through the
// same key processor and engine as the keyboard hook, so that the result is what live typing
// gives in any application. Enter and Tab end the composition there, and so do line breaks and
// tabs here. A character no key gives (Tamil already, another script) is pasted: the
// composition ends and the character stays as it is.
//
// What the receiving window would show is kept, and handed out as soon as no later key can
// change it: an edit reaches back only over the keys since the engine's last restart, which
// are at most Engine::kMaxTypedKeys, so a text of any length is typed in bounded memory.
namespace quilom::shell {

class KeyboardTypist {
 public:
  KeyboardTypist(std::shared_ptr<const translit::PhoneticKeymap> keymap, const translit::EngineSettings& settings);
  KeyboardTypist(const KeyboardTypist&) = delete;
  KeyboardTypist& operator=(const KeyboardTypist&) = delete;

  // With it on, a grave accent starts text that is pasted as it stands, accents included, up to
  // the next grave accent (or the end of the text). Off by default: some keymaps type with that
  // key.
  void KeepBackQuoted(bool keep) { keepBackQuoted_ = keep; }

  // Types the next piece of the text; pieces may split the text anywhere between characters.
  void Type(std::u16string_view text);
  // What the window shows that no later key can change, handed out once.
  std::u16string TakeSettled();
  // Ends the text: the rest of what the window shows.
  std::u16string Finish();

 private:
  class Screen final : public translit::OutputSink {
   public:
    std::u16string text;

   protected:
    void Emit(int eraseCount, std::u16string_view typed) override;
  };

  void TypeCharacter(char16_t ch);
  void Paste(char16_t ch);

  Screen screen_;
  translit::Engine engine_;
  TypingFrontState state_;
  HookedKeyProcessor processor_;
  bool keepBackQuoted_ = false;
  bool inBackQuotes_ = false;
};

}  // namespace quilom::shell
