#pragma once

// What the keyboard hook needs of a typing engine: one character key at a time, and a reset
// when the typing context is lost (a click, a cursor key, Tab, Enter). The transliteration
// engine implements it; the hook decision logic is tested against fakes of it.
namespace quilom::translit {

class TypingEngine {
 public:
  virtual ~TypingEngine() = default;
  // `key` is the character the key stands for on an English (US) keyboard with the Shift
  // state applied: 'k', 'K', ';', '1', '!' ...
  virtual void ProcessKey(char16_t key) = 0;
  virtual void Reset() = 0;
  // The application has just erased one character before the caret (a Backspace let through).
  // `wholeLetter` asks the engine to erase the rest of that letter too; `keepComposition` keeps
  // the keys whose output is still shown, so the next key re-forms the syllable. An engine that
  // keeps no record can only start afresh.
  virtual void Backspace(bool wholeLetter, bool keepComposition) {
    (void)wholeLetter;
    (void)keepComposition;
    Reset();
  }
};

}  // namespace quilom::translit
