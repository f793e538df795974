#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Bytes that are meant to be Unicode text, read the same way by every command: UTF-8 with or
// without its mark, UTF-16LE or UTF-16BE with their marks. Text without a mark is UTF-8; there
// is no guessing of other encodings, so that legacy-font bytes are never taken for text (or
// text for legacy bytes) because they happen to look valid.
namespace quilom::text {

enum class TextForm { Utf8, Utf8WithMark, Utf16Le, Utf16Be };

// Reads such text piece by piece, so that a long input never has to be held whole: a piece may
// end inside a character, whose bytes wait for the next piece. Damage decodes to U+FFFD and the
// first damaged byte is remembered.
class TextInputDecoder {
 public:
  // Appends the text of `bytes` to `out`.
  void Feed(std::string_view bytes, std::u16string& out);
  // The input has ended: what was waiting is decoded (a cut character is damage).
  void Finish(std::u16string& out);

  TextForm Form() const { return form_; }
  // The offset in the input of the first byte that breaks the form: an invalid UTF-8 sequence,
  // or the odd last byte of UTF-16.
  std::optional<std::size_t> InvalidAt() const { return invalidAt_; }

 private:
  void DecideForm(std::string_view& bytes);
  void FeedUtf8(std::string_view bytes, std::u16string& out, bool final);
  void FeedUtf16(std::string_view bytes, std::u16string& out);
  void NoteDamage(std::size_t offset);

  bool formKnown_ = false;
  TextForm form_ = TextForm::Utf8;
  std::string waiting_;     // bytes of a character (or of the mark) not yet complete
  std::size_t offset_ = 0;  // of the first byte in `waiting_`, counted from the input's start
  std::optional<std::size_t> invalidAt_;
};

struct DecodedText {
  std::u16string text;
  TextForm form = TextForm::Utf8;
  std::optional<std::size_t> invalidAt;  // as TextInputDecoder::InvalidAt
};

// The whole input at once.
DecodedText DecodeTextInput(std::string_view bytes);

// The form the bytes' opening mark names, or nothing when they open with none.
std::optional<TextForm> FormByMark(std::string_view bytes);

// The bytes of the opening mark of UTF-8 or UTF-16 (0 when there is none).
std::size_t ByteOrderMarkLength(std::string_view bytes);

// True when the bytes open with the mark of UTF-8 or UTF-16.
bool StartsWithByteOrderMark(std::string_view bytes);

// "UTF-8", "UTF-16LE"... as messages name the form.
std::string_view TextFormName(TextForm form);

}  // namespace quilom::text
