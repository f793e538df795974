#pragma once

#include <vector>

#include "shell/editor_box.hpp"
#include "shell/output_plan.hpp"
#include "translit/output_sink.hpp"

// The engine's output sink in the typing program: each edit goes to the focused application as
// a plan of synthetic key presses, or straight into the program's own editor box when that box
// is the target. Mode 2 (OutputSink::kDropAll) drops everything.
namespace quilom::shell {

class TypingOutput final : public translit::OutputSink {
 public:
  explicit TypingOutput(InputSubmitter& submitter);

  // The own editor box (may be null) and whether typing goes into it.
  void SetOwnEditor(EditorBox* editor) { ownEditor_ = editor; }
  void SetTypeIntoOwnEditor(bool on) { typeIntoOwnEditor_ = on; }
  void SetCaretSnapsToClusters(bool snaps) { caretSnapsToClusters_ = snaps; }
  // "CopyPaste Editing": text goes through the clipboard and Ctrl+V instead of Unicode presses.
  void SetPasteThroughClipboard(bool on) { paste_ = on; }
  bool CaretSnapsToClusters() const { return caretSnapsToClusters_; }

  char16_t LastSentCodeUnit() const { return lastSentCodeUnit_; }

 protected:
  // Reports "PTevMsgH - " when the own-editor path fails; never throws.
  void Emit(int eraseCount, std::u16string_view text) override;

 private:
  InputSubmitter& submitter_;
  std::vector<InputBatch> plan_;
  EditorBox* ownEditor_ = nullptr;
  bool typeIntoOwnEditor_ = false;
  bool caretSnapsToClusters_ = false;
  bool paste_ = false;
  char16_t lastSentCodeUnit_ = 0;
};

}  // namespace quilom::shell
