#pragma once

#include <string>
#include <string_view>

// The program's own rich-text editor box, as the output layer sees it. Positions count UTF-16
// code units from 0, like the box's own selection.
namespace quilom::shell {

class EditorBox {
 public:
  virtual ~EditorBox() = default;
  virtual std::u16string Text() const = 0;
  virtual void SetText(std::u16string_view text) = 0;
  virtual int SelStart() const = 0;
  // Puts the caret at `position` with nothing selected; the box may move it (clusters).
  virtual void SetSelStart(int position) = 0;
  virtual void SetSelLength(int length) = 0;
  // Replaces the selection with `text` and leaves the caret after it.
  virtual void SetSelText(std::u16string_view text) = 0;
};

// Whether the box refuses to put the caret inside a Tamil consonant-plus-vowel-sign cluster:
// types MA + vowel sign U, steps the caret back one and sees where it lands. Leaves the box
// empty.
bool ProbeCaretSnapsToClusters(EditorBox& box);

// Erases `eraseCount` code units before the caret and types `text` at it. When the box snaps the
// caret to cluster starts, the part of a cluster that lies before the erased range is kept and
// typed back, so that only the erased characters go.
void ReplaceInEditor(EditorBox& box, bool caretSnapsToClusters, int eraseCount, std::u16string_view text);

}  // namespace quilom::shell
