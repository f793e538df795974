#include "shell/win32/floater_link.hpp"

#include "shell/win32/beloved_oska_grace.hpp"

namespace quilom::shell::win32 {

FloaterLink MakeFloater(HINSTANCE instance, TypingHost& host, const settings::DataFolders& folders) {
  auto floater = std::make_unique<BelovedOskaGrace>(instance, host, folders);
  BelovedOskaGrace* window = floater.get();
  FloaterLink link;
  link.toggle = [window] {
    if (window->Visible()) {
      window->Hide();
    } else {
      window->Show();
    }
  };
  link.showIfAsked = [window, folders] {
    if (BelovedOskaGrace::ShowsAtStartup(folders)) window->Show();
  };
  link.floater = std::move(floater);
  return link;
}

}  // namespace quilom::shell::win32
