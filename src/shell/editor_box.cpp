#include "shell/editor_box.hpp"

#include <algorithm>

namespace quilom::shell {

bool ProbeCaretSnapsToClusters(EditorBox& box) {
  box.SetText(u"\u0BAE\u0BC1");
  box.SetSelStart(2);
  const int end = box.SelStart();
  box.SetSelStart(end - 1);
  const bool snaps = box.SelStart() < 1;
  box.SetText(u"");
  return snaps;
}

void ReplaceInEditor(EditorBox& box, bool caretSnapsToClusters, int eraseCount, std::u16string_view text) {
  if (eraseCount > 0) {
    const int caret = box.SelStart();
    const int target = std::max(caret - eraseCount, 0);
    box.SetSelStart(target);
    std::u16string kept;
    int from = target;
    if (caretSnapsToClusters) {
      const int landed = box.SelStart();
      if (landed < target) {
        kept = box.Text().substr(static_cast<std::size_t>(landed), static_cast<std::size_t>(target - landed));
        from = landed;
      }
      box.SetSelStart(from);
    }
    box.SetSelLength(caret - from);
    box.SetSelText(kept);
  }
  box.SetSelText(text);
}

}  // namespace quilom::shell
