#include "shell/win32/app_windows.hpp"

#include "converter/win32/converter_window.hpp"
#include "tools/win32/tool_windows.hpp"
#include "translit/win32/settings_windows.hpp"

namespace quilom::shell::win32 {
namespace {

constexpr AppWindowEntry kEntries[] = {
    {AppWindow::FontsConverter, AppMenu::Tools, L"&Fonts Converter..."},
    {AppWindow::ReverseTransliteration, AppMenu::Tools, L"&Reverse Transliteration..."},
    {AppWindow::ReverseCompanion, AppMenu::Tools, L"Reverse Transliteration (&small)..."},
    {AppWindow::AutoTransliterator, AppMenu::Tools, L"&Auto Transliterator..."},
    {AppWindow::AutoTransliteratorSideBySide, AppMenu::Tools, L"Auto Transliterator (side &by side)..."},
    {AppWindow::UrlNormalizer, AppMenu::Tools, L"&URL Normalizer..."},
    {AppWindow::StartupLink, AppMenu::Settings, L"Start with &Windows..."},
    {AppWindow::TypingSettings, AppMenu::Settings, L"&Typing Settings..."},
    {AppWindow::TypingSettingsMore, AppMenu::Settings, L"&More Typing Settings..."},
    {AppWindow::KeymapCatalogue, AppMenu::Settings, L"&Languages, Encodings and Keyboards..."},
};

}  // namespace

std::span<const AppWindowEntry> AppWindowEntries() { return kEntries; }

HWND OpenAppWindow(AppWindow window, const AppWindowContext& context) {
  namespace tools = quilom::tools::win32;
  const auto& folders = context.folders;
  switch (window) {
    case AppWindow::FontsConverter: {
      converter::win32::ConverterWindowOptions options;
      options.dataRoot = folders.dataRoot;
      return converter::win32::ShowConverterWindow(context.instance, context.owner, options);
    }
    case AppWindow::ReverseTransliteration:
      return tools::ShowReverseTransliterationWindow(context.instance, context.owner, folders);
    case AppWindow::ReverseCompanion:
      return tools::ShowReverseCompanionWindow(context.instance, context.owner, folders);
    case AppWindow::AutoTransliterator:
      return tools::ShowAutoTransliteratorWindow(context.instance, context.owner, folders, tools::AutoLayout::Stacked,
                                                 context.afterBatchConversion);
    case AppWindow::AutoTransliteratorSideBySide:
      return tools::ShowAutoTransliteratorWindow(context.instance, context.owner, folders,
                                                 tools::AutoLayout::SideBySide, context.afterBatchConversion);
    case AppWindow::UrlNormalizer:
      return tools::ShowUrlNormalizerWindow(context.instance, context.owner, folders);
    case AppWindow::StartupLink:
      return tools::ShowStartupLinkWindow(context.instance, context.owner, folders);
    case AppWindow::TypingSettings:
      return translit::win32::ShowTypingSettingsWindow(context.instance, context.owner, folders);
    case AppWindow::TypingSettingsMore:
      return translit::win32::ShowTypingSettingsMoreWindow(context.instance, context.owner, folders);
    case AppWindow::KeymapCatalogue:
      return translit::win32::ShowKeymapCatalogueWindow(context.instance, context.owner, folders);
    default:
      return nullptr;
  }
}

bool RouteAppWindowMessage(MSG& message) { return quilom::tools::win32::HandleToolWindowMessage(message); }

void AppendAppWindowItems(HMENU popup, AppMenu menu, UINT firstId) {
  const auto entries = AppWindowEntries();
  for (size_t index = 0; index < entries.size(); ++index) {
    if (entries[index].menu != menu) continue;
    AppendMenuW(popup, MF_STRING, firstId + static_cast<UINT>(index), std::wstring(entries[index].caption).c_str());
  }
}

bool CommandToAppWindow(UINT id, UINT firstId, AppWindow& window) {
  const auto entries = AppWindowEntries();
  if (id < firstId || id >= firstId + entries.size()) return false;
  window = entries[id - firstId].window;
  return true;
}

}  // namespace quilom::shell::win32
