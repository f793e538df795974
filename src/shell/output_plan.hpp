#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// How one edit of the engine becomes synthetic keyboard input: batches of Backspace presses
// drawn from one prebuilt table, then one Unicode key press (down, up) per UTF-16 code unit.
// The Win32 layer mirrors the two tables as INPUT records and submits each batch with one
// SendInput call, in plan order.
namespace quilom::shell {

inline constexpr std::uint16_t kVkBackspace = 0x08;
inline constexpr std::uint32_t kKeyEventKeyUp = 0x2;
inline constexpr std::uint32_t kKeyEventUnicode = 0x4;

// The keyboard part of an INPUT record.
struct KeyInputRecord {
  std::uint16_t vk = 0;
  std::uint16_t scan = 0;
  std::uint32_t flags = 0;
  bool operator==(const KeyInputRecord&) const = default;
};

// 15 complete Backspace presses, down before up. A batch never reaches past the table: larger
// erasures are submitted as several complete batches.
inline constexpr int kBackspaceSlots = 30;
const std::array<KeyInputRecord, kBackspaceSlots>& BackspaceInputs();

// The down and up record of one Unicode key press; the code unit goes into `scan`.
std::array<KeyInputRecord, 2> UnicodeCharInputs(char16_t codeUnit);

// A pasted edit: the Backspaces, then the user's clipboard is kept aside and the text put in
// its place (ClipboardHold), Ctrl+V is pressed (PasteKeys) and the user's contents are given
// back (ClipboardGiveBack) once the application has had the time to read the text.
enum class InputTable : std::uint8_t { Backspace, UnicodeChar, ClipboardHold, PasteKeys, ClipboardGiveBack };

inline constexpr std::uint16_t kVkControlKey = 0x11;
inline constexpr std::uint16_t kVkV = 'V';
// Ctrl down, V down, V up, Ctrl up.
const std::array<KeyInputRecord, 4>& PasteInputs();

struct InputBatch {
  InputTable table = InputTable::Backspace;
  std::uint8_t first = 0;  // first slot of the Backspace table
  std::uint8_t count = 0;  // records in the batch (always 2 for a Unicode press)
  char16_t codeUnit = 0;   // for UnicodeChar batches
  bool operator==(const InputBatch&) const = default;
};

// Replaces `plan` with the batches for erasing `eraseCount` characters (negative counts as 0)
// and typing `text`. Nothing is planned for an erasure of 0: an empty SendInput does nothing.
// Text outside the Basic Multilingual Plane is already two code units in UTF-16 and goes as two
// presses, each surrogate on its own, which is how the receiving window expects it. `plan`'s
// capacity is reused, so a warm plan costs no allocation.
void PlanReplacement(int eraseCount, std::u16string_view text, std::vector<InputBatch>& plan);
// The same edit with the text pasted through the clipboard (an application that refuses Unicode
// key presses still takes Ctrl+V). An edit without text is only Backspaces.
void PlanPaste(int eraseCount, std::u16string_view text, std::vector<InputBatch>& plan);

// Carries out a plan: SendInput per batch in Windows, a recorder in tests.
class InputSubmitter {
 public:
  virtual ~InputSubmitter() = default;
  // `text` is what a ClipboardHold batch puts on the clipboard.
  virtual void Submit(std::span<const InputBatch> plan, std::u16string_view text) noexcept = 0;
};

}  // namespace quilom::shell
