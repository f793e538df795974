#include "converter/window/automation.hpp"

#include <charconv>
#include <string>

#include "text/utf.hpp"

namespace quilom::converter::window {

AutomationRef GetObject(AutomationObject& object, std::u16string_view member, ErrorDetails& error) {
  AutomationValue value;
  if (!object.Get(member, value)) {
    error = object.LastError();
    return nullptr;
  }
  if (auto* child = std::get_if<AutomationRef>(&value); child != nullptr && *child != nullptr) {
    return *child;
  }
  error = {0, u"Quilom++", u"'" + std::u16string(member) + u"' is not an object"};
  return nullptr;
}

AutomationRef GetPath(AutomationObject& root, const std::vector<std::u16string_view>& members, ErrorDetails& error) {
  AutomationObject* current = &root;
  AutomationRef held;
  for (std::u16string_view member : members) {
    held = GetObject(*current, member, error);
    if (held == nullptr) {
      return nullptr;
    }
    current = held.get();
  }
  return held;
}

bool ToInteger(const AutomationValue& value, std::int32_t& result) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) {
    result = *number;
    return true;
  }
  if (const auto* flag = std::get_if<bool>(&value)) {
    result = *flag ? -1 : 0;
    return true;
  }
  if (const auto* textValue = std::get_if<std::u16string>(&value)) {
    const std::string ascii = text::Utf16ToUtf8(*textValue);
    const auto [end, code] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), result);
    return code == std::errc{} && end == ascii.data() + ascii.size() && !ascii.empty();
  }
  return false;
}

}  // namespace quilom::converter::window
