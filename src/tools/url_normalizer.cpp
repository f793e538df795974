#include "tools/url_normalizer.hpp"

#include <string>

#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::tools {
namespace {

int CapitalHexValue(char16_t ch) {
  if (ch >= u'0' && ch <= u'9') return ch - u'0';
  if (ch >= u'A' && ch <= u'F') return ch - u'A' + 10;
  return -1;
}

// Appends one "%" piece to `bytes`; false when its run is worth 256 or more.
bool DecodePiece(std::u16string_view piece, std::u16string& chars) {
  const size_t slash = piece.find(u'/');
  const std::u16string_view head = piece.substr(0, slash);
  size_t run = 0;
  unsigned value = 0;
  while (run < head.size() && CapitalHexValue(head[run]) >= 0) {
    if (value >= 256) return false;  // stays at 256 or more however long the run is
    value = value * 16 + static_cast<unsigned>(CapitalHexValue(head[run]));
    ++run;
  }
  if (run > 0) {
    if (value >= 256) return false;
    chars += static_cast<char16_t>(value);
  }
  chars += piece.substr(run);
  return true;
}

}  // namespace

std::optional<std::u16string> NormalizeUrl(std::u16string_view input) {
  if (text::Trim(input).empty()) return std::nullopt;
  const auto pieces = text::Split(input, u"%");
  std::u16string chars = pieces[0];
  for (size_t i = 1; i < pieces.size(); ++i) {
    if (!DecodePiece(pieces[i], chars)) return std::nullopt;
  }
  std::string bytes;
  bytes.reserve(chars.size());
  for (char16_t ch : chars) {
    if (ch >= 256) return std::nullopt;
    bytes += static_cast<char>(ch);
  }
  return text::Utf8ToUtf16(bytes);
}

namespace {

bool IsAsciiAlnum(char16_t ch) {
  return (ch >= u'a' && ch <= u'z') || (ch >= u'A' && ch <= u'Z') || (ch >= u'0' && ch <= u'9');
}

bool IsHostCharacter(char16_t ch) { return IsAsciiAlnum(ch) || ch == u'-' || ch == u'.' || ch >= 0x80; }

bool IsForbidden(char16_t ch) {
  return ch <= u' ' || ch == 0x7F || ch == u'"' || ch == u'<' || ch == u'>' || ch == u'\\' || ch == u'^' ||
         ch == u'`' || ch == u'{' || ch == u'|' || ch == u'}' || (ch >= 0x80 && ch <= 0x9F) || ch == 0x2028 ||
         ch == 0x2029 || ch == 0xFFFD;
}

bool IsValidHost(std::u16string_view host) {
  if (host.empty() || host.front() == u'.' || host.front() == u'-' || host.back() == u'-') return false;
  if (host.find(u"..") != std::u16string_view::npos) return false;
  for (char16_t ch : host) {
    if (!IsHostCharacter(ch)) return false;
  }
  return true;
}

bool IsValidPort(std::u16string_view port) {
  if (port.empty() || port.size() > 5) return false;
  for (char16_t ch : port) {
    if (ch < u'0' || ch > u'9') return false;
  }
  return true;
}

}  // namespace

bool IsOpenableWebAddress(std::u16string_view address) {
  std::u16string_view rest;
  if (text::StartsWith(address, u"https://")) {
    rest = address.substr(8);
  } else if (text::StartsWith(address, u"http://")) {
    rest = address.substr(7);
  } else {
    return false;
  }
  for (char16_t ch : rest) {
    if (IsForbidden(ch)) return false;
  }
  const size_t authorityEnd = rest.find_first_of(u"/?#");
  const std::u16string_view authority = rest.substr(0, authorityEnd);
  if (authority.find(u'@') != std::u16string_view::npos) return false;  // user names hide the real host
  const size_t colon = authority.find(u':');
  if (colon != std::u16string_view::npos && !IsValidPort(authority.substr(colon + 1))) return false;
  return IsValidHost(authority.substr(0, colon));
}

std::optional<std::u16string> AddressToOpen(std::u16string_view output) {
  const size_t start = output.find(u"http");
  if (start == std::u16string_view::npos) return std::nullopt;
  // The address ends at the first blank or line break: what follows is the user's prose.
  const std::u16string_view tail = output.substr(start);
  const size_t end = tail.find_first_of(u" \t\r\n");
  const std::u16string address(tail.substr(0, end));
  if (!IsOpenableWebAddress(address)) return std::nullopt;
  return address;
}

}  // namespace quilom::tools
