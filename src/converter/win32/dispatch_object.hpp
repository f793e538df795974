#pragma once

// The other system headers need the types of <windows.h>.
// clang-format off
#include <windows.h>
#include <oaidl.h>
// clang-format on

#include "converter/window/automation.hpp"

// AutomationObject over a COM IDispatch: each member is looked up with GetIDsOfNames (with the
// names of its named arguments) and called with Invoke. No exception leaves a call: a failed
// HRESULT, or the EXCEPINFO that Word fills in, becomes the ErrorDetails of LastError.
namespace quilom::converter::win32 {

class DispatchObject final : public window::AutomationObject {
 public:
  // Takes a reference of its own on `dispatch` (which may not be null).
  explicit DispatchObject(IDispatch* dispatch);
  ~DispatchObject() override;
  DispatchObject(const DispatchObject&) = delete;
  DispatchObject& operator=(const DispatchObject&) = delete;

  bool Get(std::u16string_view member, window::AutomationValue& result) override;
  bool Put(std::u16string_view member, const window::AutomationValue& value) override;
  bool Call(std::u16string_view member, const std::vector<window::NamedArgument>& arguments,
            window::AutomationValue& result) override;
  ErrorDetails LastError() const override { return lastError_; }

 private:
  bool Invoke(std::u16string_view member, WORD flags, const std::vector<window::NamedArgument>& arguments,
              window::AutomationValue* result);
  bool Failed(HRESULT hr, std::u16string_view member, const EXCEPINFO* exception);

  IDispatch* dispatch_;
  ErrorDetails lastError_;
};

// VARIANT conversions at the boundary. ToVariant's result must be cleared with VariantClear.
VARIANT ToVariant(const window::AutomationValue& value);
window::AutomationValue FromVariant(const VARIANT& variant);

}  // namespace quilom::converter::win32
