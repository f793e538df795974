#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "settings/tool_settings.hpp"

// The URL normaliser window's three options, kept by key in its "Settings.txt" (module folder
// "URL Normalizer"), and what the window does when its boxes change.
namespace quilom::tools {

// Index order of the window's check-box array.
enum class UrlOption : int { AutoNormalize = 0, AutoCopy = 1, AutoOpen = 2 };

inline constexpr std::array<std::u16string_view, 3> kUrlOptionKeys = {u"Auto Normalize", u"Auto Copy",
                                                                      u"Auto Open"};

struct UrlNormalizerOptions {
  bool autoNormalize = false;
  bool autoCopy = false;
  bool autoOpen = false;
  bool& operator[](UrlOption option);
  bool operator[](UrlOption option) const;
};

// The window's store: "URL Normalizer\Settings.txt" below the data root, reporting with the
// tags "UV - GsUv" and "UV - WsUv".
settings::ToolSettings UrlNormalizerStore(const settings::DataFolders& folders);

// Reads the three keys in one pass; "1" ticks a box, anything else leaves it clear. A key that
// is missing from the file is reported with "urln-load" and its box stays clear.
UrlNormalizerOptions LoadUrlNormalizerOptions(const settings::ToolSettings& store);

// Saves one box as "1" or "0" under its key. Returns whether the file was written.
bool SaveUrlNormalizerOption(const settings::ToolSettings& store, UrlOption option, bool ticked);

// What follows an input change: with "Auto Normalize", the normalised text (nothing when the
// option is off or the input cannot be normalised, and the output box is then left alone).
std::optional<std::u16string> OutputForInputChange(std::u16string_view input, const UrlNormalizerOptions& options);

// What follows an output change. Tied to the output box's change, so a manual normalise with
// the options ticked copies and opens too.
struct UrlOutputActions {
  std::optional<std::u16string> copyToClipboard;
  std::optional<std::u16string> openAddress;  // only a well-formed http(s) address
};
UrlOutputActions ActionsForOutputChange(std::u16string_view output, const UrlNormalizerOptions& options);

}  // namespace quilom::tools
