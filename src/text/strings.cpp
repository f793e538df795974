#include "text/strings.hpp"

namespace quilom::text {

std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator) {
  std::vector<std::u16string> pieces;
  if (separator.empty()) {
    pieces.emplace_back(text);
    return pieces;
  }
  size_t start = 0;
  for (size_t found = text.find(separator); found != std::u16string_view::npos;
       found = text.find(separator, start)) {
    pieces.emplace_back(text.substr(start, found - start));
    start = found + separator.size();
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

std::u16string Join(const std::vector<std::u16string>& pieces, std::u16string_view separator) {
  std::u16string out;
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) out += separator;
    out += pieces[i];
  }
  return out;
}

std::u16string Trim(std::u16string_view text) {
  const auto isBlank = [](char16_t c) { return c == u' ' || c == u'\t'; };
  size_t begin = 0;
  size_t end = text.size();
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  return std::u16string(text.substr(begin, end - begin));
}

std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from, std::u16string_view to) {
  if (from.empty()) return std::u16string(text);
  std::u16string out;
  out.reserve(text.size());
  size_t start = 0;
  for (size_t found = text.find(from); found != std::u16string_view::npos; found = text.find(from, start)) {
    out.append(text.substr(start, found - start));
    out.append(to);
    start = found + from.size();
  }
  out.append(text.substr(start));
  return out;
}

bool StartsWith(std::u16string_view text, std::u16string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

bool EndsWith(std::u16string_view text, std::u16string_view suffix) {
  return text.size() >= suffix.size() && text.substr(text.size() - suffix.size()) == suffix;
}

std::u16string AsciiLower(std::u16string_view text) {
  std::u16string out(text);
  for (char16_t& c : out) {
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
  }
  return out;
}

}  // namespace quilom::text
