#pragma once

#include <string>
#include <string_view>

// Every text the tray icon shows: tooltips and balloons. Lines are separated by "\n", which the
// shell's tooltips and balloons break at.
//
// Length limits are those of NOTIFYICONDATAW: a tooltip holds 127 characters, a balloon title
// 63 and a balloon text 255 (each buffer ends with its terminator). Decision of ours: a text
// that is too long is cut at the last whole character that leaves room for "..." and ended
// with "...", never inside a surrogate pair; the hooked window's caption is the piece cut first,
// so "Hotkey: " and "LFK: " stay readable.
namespace quilom::shell {

inline constexpr std::size_t kTooltipLimit = 127;
inline constexpr std::size_t kBalloonTitleLimit = 63;
inline constexpr std::size_t kBalloonTextLimit = 255;
// Captions longer than this are cut even when the tooltip has room: a long title buries the
// hotkey and keymap lines.
inline constexpr std::size_t kCaptionLimit = 48;

struct BalloonText {
  std::u16string title;
  std::u16string text;
};

// The icon's tooltip while typing is off: the three click hints.
std::u16string IdleTooltip();

// The language indicator icon's tooltip while typing is on.
std::u16string_view LanguageIndicatorTooltip();

// " Typing ON " with the keymap, "(Hotkey Number: n)" and the mouse-over hint.
BalloonText TypingOnBalloon(std::u16string_view keymap, int hotkeyNumber);
// " Typing OFF" with "You were typing in the LFK:" and the keymap.
BalloonText TypingOffBalloon(std::u16string_view keymap);
BalloonText MinimisedToTrayBalloon();

// What the while-typing tooltip says about the hooked window.
enum class HookedWindowKind { None, Global, OneWindow };

// "Hooked Window: ", "Hotkey: " and "LFK: " lines, fitted into kTooltipLimit.
std::u16string TypingTooltip(HookedWindowKind kind, std::u16string_view caption, std::u16string_view hotkey,
                             std::u16string_view keymap);

// `text` cut to at most `limit` code units as described above.
std::u16string FitText(std::u16string_view text, std::size_t limit);

}  // namespace quilom::shell
