#pragma once

#include <optional>
#include <string>

// The start-up check of the Windows language settings.
//
// The setting tested is "Beta: Use Unicode UTF-8 for worldwide language support" (Region,
// Administrative, Change system locale). When it is ticked the system code page becomes UTF-8
// (65001): the program's ANSI files ("ANSI" text, the notifier sound paths handed to
// PlaySoundA) and the ANSI hook and window calls then read bytes differently than every other
// user's system does. It is read as the active code page (GetACP in the program).
namespace quilom::shell {

inline constexpr unsigned kUtf8CodePage = 65001;

// The message to show once at start, or nothing when the setting is not ticked.
std::optional<std::u16string> LanguageSettingWarning(unsigned activeCodePage);

}  // namespace quilom::shell
