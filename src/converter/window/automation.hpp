#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "settings/error_report.hpp"

// Automation objects called by member name, the way a late-bound client talks to a word
// processor. The Windows layer implements this over IDispatch (GetIDsOfNames, then Invoke);
// tests implement it with a recorder. Everything that decides which members to call, and
// with which arguments, is written against this interface so that it is tested on Linux.
namespace quilom::converter::window {

class AutomationObject;
using AutomationRef = std::shared_ptr<AutomationObject>;

// The values that cross the boundary: nothing, a boolean, a 32-bit integer, text, or another
// object. Numbers that arrive in other widths are widened or narrowed to int32 by the adapter.
using AutomationValue = std::variant<std::monostate, bool, std::int32_t, std::u16string, AutomationRef>;

// An argument passed by name, as Word's Execute takes its many optional parameters.
struct NamedArgument {
  std::u16string name;
  AutomationValue value;
};

class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  // Property get. Returns false when the call failed; `LastError` then says why.
  virtual bool Get(std::u16string_view member, AutomationValue& result) = 0;
  // Property put.
  virtual bool Put(std::u16string_view member, const AutomationValue& value) = 0;
  // Method call with named arguments (in the order given).
  virtual bool Call(std::u16string_view member, const std::vector<NamedArgument>& arguments,
                    AutomationValue& result) = 0;
  // The failure of the last call that returned false.
  virtual ErrorDetails LastError() const = 0;
};

// The object a property holds, or null when the call failed or the property is no object
// (`error` then describes the failure).
AutomationRef GetObject(AutomationObject& object, std::u16string_view member, ErrorDetails& error);

// Follows a path of object properties ("ActiveWindow", "Selection"), null at the first
// failure, with `error` set.
AutomationRef GetPath(AutomationObject& root, const std::vector<std::u16string_view>& members, ErrorDetails& error);

// The value as an integer: int32 as is, bool as -1 / 0, decimal text parsed; nothing else.
bool ToInteger(const AutomationValue& value, std::int32_t& result);

}  // namespace quilom::converter::window
