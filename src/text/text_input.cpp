#include "text/text_input.hpp"

#include "text/utf.hpp"

namespace quilom::text {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LeMark = "\xFF\xFE";
constexpr std::string_view kUtf16BeMark = "\xFE\xFF";

// How many bytes at the end of `bytes` begin a UTF-8 sequence that is not complete yet.
std::size_t IncompleteTail(std::string_view bytes) {
  for (std::size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if ((byte & 0xC0) == 0x80) continue;  // a continuation byte: look further back
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back ? back : 0;
  }
  return 0;
}

bool CouldBeginMark(std::string_view bytes) {
  return kUtf8Mark.starts_with(bytes) || kUtf16LeMark.starts_with(bytes) || kUtf16BeMark.starts_with(bytes);
}

}  // namespace

void TextInputDecoder::NoteDamage(std::size_t offset) {
  if (!invalidAt_) invalidAt_ = offset;
}

void TextInputDecoder::DecideForm(std::string_view& bytes) {
  formKnown_ = true;
  form_ = FormByMark(bytes).value_or(TextForm::Utf8);
  const std::size_t mark = ByteOrderMarkLength(bytes);
  bytes.remove_prefix(mark);
  offset_ += mark;
}

void TextInputDecoder::Feed(std::string_view bytes, std::u16string& out) {
  waiting_ += bytes;
  std::string pending = std::move(waiting_);
  waiting_.clear();
  std::string_view view = pending;
  if (!formKnown_) {
    if (view.size() < kUtf8Mark.size() && CouldBeginMark(view)) {
      waiting_ = pending;
      return;
    }
    DecideForm(view);
  }
  if (form_ == TextForm::Utf16Le || form_ == TextForm::Utf16Be) {
    FeedUtf16(view, out);
  } else {
    FeedUtf8(view, out, false);
  }
}

void TextInputDecoder::FeedUtf8(std::string_view bytes, std::u16string& out, bool final) {
  const std::size_t tail = final ? 0 : IncompleteTail(bytes);
  const std::string_view complete = bytes.substr(0, bytes.size() - tail);
  if (const std::optional<std::size_t> bad = FirstInvalidUtf8(complete)) NoteDamage(offset_ + *bad);
  out += Utf8ToUtf16(complete);
  offset_ += complete.size();
  waiting_.assign(bytes.substr(complete.size()));
}

void TextInputDecoder::FeedUtf16(std::string_view bytes, std::u16string& out) {
  const bool bigEndian = form_ == TextForm::Utf16Be;
  std::size_t i = 0;
  for (; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    out.push_back(static_cast<char16_t>(bigEndian ? (first << 8) | second : (second << 8) | first));
  }
  offset_ += i;
  waiting_.assign(bytes.substr(i));
}

void TextInputDecoder::Finish(std::u16string& out) {
  std::string pending = std::move(waiting_);
  waiting_.clear();
  std::string_view view = pending;
  if (!formKnown_) DecideForm(view);
  if (form_ == TextForm::Utf16Le || form_ == TextForm::Utf16Be) {
    if (!view.empty()) {
      NoteDamage(offset_);
      out.push_back(u'\uFFFD');
    }
    return;
  }
  FeedUtf8(view, out, true);
}

DecodedText DecodeTextInput(std::string_view bytes) {
  TextInputDecoder decoder;
  DecodedText decoded;
  decoder.Feed(bytes, decoded.text);
  decoder.Finish(decoded.text);
  decoded.form = decoder.Form();
  decoded.invalidAt = decoder.InvalidAt();
  return decoded;
}

std::optional<TextForm> FormByMark(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) return TextForm::Utf8WithMark;
  if (bytes.starts_with(kUtf16LeMark)) return TextForm::Utf16Le;
  if (bytes.starts_with(kUtf16BeMark)) return TextForm::Utf16Be;
  return std::nullopt;
}

std::size_t ByteOrderMarkLength(std::string_view bytes) {
  const std::optional<TextForm> form = FormByMark(bytes);
  if (!form) return 0;
  return *form == TextForm::Utf8WithMark ? kUtf8Mark.size() : kUtf16LeMark.size();
}

bool StartsWithByteOrderMark(std::string_view bytes) { return FormByMark(bytes).has_value(); }

std::string_view TextFormName(TextForm form) {
  switch (form) {
    case TextForm::Utf8WithMark:
      return "UTF-8 (with its mark)";
    case TextForm::Utf16Le:
      return "UTF-16LE";
    case TextForm::Utf16Be:
      return "UTF-16BE";
    case TextForm::Utf8:
      break;
  }
  return "UTF-8";
}

}  // namespace quilom::text
