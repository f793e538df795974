#include "tools/url_normalizer_options.hpp"

#include "settings/error_report.hpp"
#include "tools/url_normalizer.hpp"

namespace quilom::tools {

bool& UrlNormalizerOptions::operator[](UrlOption option) {
  switch (option) {
    case UrlOption::AutoNormalize: return autoNormalize;
    case UrlOption::AutoCopy: return autoCopy;
    case UrlOption::AutoOpen: break;
  }
  return autoOpen;
}

bool UrlNormalizerOptions::operator[](UrlOption option) const {
  return (*const_cast<UrlNormalizerOptions*>(this))[option];
}

settings::ToolSettings UrlNormalizerStore(const settings::DataFolders& folders) {
  return settings::ToolSettings::For(folders, settings::SettingsWindow::UrlNormaliser);
}

UrlNormalizerOptions LoadUrlNormalizerOptions(const settings::ToolSettings& store) {
  const std::vector<std::u16string> keys(kUrlOptionKeys.begin(), kUrlOptionKeys.end());
  const auto values = store.ReadToolSettings(keys);
  UrlNormalizerOptions options;
  for (size_t i = 0; i < kUrlOptionKeys.size(); ++i) {
    const auto found = values.find(keys[i]);
    if (found == values.end()) {
      ReportError(u"urln-load", {5, u"LoadUrlNormalizerOptions",
                                 u"The key '" + keys[i] + u"' is missing from " + store.SettingsFile().u16string()});
      continue;
    }
    options[static_cast<UrlOption>(i)] = found->second == u"1";
  }
  return options;
}

bool SaveUrlNormalizerOption(const settings::ToolSettings& store, UrlOption option, bool ticked) {
  return store.SaveToolSetting(kUrlOptionKeys[static_cast<size_t>(option)], ticked ? u"1" : u"0");
}

std::optional<std::u16string> OutputForInputChange(std::u16string_view input, const UrlNormalizerOptions& options) {
  if (!options.autoNormalize) return std::nullopt;
  return NormalizeUrl(input);
}

UrlOutputActions ActionsForOutputChange(std::u16string_view output, const UrlNormalizerOptions& options) {
  UrlOutputActions actions;
  if (options.autoCopy) actions.copyToClipboard = std::u16string(output);
  if (options.autoOpen) actions.openAddress = AddressToOpen(output);
  return actions;
}

}  // namespace quilom::tools
