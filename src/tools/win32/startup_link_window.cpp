#include <memory>

#include "settings/tool_settings.hpp"
#include "tools/startup_link.hpp"
#include "tools/win32/startup_platform_win32.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_window.hpp"
#include "tools/win32/tool_windows.hpp"

namespace quilom::tools::win32 {

namespace {

enum ControlId : int { kStartWithWindows = 1301, kExplanation, kLinkPath };

// The one row of the general settings that has effects outside the program: the choice, and the
// link in the user's Startup folder that carries it out. The stored choice is re-applied when
// the window opens, so a link the user deleted by hand comes back.
class StartupLinkWindow final : public ToolWindow {
 public:
  explicit StartupLinkWindow(const settings::DataFolders& folders)
      : store_(settings::ToolSettings::For(folders, settings::SettingsWindow::GeneralSettings)),
        programFolder_(folders.programFolder.u16string()) {}

 protected:
  void OnCreate() override {
    AddCheckBox(kStartWithWindows, L"&StartQuilom++ WithWindows");
    AddLabel(kExplanation,
             L"When ticked, Quilom++ starts when you log on to Windows, through a link in your Startup folder.");
    AddLabel(kLinkPath, L"");
    const std::u16string stored = store_.GetToolSetting(kStartWithWindowsKey);
    SetTicked(kStartWithWindows, IsStartWithWindowsOn(stored));
    RestoreStartWithWindows(platform_, programFolder_, stored);
    ShowLinkState();
    SetFocus(Item(kStartWithWindows));
  }

  void OnLayout(int width, int) override {
    const int margin = Px(12), inner = width - 2 * margin;
    Place(kStartWithWindows, margin, margin, inner, Px(24));
    Place(kExplanation, margin, margin + Px(32), inner, Px(36));
    Place(kLinkPath, margin, margin + Px(76), inner, Px(54));
  }

  void OnCommand(int id, int code) override {
    if (id != kStartWithWindows || code != BN_CLICKED) return;
    const std::u16string_view choice = IsTicked(kStartWithWindows) ? u"1" : u"0";
    store_.SaveToolSetting(kStartWithWindowsKey, choice);
    ApplyStartWithWindowsChoice(platform_, programFolder_, choice);
    ShowLinkState();
  }

  std::u16string_view ErrorTag() const override { return u"GENL - WrS"; }

 private:
  void ShowLinkState() {
    const std::u16string path = StartupLinkPath(platform_);
    if (path.empty()) return SetCaption(kLinkPath, u"Your account has no Startup folder.");
    SetCaption(kLinkPath, (platform_.FileExists(path) ? u"Start-up link: " : u"No start-up link; it would be: ") + path);
  }

  settings::ToolSettings store_;
  std::u16string programFolder_;
  Win32StartupPlatform platform_;
};

}  // namespace

HWND ShowStartupLinkWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders) {
  return ToolWindow::Open(std::make_unique<StartupLinkWindow>(folders), instance, owner, L"startup",
                          L"Quilom++ - Start with Windows", 480, 170, nullptr);
}

bool HandleToolWindowMessage(MSG& message) { return ToolWindow::TranslateNavigation(message); }

bool AnyToolWindowOpen() { return ToolWindow::AnyOpen(); }

}  // namespace quilom::tools::win32
