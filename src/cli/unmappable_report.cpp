#include "cli/unmappable_report.hpp"

#include "text/utf.hpp"

namespace quilom::cli {
namespace {

using converter::UnmappableFindings;
using converter::UnmappablePolicy;

std::string Shown(char32_t ch) {
  std::u16string text;
  text::AppendUtf16(text, ch);
  const std::string name = converter::CodePointName(ch);
  return ch < 0x20 ? name : "\"" + text::Utf16ToUtf8(text) + "\" (" + name + ")";
}

std::string First(const UnmappableFindings& findings) {
  const converter::UnmappableCharacter& first = *findings.first;
  return Shown(first.ch) + " at line " + std::to_string(first.line) + ", column " + std::to_string(first.column);
}

std::string Count(std::size_t count) { return std::to_string(count) + (count == 1 ? " character" : " characters"); }

}  // namespace

std::optional<UnmappableChoice> ReadUnmappableChoice(const ParsedArgs& parsed, std::string& error) {
  UnmappableChoice choice;
  const auto policy = parsed.values.find("--unmappable");
  const auto replacement = parsed.values.find("--replacement");
  if (policy != parsed.values.end()) {
    const std::string& word = policy->second;
    if (word == "stop") {
      choice.policy = UnmappablePolicy::Stop;
    } else if (word == "skip") {
      choice.policy = UnmappablePolicy::Skip;
    } else if (word == "replace") {
      choice.policy = UnmappablePolicy::Replace;
    } else if (word == "keep") {
      choice.policy = UnmappablePolicy::Keep;
    } else {
      error = "--unmappable takes stop, skip, replace or keep, not '" + word + "'";
      return std::nullopt;
    }
  }
  if (replacement != parsed.values.end()) {
    const std::u16string character = text::Utf8ToUtf16(replacement->second);
    if (character.size() != 1 || (character[0] >= 0xD800 && character[0] <= 0xDFFF)) {
      error = "--replacement takes one character, not '" + replacement->second + "'";
      return std::nullopt;
    }
    if (policy != parsed.values.end() && choice.policy != UnmappablePolicy::Replace) {
      error = "--replacement goes with --unmappable replace, not with --unmappable " + policy->second;
      return std::nullopt;
    }
    choice.policy = UnmappablePolicy::Replace;
    choice.replacement = character[0];
  }
  return choice;
}

void ReportUnmappableStop(std::ostream& err, const UnmappableFindings& findings, std::u16string_view encoding,
                          const std::string& where, const std::string& written) {
  err << "quilom convert: " << Count(findings.count) << " cannot be written in " << text::Utf16ToUtf8(encoding)
      << "; the first is " << First(findings) << where << ".\n"
      << "quilom convert: " << written << "; --unmappable skip, replace (--replacement CHAR) or keep writes "
      << "the rest\n";
}

void ReportUnmappableWarning(std::ostream& err, const UnmappableChoice& choice, const UnmappableFindings& findings,
                             std::u16string_view encoding, const std::string& where) {
  err << "quilom convert: warning: " << Count(findings.count) << " cannot be written in " << text::Utf16ToUtf8(encoding)
      << " (the first is " << First(findings) << where << "): ";
  switch (choice.policy) {
    case UnmappablePolicy::Skip:
      err << "left out\n";
      break;
    case UnmappablePolicy::Replace:
      err << "each written as " << Shown(choice.replacement) << "\n";
      break;
    case UnmappablePolicy::Keep:
    case UnmappablePolicy::Stop:
      err << "kept as they are in the UTF-8 text of the " << text::Utf16ToUtf8(encoding) << " view\n";
      break;
  }
}

}  // namespace quilom::cli
