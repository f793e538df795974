#include "shell/output_plan.hpp"

#include <algorithm>

namespace quilom::shell {

const std::array<KeyInputRecord, kBackspaceSlots>& BackspaceInputs() {
  static const std::array<KeyInputRecord, kBackspaceSlots> table = [] {
    std::array<KeyInputRecord, kBackspaceSlots> records{};
    for (int slot = 0; slot < kBackspaceSlots; ++slot) {
      records[slot] = {kVkBackspace, 0, slot % 2 == 0 ? 0u : kKeyEventKeyUp};
    }
    return records;
  }();
  return table;
}

std::array<KeyInputRecord, 2> UnicodeCharInputs(char16_t codeUnit) {
  return {KeyInputRecord{0, codeUnit, kKeyEventUnicode},
          KeyInputRecord{0, codeUnit, kKeyEventUnicode | kKeyEventKeyUp}};
}

const std::array<KeyInputRecord, 4>& PasteInputs() {
  static const std::array<KeyInputRecord, 4> table = {KeyInputRecord{kVkControlKey, 0, 0}, KeyInputRecord{kVkV, 0, 0},
                                                      KeyInputRecord{kVkV, 0, kKeyEventKeyUp},
                                                      KeyInputRecord{kVkControlKey, 0, kKeyEventKeyUp}};
  return table;
}

void PlanPaste(int eraseCount, std::u16string_view text, std::vector<InputBatch>& plan) {
  PlanReplacement(eraseCount, {}, plan);
  if (text.empty()) return;
  plan.push_back({InputTable::ClipboardHold, 0, 0, 0});
  plan.push_back({InputTable::PasteKeys, 0, 4, 0});
  plan.push_back({InputTable::ClipboardGiveBack, 0, 0, 0});
}

void PlanReplacement(int eraseCount, std::u16string_view text, std::vector<InputBatch>& plan) {
  plan.clear();
  // Two records per press; the last `records` slots of the table start with a down record.
  int records = 2 * std::max(eraseCount, 0);
  while (records > 0) {
    const int batch = std::min(records, kBackspaceSlots);
    plan.push_back({InputTable::Backspace, static_cast<std::uint8_t>(kBackspaceSlots - batch),
                    static_cast<std::uint8_t>(batch), 0});
    records -= batch;
  }
  for (const char16_t unit : text) plan.push_back({InputTable::UnicodeChar, 0, 2, unit});
}

}  // namespace quilom::shell
