#include "shell/notifier_sound.hpp"

#include <optional>

#include "text/strings.hpp"

namespace quilom::shell {

namespace {

bool IsAbsolute(std::u16string_view path) {
  if (path.size() >= 2 && path[1] == u':') return true;
  return !path.empty() && (path[0] == u'\\' || path[0] == u'/');
}

std::u16string InFolder(std::u16string_view folder, std::u16string_view path) {
  if (IsAbsolute(path) || folder.empty()) return std::u16string(path);
  std::u16string joined(folder);
  if (joined.back() != u'\\' && joined.back() != u'/') joined += u'\\';
  return joined + std::u16string(path);
}

// The number before the first ".", when the line starts with one.
std::optional<int> LineNumber(std::u16string_view line, std::u16string_view& path) {
  const std::size_t dot = line.find(u'.');
  if (dot == std::u16string_view::npos) return std::nullopt;
  const std::u16string digits = text::Trim(line.substr(0, dot));
  if (digits.empty() || digits.size() > 6) return std::nullopt;
  int value = 0;
  for (const char16_t c : digits) {
    if (c < u'0' || c > u'9') return std::nullopt;
    value = value * 10 + (c - u'0');
  }
  path = line.substr(dot + 1);
  return value;
}

std::u16string DefaultFromMarker(std::u16string_view line) {
  std::u16string rest = text::Trim(line.substr(kDefaultSoundMarker.size()));
  if (!rest.empty() && rest[0] == u':') rest = text::Trim(std::u16string_view(rest).substr(1));
  return rest.empty() ? std::u16string(kNotifierSoundFile) : rest;
}

}  // namespace

std::u16string SoundFromPathList(std::u16string_view listText, int hotkeyNumber, std::u16string_view soundsFolder) {
  std::optional<std::u16string> fallback;
  for (const std::u16string& line : text::Split(listText, u"\r\n")) {
    if (text::StartsWith(line, kDefaultSoundMarker)) {
      if (!fallback) fallback = DefaultFromMarker(line);
      continue;
    }
    std::u16string_view path;
    const auto number = LineNumber(line, path);
    if (!number || *number != hotkeyNumber) continue;
    const std::u16string trimmed = text::Trim(path);
    if (!trimmed.empty()) return InFolder(soundsFolder, trimmed);
  }
  return fallback ? InFolder(soundsFolder, *fallback) : std::u16string();
}

std::u16string NotifierSoundFile(int choice, int hotkeyNumber, std::u16string_view soundsFolder,
                                 const std::function<std::u16string()>& readList,
                                 const std::function<bool(std::u16string_view)>& fileExists) {
  std::u16string file;
  if (choice == 1) {
    file = kSystemNotifySound;
  } else if (choice == 3) {
    file = SoundFromPathList(readList ? readList() : std::u16string(), hotkeyNumber, soundsFolder);
  } else {
    file = InFolder(soundsFolder, kNotifierSoundFile);
  }
  if (file.empty() || !fileExists || !fileExists(file)) return {};
  return file;
}

}  // namespace quilom::shell
