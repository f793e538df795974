#include "shell/keyboard_typist.hpp"

#include <algorithm>
#include <utility>

#include "shell/key_classes.hpp"
#include "shell/us_keyboard.hpp"

namespace quilom::shell {
namespace {

// Far more than the output of the keys an edit can reach back over.
constexpr std::size_t kReachBack = 1 << 16;

}  // namespace

void KeyboardTypist::Screen::Emit(int eraseCount, std::u16string_view typed) {
  const std::size_t erase = std::min<std::size_t>(static_cast<std::size_t>(std::max(eraseCount, 0)), text.size());
  text.erase(text.size() - erase);
  text += typed;
}

KeyboardTypist::KeyboardTypist(std::shared_ptr<const translit::PhoneticKeymap> keymap,
                               const translit::EngineSettings& settings)
    : engine_(screen_), processor_(state_, engine_) {
  engine_.SetKeymap(std::move(keymap));
  engine_.SetSettings(settings);
}

void KeyboardTypist::Type(std::u16string_view text) {
  for (const char16_t ch : text) TypeCharacter(ch);
}

void KeyboardTypist::TypeCharacter(char16_t ch) {
  if (keepBackQuoted_ && (inBackQuotes_ || ch == u'`')) {
    if (ch == u'`') inBackQuotes_ = !inBackQuotes_;
    Paste(ch);
    return;
  }
  if (ch == u'\n' || ch == u'\r' || ch == u'\t') {
    processor_.ProcessHookedKey(0, ch == u'\t' ? kVkTab : kVkReturn);
    screen_.text.push_back(ch);
    return;
  }
  const std::optional<UsKey> key = UsKeyFor(ch);
  if (!key) {
    Paste(ch);
    return;
  }
  processor_.ProcessHookedKey(key->shift ? 1 : 0, key->vk);
}

void KeyboardTypist::Paste(char16_t ch) {
  processor_.ResetComposition();
  screen_.text.push_back(ch);
}

std::u16string KeyboardTypist::TakeSettled() {
  if (screen_.text.size() < 2 * kReachBack) return {};
  const std::size_t settled = screen_.text.size() - kReachBack;
  std::u16string out = screen_.text.substr(0, settled);
  screen_.text.erase(0, settled);
  return out;
}

std::u16string KeyboardTypist::Finish() {
  processor_.ResetComposition();
  inBackQuotes_ = false;
  return std::exchange(screen_.text, {});
}

}  // namespace quilom::shell
