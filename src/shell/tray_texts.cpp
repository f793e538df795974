#include "shell/tray_texts.hpp"

namespace quilom::shell {

namespace {

constexpr std::u16string_view kEllipsis = u"...";

bool IsHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }

// The first `count` code units, one less when that would split a surrogate pair.
std::u16string_view WholePrefix(std::u16string_view text, std::size_t count) {
  if (count >= text.size()) return text;
  if (count > 0 && IsHighSurrogate(text[count - 1])) --count;
  return text.substr(0, count);
}

std::u16string NumberText(int n) {
  const bool negative = n < 0;
  long long value = negative ? -static_cast<long long>(n) : n;
  std::u16string digits;
  do {
    digits.insert(digits.begin(), static_cast<char16_t>(u'0' + value % 10));
    value /= 10;
  } while (value > 0);
  return negative ? u"-" + digits : digits;
}

// "'caption'" or, cut, "'capt...'" within `room` code units (at least the quotes and dots).
std::u16string QuotedCaption(std::u16string_view caption, std::size_t room) {
  if (caption.size() + 2 <= room) return u"'" + std::u16string(caption) + u"'";
  const std::size_t keep = room > 5 ? room - 5 : 0;
  return u"'" + std::u16string(WholePrefix(caption, keep)) + u"...'";
}

}  // namespace

std::u16string FitText(std::u16string_view text, std::size_t limit) {
  if (text.size() <= limit) return std::u16string(text);
  if (limit < kEllipsis.size()) return std::u16string(WholePrefix(text, limit));
  return std::u16string(WholePrefix(text, limit - kEllipsis.size())) + std::u16string(kEllipsis);
}

std::u16string IdleTooltip() {
  return u"Left click - Hide/Show screen\nRight click - Menu\nMiddle click - Start/Stop global typing";
}

std::u16string_view LanguageIndicatorTooltip() { return u"Indian Language Indicator"; }

BalloonText TypingOnBalloon(std::u16string_view keymap, int hotkeyNumber) {
  const std::u16string text = std::u16string(keymap) + u"\n(Hotkey Number: " + NumberText(hotkeyNumber) +
                              u")\nMouse over the language icon for more info.";
  return {u" Typing ON ", FitText(text, kBalloonTextLimit)};
}

BalloonText TypingOffBalloon(std::u16string_view keymap) {
  return {u" Typing OFF", FitText(u"You were typing in the LFK:\n" + std::u16string(keymap), kBalloonTextLimit)};
}

BalloonText MinimisedToTrayBalloon() {
  return {u"Quilom++ is minimized to tray and running in the background",
          u"You can view its starting screen again, any time, by just clicking it's tray icon"};
}

std::u16string TypingTooltip(HookedWindowKind kind, std::u16string_view caption, std::u16string_view hotkey,
                             std::u16string_view keymap) {
  const std::u16string rest = u"\nHotkey: " + std::u16string(hotkey) + u"\nLFK: " + std::u16string(keymap);
  std::u16string head = u"Hooked Window: ";
  if (kind == HookedWindowKind::Global) {
    head += u"All windows hooked, Globally";
  } else if (kind == HookedWindowKind::None) {
    head += u"NONE";
  } else {
    const std::size_t used = head.size() + rest.size();
    std::size_t room = used < kTooltipLimit ? kTooltipLimit - used : 0;
    if (room > kCaptionLimit + 2) room = kCaptionLimit + 2;
    head += QuotedCaption(caption, room < 6 ? 6 : room);
  }
  return FitText(head + rest, kTooltipLimit);
}

}  // namespace quilom::shell
