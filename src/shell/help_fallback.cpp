#include "shell/help_fallback.hpp"

#include <array>
#include <optional>

#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::shell {

namespace {

// Tags whose end closes a line of the text a reader sees.
constexpr std::array<std::u16string_view, 14> kLineTags = {u"p",  u"br",  u"li",    u"h1",   u"h2",  u"h3", u"h4",
                                                           u"tr", u"div", u"title", u"text", u"pre", u"ul", u"ol"};
// Tags whose content is never shown.
constexpr std::array<std::u16string_view, 3> kHiddenTags = {u"style", u"script", u"head"};

std::u16string Lower(std::u16string_view text) {
  std::u16string lower(text);
  for (char16_t& c : lower)
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
  return lower;
}

// The tag's name, without the leading slash and any attributes.
std::u16string TagName(std::u16string_view tag) {
  if (!tag.empty() && tag.front() == u'/') tag.remove_prefix(1);
  std::size_t end = 0;
  while (end < tag.size() && tag[end] != u' ' && tag[end] != u'/' && tag[end] != u'\t' && tag[end] != u'\n' &&
         tag[end] != u'\r')
    ++end;
  return Lower(tag.substr(0, end));
}

template <std::size_t N>
bool OneOf(const std::array<std::u16string_view, N>& names, std::u16string_view name) {
  for (const std::u16string_view candidate : names)
    if (candidate == name) return true;
  return false;
}

void AppendCodePoint(std::u16string& out, char32_t code) { text::AppendUtf16(out, code == 0 ? 0xFFFD : code); }

std::optional<char32_t> NumberOf(std::u16string_view digits, int base) {
  if (digits.empty() || digits.size() > 8) return std::nullopt;
  char32_t value = 0;
  for (const char16_t c : digits) {
    int digit = -1;
    if (c >= u'0' && c <= u'9') digit = c - u'0';
    if (base == 16 && c >= u'a' && c <= u'f') digit = c - u'a' + 10;
    if (base == 16 && c >= u'A' && c <= u'F') digit = c - u'A' + 10;
    if (digit < 0) return std::nullopt;
    value = value * base + static_cast<char32_t>(digit);
  }
  return value;
}

// Reads the reference starting at markup[at] == '&'; an unknown one is left as written.
std::size_t AppendReference(std::u16string_view markup, std::size_t at, std::u16string& out) {
  const std::size_t end = markup.find(u';', at);
  if (end == std::u16string_view::npos || end - at > 10) {
    out += u'&';
    return at + 1;
  }
  const std::u16string_view name = markup.substr(at + 1, end - at - 1);
  std::optional<char32_t> code;
  if (name == u"amp") code = u'&';
  if (name == u"lt") code = u'<';
  if (name == u"gt") code = u'>';
  if (name == u"quot") code = u'"';
  if (name == u"apos") code = u'\'';
  if (name == u"nbsp") code = u' ';
  if (name.size() > 1 && name[0] == u'#') {
    const bool hex = name[1] == u'x' || name[1] == u'X';
    code = NumberOf(name.substr(hex ? 2 : 1), hex ? 16 : 10);
  }
  if (!code) {
    out += u'&';
    return at + 1;
  }
  AppendCodePoint(out, *code);
  return end + 1;
}

void EndLine(std::u16string& out) {
  while (!out.empty() && out.back() == u' ') out.pop_back();
  if (!out.empty() && !text::EndsWith(out, u"\r\n")) out += u"\r\n";
}

void AppendSpace(std::u16string& out) {
  if (!out.empty() && out.back() != u' ' && out.back() != u'\n') out += u' ';
}

}  // namespace

HelpOpening HelpOpeningFor(std::intptr_t shellResult, bool fileExists) {
  if (shellResult > 32) return HelpOpening::Opened;
  return fileExists ? HelpOpening::ShowInside : HelpOpening::Missing;
}

std::u16string HelpPlainText(std::u16string_view markup) {
  std::u16string out;
  std::u16string hiddenUntil;
  std::size_t at = 0;
  while (at < markup.size()) {
    const char16_t c = markup[at];
    if (c == u'<') {
      const std::size_t close = markup.find(u'>', at);
      if (close == std::u16string_view::npos) break;
      const std::u16string_view tag = markup.substr(at + 1, close - at - 1);
      at = close + 1;
      if (text::StartsWith(tag, u"!") || text::StartsWith(tag, u"?")) continue;
      const std::u16string name = TagName(tag);
      const bool ending = text::StartsWith(tag, u"/");
      if (!hiddenUntil.empty()) {
        if (ending && name == hiddenUntil) hiddenUntil.clear();
        continue;
      }
      if (!ending && !text::EndsWith(tag, u"/") && OneOf(kHiddenTags, name)) hiddenUntil = name;
      if (OneOf(kLineTags, name)) EndLine(out);
      if (name == u"td" || name == u"th") AppendSpace(out);
      continue;
    }
    if (!hiddenUntil.empty()) {
      ++at;
      continue;
    }
    if (c == u'&') {
      at = AppendReference(markup, at, out);
      continue;
    }
    if (c == u' ' || c == u'\t' || c == u'\r' || c == u'\n') {
      AppendSpace(out);
    } else {
      out += c;
    }
    ++at;
  }
  EndLine(out);
  while (text::EndsWith(out, u"\r\n")) out.resize(out.size() - 2);
  return out;
}

}  // namespace quilom::shell
