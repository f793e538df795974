#pragma once

#include <functional>
#include <string>
#include <string_view>

// Which sound announces typing ON and OFF. The choice comes from the typing settings:
// 1 = the system's notify sound, 2 = "! ! NotifierSound.wav", 3 = a sound per keymap number
// listed in "! ! NotifierSounds - FilePaths.txt", anything else = "! ! NotifierSound.wav".
// Both files live in the "Notifier Sounds" folder below the typing module folder.
namespace quilom::shell {

inline constexpr std::u16string_view kSystemNotifySound = u"C:\\Windows\\Media\\Windows Notify System Generic.wav";
inline constexpr std::u16string_view kNotifierSoundsFolderName = u"Notifier Sounds";
inline constexpr std::u16string_view kNotifierSoundFile = u"! ! NotifierSound.wav";
inline constexpr std::u16string_view kNotifierSoundListFile = u"! ! NotifierSounds - FilePaths.txt";
inline constexpr std::u16string_view kDefaultSoundMarker = u"`````Use the file";

// The path-list file, read: the lines (split at CR LF) as ReadTextFile gives them.
//
// A line "n.path" gives keymap number n its sound; spaces around n and the path are ignored.
// A line beginning with "`````Use the file" marks the default for keymaps that have no line of
// their own: the rest of that line, after an optional ":" and spaces, names the default file,
// and when nothing follows the marker the default is "! ! NotifierSound.wav". Without a marker
// line, a keymap that is not listed plays nothing. Relative paths are taken from the folder of
// the list. Other lines (titles, comments) are skipped. When two lines name one number the
// first wins.
std::u16string SoundFromPathList(std::u16string_view listText, int hotkeyNumber, std::u16string_view soundsFolder);

// The file to play, or empty for silence: resolves the choice, then drops a file that
// `fileExists` does not find (a missing sound plays nothing). `readList` gives the text of the
// path list (only asked for choice 3); `soundsFolder` is "<typing folder>\Notifier Sounds"
// written with backslashes, as PlaySoundA wants it.
std::u16string NotifierSoundFile(int choice, int hotkeyNumber, std::u16string_view soundsFolder,
                                 const std::function<std::u16string()>& readList,
                                 const std::function<bool(std::u16string_view)>& fileExists);

}  // namespace quilom::shell
