#include "shell/main_window_options.hpp"

#include <utility>

namespace quilom::shell {

namespace {

bool IsOn(const std::u16string& value) { return value == u"1"; }

}  // namespace

MainWindowOptions::MainWindowOptions(settings::ToolSettings store) : store_(std::move(store)) {}

void MainWindowOptions::Load() {
  ignoreIncludeHotkeys_ = true;
  const auto values = store_.ReadToolSettings({std::u16string(kGlobalTypingKey), std::u16string(kInstantTypingKey),
                                               std::u16string(kFastEditingKey), std::u16string(kSmartEditingKey),
                                               std::u16string(kCopyPasteEditingKey), std::u16string(kIncludeHotkeysKey),
                                               std::u16string(kPresentHotkeyKey)});
  const auto apply = [&](std::u16string_view key, auto&& set) {
    const auto found = values.find(std::u16string(key));
    if (found != values.end()) set(found->second);
  };
  apply(kGlobalTypingKey, [&](const std::u16string& v) {
    options_.FocusedMode = IsOn(v) ? kTypingInAllApplications : kFocusedOnOneApplication;
  });
  apply(kInstantTypingKey, [&](const std::u16string& v) { options_.instantTyping = IsOn(v); });
  apply(kFastEditingKey, [&](const std::u16string& v) { options_.FastEditing = IsOn(v) ? 1 : 0; });
  apply(kSmartEditingKey, [&](const std::u16string& v) { options_.smartEditing = IsOn(v); });
  apply(kCopyPasteEditingKey, [&](const std::u16string& v) { options_.copyPasteEditing = IsOn(v); });
  apply(kIncludeHotkeysKey, [&](const std::u16string& v) { options_.includeHotkeys = IsOn(v); });
  apply(kPresentHotkeyKey, [&](const std::u16string& v) {
    if (!v.empty()) options_.presentHotkey = v;
  });
  // Instant typing belongs to typing in all applications; a hand-edited file may say otherwise.
  if (options_.FocusedMode == kFocusedOnOneApplication) options_.instantTyping = false;
  ignoreIncludeHotkeys_ = false;
}

OptionEffects MainWindowOptions::ClickHookingType(int mode, bool typingOn) {
  OptionEffects effects;
  if (mode != kFocusedOnOneApplication && mode != kTypingInAllApplications) return effects;
  effects.clearHookedWindow = true;
  effects.refreshGrid = true;
  if (mode == kFocusedOnOneApplication) {
    effects.stopGlobalTypingFirst = typingOn && options_.FocusedMode == kTypingInAllApplications;
    options_.instantTyping = false;
    Store(kInstantTypingKey, false);
  }
  options_.FocusedMode = mode;
  Store(kGlobalTypingKey, mode == kTypingInAllApplications);
  return effects;
}

OptionEffects MainWindowOptions::ClickBox(OptionBox box, bool checked) {
  OptionEffects effects;
  switch (box) {
    case OptionBox::InstantTyping:
      options_.instantTyping = checked;
      if (checked && options_.FocusedMode != kTypingInAllApplications) {
        options_.FocusedMode = kTypingInAllApplications;
        effects.clearHookedWindow = true;
        effects.refreshGrid = true;
        Store(kGlobalTypingKey, true);
      }
      Store(kInstantTypingKey, checked);
      break;
    case OptionBox::FastEditing:
      options_.FastEditing = checked ? 1 : 0;
      Store(kFastEditingKey, checked);
      break;
    case OptionBox::SmartEditing:
      options_.smartEditing = checked;
      Store(kSmartEditingKey, checked);
      break;
    case OptionBox::CopyPasteEditing:
      options_.copyPasteEditing = checked;
      Store(kCopyPasteEditingKey, checked);
      break;
    case OptionBox::IncludeHotkeys:
      if (ignoreIncludeHotkeys_) break;
      options_.includeHotkeys = checked;
      Store(kIncludeHotkeysKey, checked);
      break;
  }
  return effects;
}

void MainWindowOptions::StoreHotkey(std::u16string_view hotkeyText) {
  options_.presentHotkey = std::u16string(hotkeyText);
  store_.SaveToolSetting(kPresentHotkeyKey, hotkeyText);
}

void MainWindowOptions::Store(std::u16string_view key, bool on) const {
  // A failed write is reported by the store and otherwise ignored: the option stays in effect.
  store_.SaveToolSetting(key, on ? u"1" : u"0");
}

EditingChoices MainWindowOptions::Editing() const {
  EditingChoices choices;
  choices.smartEditing = options_.smartEditing;
  choices.fastEditing = options_.FastEditing != 0;
  choices.includeHotkeys = options_.includeHotkeys;
  return choices;
}

}  // namespace quilom::shell
