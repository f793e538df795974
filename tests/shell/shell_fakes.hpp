#pragma once

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "shell/editor_box.hpp"
#include "shell/hook_set.hpp"
#include "shell/key_event.hpp"
#include "shell/output_plan.hpp"
#include "translit/typing_engine.hpp"

namespace quilom::shell::testing {

class FakeKeys final : public KeyStateReader {
 public:
  bool IsDown(int vk) const override { return down.count(vk) != 0; }
  std::set<int> down;
};

class FakeClock final : public Clock {
 public:
  std::uint32_t TickCount() const override { return now; }
  std::uint32_t now = 100000;
};

// Writes what the engine was given as a string: characters as themselves, a reset as '|', a
// Backspace as '<' followed by '*' when it erases a whole letter and '+' when it keeps the
// composition.
class RecordingEngine final : public translit::TypingEngine {
 public:
  void Backspace(bool wholeLetter, bool keepComposition) override {
    log += u'<';
    if (wholeLetter) log += u'*';
    if (keepComposition) log += u'+';
  }
  void ProcessKey(char16_t key) override {
    if (throwOnKey) throw std::runtime_error("engine failure");
    log += key;
  }
  void Reset() override { log += u'|'; }
  std::u16string log;
  bool throwOnKey = false;
};

// Plays a plan back the way a text box would take it: Backspaces erase one code unit each
// (counted on key-down records only), Unicode presses type on key-down, Ctrl+V pastes what the
// clipboard holds at that moment.
class RecordingSubmitter final : public InputSubmitter {
 public:
  void Submit(std::span<const InputBatch> plan, std::u16string_view text) noexcept override {
    ++submitCount;
    for (const InputBatch& batch : plan) {
      batches.push_back(batch);
      if (batch.table == InputTable::Backspace) {
        for (int slot = batch.first; slot < batch.first + batch.count; ++slot) {
          const KeyInputRecord& record = BackspaceInputs().at(static_cast<std::size_t>(slot));
          if ((record.flags & kKeyEventKeyUp) == 0 && !screen.empty()) screen.pop_back();
        }
      } else if (batch.table == InputTable::ClipboardHold) {
        kept = clipboard;
        clipboard = text;
      } else if (batch.table == InputTable::PasteKeys) {
        screen += clipboard;
      } else if (batch.table == InputTable::ClipboardGiveBack) {
        clipboard = kept;
      } else {
        screen += batch.codeUnit;
      }
    }
  }
  std::u16string screen;
  std::u16string clipboard;
  std::u16string kept;
  std::vector<InputBatch> batches;
  int submitCount = 0;
};

// Hands out increasing handles; each kind can be made to fail, and every call is logged.
class FakeHookPlatform final : public HookPlatform {
 public:
  std::uintptr_t Install(HookKind kind) noexcept override {
    if (failing.count(kind) != 0) {
      log.push_back("install-failed " + Name(kind));
      return 0;
    }
    const std::uintptr_t handle = nextHandle++;
    live.insert(handle);
    kinds[handle] = kind;
    log.push_back("install " + Name(kind));
    return handle;
  }
  bool Remove(std::uintptr_t handle) noexcept override {
    log.push_back("remove " + Name(kinds[handle]));
    if (refuseRemove) return false;
    return live.erase(handle) == 1;
  }
  long LastErrorCode() const noexcept override { return 5; }

  int LiveCount(HookKind kind) const {
    int count = 0;
    for (const std::uintptr_t handle : live) count += kinds.at(handle) == kind ? 1 : 0;
    return count;
  }
  static std::string Name(HookKind kind) {
    switch (kind) {
      case HookKind::GlobalKeyboard:
        return "global";
      case HookKind::FocalKeyboard:
        return "focal";
      case HookKind::Mouse:
        return "mouse";
    }
    return "?";
  }

  std::set<HookKind> failing;
  bool refuseRemove = false;
  std::set<std::uintptr_t> live;
  std::map<std::uintptr_t, HookKind> kinds;
  std::vector<std::string> log;
  std::uintptr_t nextHandle = 0x1000;
};

// An editor box; with `snapsToClusters` a caret put right after a consonant moves back before
// it when a vowel sign follows, as a box that keeps clusters whole does.
class FakeEditorBox final : public EditorBox {
 public:
  std::u16string Text() const override { return text; }
  void SetText(std::u16string_view value) override {
    text = value;
    start = length = 0;
  }
  int SelStart() const override { return start; }
  void SetSelStart(int position) override {
    if (failing) throw std::runtime_error("box gone");
    start = position;
    length = 0;
    while (snapsToClusters && start > 0 && start < static_cast<int>(text.size()) && IsVowelSign(text[start])) --start;
  }
  void SetSelLength(int value) override { length = value; }
  void SetSelText(std::u16string_view value) override {
    text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), value);
    start += static_cast<int>(value.size());
    length = 0;
  }
  static bool IsVowelSign(char16_t c) { return c >= 0x0BBE && c <= 0x0BCD; }

  std::u16string text;
  int start = 0;
  int length = 0;
  bool snapsToClusters = false;
  bool failing = false;
};

}  // namespace quilom::shell::testing
