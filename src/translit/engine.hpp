#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "translit/output_sink.hpp"
#include "translit/phonetic_keymap.hpp"
#include "translit/typing_engine.hpp"

// The transliteration engine: keeps the keys typed since the last reset, matches the longest
// tail of them against the sorted keymap, works out what the whole buffer now stands for and
// sends only the change, as one "erase n, then type this" edit, to the output sink.
//
// Usage: construct with the sink, give it tables with SetKeymap (the loader's result), then
// call ProcessKey for every character key and Reset when the typing context is lost.
//
// Matching: for start positions 1, 2, ... of the buffer (longest tail first) the tail is
// looked up among the keys that begin with its first character, from the last matched entry
// when the tail starts where the last match did. The first exact key wins at once. When the
// tail at the last match's position neither matches nor begins any key, the buffer restarts
// with the new key alone, so later keys never match across that point.
//
// Typing mode 1 only (see UsesJoiningRules), with the keymap's LanguageJoining:
// - punctuation rule (switch on): when the last two keys occur in the first key's punctuation
//   slot, an extra edit erases one character and types the joining text followed by that key;
// - output adjustment (joining switch on): an output that starts with a joining character is
//   preceded by the joining text as its own edit; any other output replaces the last
//   character of the text before it (the text the match builds on loses that character).
// Extra edits are part of the engine's record, so the key's own edit is worked out against
// what the application really shows.
namespace quilom::translit {

// One output operation: erase this many characters before the caret, then type `text`.
struct Edit {
  int eraseCount = 0;
  std::u16string text;
  bool operator==(const Edit&) const = default;
};

// The edit that turns `previous` into `next`: the unchanged beginning is kept, the rest of
// `previous` erased and the rest of `next` typed. Compares UTF-16 code units.
Edit CommonPrefixDifference(std::u16string_view previous, std::u16string_view next);

// How many UTF-16 units the last letter of `text` takes: one base character and every combining
// sign (vowel sign, virama, nukta, anusvara) after it, for the Indic blocks.
int LastLetterLength(std::u16string_view text);

struct EngineSettings {
  int typingMode = 0;         // see UsesJoiningRules
  int punctuationSwitch = 0;  // 1 turns the punctuation rule on
};

class Engine final : public TypingEngine {
 public:
  // A buffer this long restarts before the next key, so that a run of keys that never match
  // (digits in a scheme without digit keys) cannot make every key slower than the last.
  static constexpr int kMaxTypedKeys = 500;
  // OutputHistory's room: created with this many positions, grown by as many again.
  static constexpr int kHistoryGrowth = 50;

  explicit Engine(OutputSink& sink);

  // Replaces the tables and resets. A null keymap makes every key stand for itself.
  void SetKeymap(std::shared_ptr<const PhoneticKeymap> keymap);
  void SetSettings(const EngineSettings& settings) { settings_ = settings; }
  const EngineSettings& Settings() const { return settings_; }

  // Processes one key: at most one extra edit (the punctuation rule or the joining text),
  // then the key's own edit, all through the sink. A key that no tail of the buffer matches
  // is typed as itself and stays in the buffer; so does a character that has no code in
  // 32..172 (it can start no match, but is never lost). Never throws.
  void ProcessKey(char16_t key) override;

  // Empties the buffer and the engine's record of what it typed.
  void Reset() override;

  // After the application's own Backspace. With `wholeLetter` the rest of the letter (its base
  // and every sign after it) is erased through the sink. With `keepComposition` the buffer goes
  // back to the first key state whose output is what remains, or what remains plus a virama:
  // a bare consonant left after its vowel sign was erased waits for a vowel again, so "kaa",
  // Backspace, "i" gives the consonant with the i sign. When the erase reaches back beyond the
  // buffered keys, the letter now before the caret is taken up again through the shortest key
  // that types it. Without `keepComposition` the next key starts a letter of its own.
  void Backspace(bool wholeLetter, bool keepComposition) override;

  // Everything the engine has typed since the last Reset, as the application shows it (the
  // record is kept in output mode 2 as well). Valid until the next call.
  std::u16string_view CurrentOutput() const { return typedText_; }

  OutputSink& Sink() { return sink_; }

  // The state, for the hook's diagnostics and for tests.
  std::u16string_view TypedKeys() const { return typedKeys_; }
  int TypedLength() const { return static_cast<int>(typedKeys_.size()); }
  int LastMatchPosition() const { return lastMatchPosition_; }
  int LastMatchEntry() const { return lastMatchEntry_; }
  int HistoryPositions() const { return historyPositions_; }
  // OutputHistory[k]: what the first k keys since the last restart produced; 0 <= k <= TypedLength.
  std::u16string_view OutputHistory(int k) const { return history_[static_cast<size_t>(k)]; }

 private:
  struct TailScan {
    int entry = 0;  // the matching entry, 0 when none
    bool prefixHit = false;
  };

  void ProcessKeyUnchecked(char16_t key);
  void ClearBuffer();
  void RestartWith(char16_t key);
  TailScan ScanTail(int start) const;
  void ApplyMatch(int start, int entry);
  void ApplyPunctuationRule(int start);
  bool ApplyJoiningCheck(std::u16string_view output);
  void SendExtra(int eraseCount, std::u16string_view text);
  void Send(int eraseCount, std::u16string_view text);
  void RecordKey();
  void BackspaceUnchecked(bool wholeLetter, bool keepComposition);
  // The first key count whose output is `remains`, or `remains` followed by a virama; -1 if none.
  int KeysShowing(std::u16string_view remains) const;
  void ResumeLetter();

  OutputSink& sink_;
  std::shared_ptr<const PhoneticKeymap> keymap_;
  EngineSettings settings_;

  std::u16string typedKeys_;
  std::vector<std::u16string> history_;  // never shrinks, so its strings keep their capacity
  int historyPositions_ = kHistoryGrowth;
  int lastMatchPosition_ = 0;
  int lastMatchEntry_ = 0;
  std::u16string typedText_;
  std::u16string scratch_;
  // The key's own edit: its text lies in the keymap, in scratch_ or in keyText_.
  int editErase_ = 0;
  std::u16string_view editText_;
  char16_t keyText_ = 0;
  bool muted_ = false;  // replaying keys whose output is already on screen
};

}  // namespace quilom::translit
