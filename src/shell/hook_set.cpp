#include "shell/hook_set.hpp"

#include "settings/error_report.hpp"

namespace quilom::shell {

HookSet::HookSet(HookPlatform& platform, std::function<void()> resetComposition)
    : platform_(platform), resetComposition_(std::move(resetComposition)) {}

void HookSet::InstallInto(std::uintptr_t& handle, HookKind kind, const char16_t* tag) {
  if (handle != 0) return;
  handle = platform_.Install(kind);
  if (handle == 0) {
    ReportError(tag, {platform_.LastErrorCode(), u"SetWindowsHookExA", u"The system refused the hook."});
  }
}

void HookSet::RemoveFrom(std::uintptr_t& handle, const char16_t* tag) {
  if (handle == 0) return;
  const std::uintptr_t old = handle;
  // The handle is forgotten even when the system says no: a hook it cannot remove is one it no
  // longer calls, and keeping it would block every later install.
  handle = 0;
  if (!platform_.Remove(old)) {
    ReportError(tag, {platform_.LastErrorCode(), u"UnhookWindowsHookEx", u"The system could not remove the hook."});
  }
}

bool HookSet::InstallGlobal(bool full) {
  if (globalKeyboardHook_ != 0) return true;
  RemoveFocal();
  InstallInto(globalKeyboardHook_, HookKind::GlobalKeyboard, full ? u"DT-HTI-Global" : u"DT-HTI-Global-SIMPLE");
  if (globalKeyboardHook_ == 0) {
    InstallFocal();
    return false;
  }
  InstallMouse();
  return true;
}

void HookSet::RemoveGlobal(bool full) {
  RemoveFrom(globalKeyboardHook_, full ? u"UNHT-I-G" : u"UNHT-I-G-SIMPLE");
  RemoveMouse();
  if (resetComposition_) resetComposition_();
  InstallFocal();
}

void HookSet::InstallFocal() { InstallInto(focalKeyboardHook_, HookKind::FocalKeyboard, u"DT-HHKS-Focal"); }
void HookSet::RemoveFocal() { RemoveFrom(focalKeyboardHook_, u"UNHFHS-I-G"); }
void HookSet::InstallMouse() { InstallInto(mouseHook_, HookKind::Mouse, u"DT-HMI-Global"); }
void HookSet::RemoveMouse() { RemoveFrom(mouseHook_, u"UNHM-I-G"); }

void HookSet::RemoveAll() {
  RemoveFrom(globalKeyboardHook_, u"UNHT-I-G");
  RemoveMouse();
  RemoveFocal();
}

void HookSet::Reinstall() {
  // The new hook goes in before the old one comes out, so no key slips through in between.
  if (globalKeyboardHook_ != 0) {
    ReplaceWithNew(globalKeyboardHook_, HookKind::GlobalKeyboard, u"DT-HTI-Global-SIMPLE");
    ReplaceWithNew(mouseHook_, HookKind::Mouse, u"DT-HMI-Global");
    if (mouseHook_ == 0) InstallMouse();
    return;
  }
  ReplaceWithNew(focalKeyboardHook_, HookKind::FocalKeyboard, u"DT-HHKS-Focal");
  if (focalKeyboardHook_ == 0) InstallFocal();
}

void HookSet::ReplaceWithNew(std::uintptr_t& handle, HookKind kind, const char16_t* tag) {
  std::uintptr_t fresh = 0;
  InstallInto(fresh, kind, tag);
  if (fresh == 0) return;  // keep the old one: it may still be alive
  const std::uintptr_t old = handle;
  handle = fresh;
  // A hook the system dropped cannot be removed; that failure is expected and not reported.
  if (old != 0) platform_.Remove(old);
}

}  // namespace quilom::shell
