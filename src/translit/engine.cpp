#include "translit/engine.hpp"

#include <algorithm>

namespace quilom::translit {
namespace {

size_t CommonPrefixLength(std::u16string_view a, std::u16string_view b) {
  const size_t m = std::min(a.size(), b.size());
  size_t i = 0;
  while (i < m && a[i] == b[i]) ++i;
  return i;
}

// Only this much of the engine's record of its output is kept during long live typing; an
// edit never reaches back further than the keys since the last restart.
constexpr size_t kMaxRecordedText = 8192;

// Orders a key against a tail whose first character the key is known to share.
// Negative: key below tail; 0: key begins with tail; positive: key above tail and not
// beginning with it.
int CompareKeyToTail(const std::u16string& key, std::u16string_view tail) {
  const size_t common = std::min(key.size(), tail.size());
  for (size_t i = 1; i < common; ++i) {
    if (key[i] != tail[i]) return key[i] < tail[i] ? -1 : 1;
  }
  return key.size() < tail.size() ? -1 : 0;
}

bool InIndicBlocks(char16_t c) { return c >= 0x0900 && c <= 0x0DFF; }

bool IsVirama(char16_t c) { return InIndicBlocks(c) && (c & 0x7F) == 0x4D; }

// A bare consonant with its block's virama: the form that waits for a vowel.
std::u16string WaitingForm(std::u16string_view letter) {
  std::u16string form(letter);
  if (letter.size() == 1 && InIndicBlocks(letter[0])) form.push_back(static_cast<char16_t>((letter[0] & ~0x7F) | 0x4D));
  return form;
}

// Signs that never stand alone: they belong to the letter before them. Tamil's aytham sits
// where other blocks have the visarga sign, but it is a letter of its own.
bool IsCombiningSign(char16_t c) {
  if (!InIndicBlocks(c)) return false;
  const int offset = c & 0x7F;
  if (offset == 0x03) return c != 0x0B83;
  return offset == 0x01 || offset == 0x02 || (offset >= 0x3C && offset <= 0x4D && offset != 0x3D) ||
         (offset >= 0x51 && offset <= 0x57) || offset == 0x62 || offset == 0x63;
}

}  // namespace

int LastLetterLength(std::u16string_view text) {
  size_t length = 0;
  while (length < text.size() && IsCombiningSign(text[text.size() - 1 - length])) ++length;
  return static_cast<int>(std::min(text.size(), length + 1));
}

Edit CommonPrefixDifference(std::u16string_view previous, std::u16string_view next) {
  const size_t same = CommonPrefixLength(previous, next);
  return Edit{static_cast<int>(previous.size() - same), std::u16string(next.substr(same))};
}

Engine::Engine(OutputSink& sink) : sink_(sink) {
  typedKeys_.reserve(kMaxTypedKeys + 1);
  history_.resize(kHistoryGrowth + 1);
  for (auto& text : history_) text.reserve(32);
  typedText_.reserve(256);
  scratch_.reserve(256);
}

void Engine::SetKeymap(std::shared_ptr<const PhoneticKeymap> keymap) {
  keymap_ = std::move(keymap);
  Reset();
}

void Engine::Reset() {
  ClearBuffer();
  typedText_.clear();
}

void Engine::Backspace(bool wholeLetter, bool keepComposition) {
  try {
    BackspaceUnchecked(wholeLetter, keepComposition);
  } catch (...) {
    Reset();
  }
}

void Engine::BackspaceUnchecked(bool wholeLetter, bool keepComposition) {
  if (typedText_.empty()) {
    // Nothing of ours before the caret: the Backspace erased the application's own text.
    Reset();
    return;
  }
  const size_t erase = wholeLetter ? static_cast<size_t>(LastLetterLength(typedText_)) : 1;
  const std::u16string_view shown = history_[typedKeys_.size()];
  const bool withinKeys = !typedKeys_.empty() && shown.size() > erase;
  if (withinKeys) scratch_.assign(shown.substr(0, shown.size() - erase));
  typedText_.pop_back();
  if (erase > 1) Send(static_cast<int>(erase) - 1, u"");
  if (!keepComposition) {
    // The next key starts a letter of its own, but the record stays: a further Backspace still
    // knows the letters before the caret.
    ClearBuffer();
    return;
  }
  const int keep = withinKeys ? KeysShowing(scratch_) : -1;
  if (keep < 0) {
    ResumeLetter();
    return;
  }
  typedKeys_.resize(static_cast<size_t>(keep));
  history_[static_cast<size_t>(keep)].assign(scratch_);
  // The last match's entry bounds later searches from its position; it no longer describes
  // the shortened buffer.
  lastMatchPosition_ = 0;
  lastMatchEntry_ = 0;
}

// The erase reached back beyond the keys still buffered: the buffer becomes the shortest key
// that types the letter now before the caret (or that letter waiting for a vowel), replayed
// without output, so the next key joins the letter as it would have when first typed.
void Engine::ResumeLetter() {
  ClearBuffer();
  if (!keymap_ || typedText_.empty()) return;
  const std::u16string letter =
      typedText_.substr(typedText_.size() - static_cast<size_t>(LastLetterLength(typedText_)));
  const std::u16string waiting = WaitingForm(letter);
  const std::u16string* best = nullptr;
  for (size_t entry = 1; entry < keymap_->phoneticKeys.size(); ++entry) {
    const std::u16string& output = keymap_->phoneticOutputs[entry];
    const std::u16string& key = keymap_->phoneticKeys[entry];
    if ((output == letter || output == waiting) && (best == nullptr || key.size() < best->size())) best = &key;
  }
  if (best == nullptr) return;
  muted_ = true;
  for (const char16_t key : *best) ProcessKeyUnchecked(key);
  muted_ = false;
  history_[typedKeys_.size()].assign(letter);
  lastMatchPosition_ = 0;
  lastMatchEntry_ = 0;
}

int Engine::KeysShowing(std::u16string_view remains) const {
  for (size_t k = 0; k <= typedKeys_.size(); ++k) {
    const std::u16string& output = history_[k];
    if (output == remains) return static_cast<int>(k);
    const bool awaitsVowel = output.size() == remains.size() + 1 && IsVirama(output.back()) &&
                             std::u16string_view(output).substr(0, remains.size()) == remains;
    if (awaitsVowel) return static_cast<int>(k);
  }
  return -1;
}

void Engine::ClearBuffer() {
  typedKeys_.clear();
  lastMatchPosition_ = 0;
  lastMatchEntry_ = 0;
  historyPositions_ = kHistoryGrowth;
  history_[0].clear();
}

void Engine::RestartWith(char16_t key) {
  ClearBuffer();
  typedKeys_.push_back(key);
}

void Engine::ProcessKey(char16_t key) {
  try {
    ProcessKeyUnchecked(key);
  } catch (...) {
    // Out of memory is the only way here; the buffer starts afresh rather than lose keys later.
    ClearBuffer();
  }
}

void Engine::ProcessKeyUnchecked(char16_t key) {
  if (static_cast<int>(typedKeys_.size()) >= kMaxTypedKeys) ClearBuffer();
  typedKeys_.push_back(key);
  if (history_.size() < typedKeys_.size() + 1) history_.resize(history_.size() + kHistoryGrowth);

  bool matched = false;
  for (int start = 1; start <= TypedLength(); ++start) {
    const TailScan scan = ScanTail(start);
    if (scan.entry != 0) {
      ApplyMatch(start, scan.entry);
      matched = true;
      break;
    }
    if (start == lastMatchPosition_ && !scan.prefixHit) {
      RestartWith(key);
      start = 0;  // the scan begins again on the one-key buffer
    }
  }
  if (!matched) {
    keyText_ = key;
    editErase_ = 0;
    editText_ = std::u16string_view(&keyText_, 1);
    Send(editErase_, editText_);
  }
  RecordKey();
  if (TypedLength() % kHistoryGrowth == 0) historyPositions_ += kHistoryGrowth;
}

Engine::TailScan Engine::ScanTail(int start) const {
  TailScan scan;
  if (!keymap_) return scan;
  const std::u16string_view tail = std::u16string_view(typedKeys_).substr(static_cast<size_t>(start - 1));
  const int row = keymap_->IndexRow(tail[0]);
  if (row < 0) return scan;
  int first = keymap_->firstCharIndex[row][0];
  int last = keymap_->firstCharIndex[row][1];
  if (first == 0) return scan;
  if (start == lastMatchPosition_ && lastMatchEntry_ != 0) first = lastMatchEntry_;
  // The keys are sorted, so the keys that begin with the tail form one run that starts at
  // the first key not below it: the run's first key is the match when it equals the tail.
  const auto& keys = keymap_->phoneticKeys;
  // A one-key tail begins every key of its row, and the key of that one character, if any,
  // sorts first: the common case after a buffer restart needs no search.
  if (tail.size() == 1) last = first;
  ++last;
  while (first < last) {
    const int middle = first + (last - first) / 2;
    if (CompareKeyToTail(keys[static_cast<size_t>(middle)], tail) < 0)
      first = middle + 1;
    else
      last = middle;
  }
  if (first > keymap_->firstCharIndex[row][1]) return scan;
  const std::u16string& found = keys[static_cast<size_t>(first)];
  if (CompareKeyToTail(found, tail) != 0) return scan;
  scan.prefixHit = true;
  if (found.size() == tail.size()) scan.entry = first;
  return scan;
}

void Engine::ApplyMatch(int start, int entry) {
  const int typedLength = TypedLength();
  const std::u16string_view output = keymap_->phoneticOutputs[static_cast<size_t>(entry)];
  ApplyPunctuationRule(start);
  const bool dropLast = ApplyJoiningCheck(output);

  const std::u16string& shown = history_[static_cast<size_t>(typedLength - 1)];
  if (start == typedLength && !dropLast) {
    editErase_ = 0;
    editText_ = output;
  } else {
    scratch_.assign(history_[static_cast<size_t>(start - 1)]);
    if (dropLast && !scratch_.empty()) scratch_.pop_back();
    scratch_.append(output);
    const size_t same = CommonPrefixLength(shown, scratch_);
    editErase_ = static_cast<int>(shown.size() - same);
    editText_ = std::u16string_view(scratch_).substr(same);
  }
  Send(editErase_, editText_);
  lastMatchPosition_ = start;
  lastMatchEntry_ = entry;
}

void Engine::ApplyPunctuationRule(int start) {
  if (settings_.punctuationSwitch != 1 || TypedLength() < 2) return;
  if (start == 1 && TypedLength() != 2) return;
  const std::u16string_view pair = std::u16string_view(typedKeys_).substr(typedKeys_.size() - 2);
  const int row = keymap_->IndexRow(pair[0]);
  if (row < 0) return;
  const auto& slot = keymap_->punctuationOutputs[static_cast<size_t>(row)];
  if (slot.empty() || slot.find(pair) == std::u16string::npos) return;
  scratch_.assign(keymap_->joining.joiningText);
  scratch_.push_back(pair[0]);
  SendExtra(1, scratch_);
}

// True when the text before the output must lose its last character.
bool Engine::ApplyJoiningCheck(std::u16string_view output) {
  if (!UsesJoiningRules(settings_.typingMode) || !keymap_->joining.joiningSwitch || output.empty()) return false;
  if (keymap_->joining.Joins(output[0])) {
    SendExtra(0, keymap_->joining.joiningText);
    return false;
  }
  return true;
}

// An edit sent before the key's own one; the record of what the application shows before
// this key is brought up to date so that the key's edit is worked out against the truth.
void Engine::SendExtra(int eraseCount, std::u16string_view text) {
  auto& shown = history_[typedKeys_.size() - 1];
  shown.resize(shown.size() - std::min<size_t>(shown.size(), static_cast<size_t>(eraseCount)));
  shown.append(text);
  Send(eraseCount, text);
}

void Engine::Send(int eraseCount, std::u16string_view text) {
  if (muted_) return;
  typedText_.resize(typedText_.size() - std::min<size_t>(typedText_.size(), static_cast<size_t>(eraseCount)));
  if (typedText_.size() + text.size() > kMaxRecordedText) typedText_.erase(0, kMaxRecordedText / 2);
  typedText_.append(text);
  sink_.OutputReplacement(eraseCount, text);
}

void Engine::RecordKey() {
  const size_t typedLength = typedKeys_.size();
  const std::u16string& previous = history_[typedLength - 1];
  std::u16string& current = history_[typedLength];
  const size_t keep = previous.size() - std::min(previous.size(), static_cast<size_t>(editErase_));
  current.assign(previous, 0, keep);
  current.append(editText_);
}

}  // namespace quilom::translit
