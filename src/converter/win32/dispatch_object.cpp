#include "converter/win32/dispatch_object.hpp"

#include <oleauto.h>

#include <memory>
#include <string>

namespace quilom::converter::win32 {
namespace {

std::u16string HexCode(HRESULT hr) {
  wchar_t buffer[16];
  wsprintfW(buffer, L"0x%08lX", static_cast<unsigned long>(hr));
  return std::u16string(reinterpret_cast<const char16_t*>(buffer));
}

std::u16string FromBstr(BSTR text) {
  return text == nullptr ? std::u16string()
                         : std::u16string(reinterpret_cast<const char16_t*>(text), SysStringLen(text));
}

}  // namespace

VARIANT ToVariant(const window::AutomationValue& value) {
  VARIANT variant;
  VariantInit(&variant);
  if (const auto* flag = std::get_if<bool>(&value)) {
    variant.vt = VT_BOOL;
    variant.boolVal = *flag ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (const auto* number = std::get_if<std::int32_t>(&value)) {
    variant.vt = VT_I4;
    variant.lVal = *number;
  } else if (const auto* text = std::get_if<std::u16string>(&value)) {
    variant.vt = VT_BSTR;
    variant.bstrVal =
        SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text->data()), static_cast<UINT>(text->size()));
  } else if (const auto* object = std::get_if<window::AutomationRef>(&value)) {
    // Objects are never passed into Word by this program; an empty argument stands in.
    (void)object;
    variant.vt = VT_ERROR;
    variant.scode = DISP_E_PARAMNOTFOUND;
  }
  return variant;
}

window::AutomationValue FromVariant(const VARIANT& variant) {
  VARIANT converted;
  VariantInit(&converted);
  switch (variant.vt) {
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_BSTR:
      return FromBstr(variant.bstrVal);
    case VT_DISPATCH:
      if (variant.pdispVal == nullptr) return std::monostate{};
      return window::AutomationRef(std::make_shared<DispatchObject>(variant.pdispVal));
    case VT_EMPTY:
    case VT_NULL:
      return std::monostate{};
    default:
      if (SUCCEEDED(VariantChangeType(&converted, const_cast<VARIANT*>(&variant), 0, VT_I4))) {
        return static_cast<std::int32_t>(converted.lVal);
      }
      return std::monostate{};
  }
}

DispatchObject::DispatchObject(IDispatch* dispatch) : dispatch_(dispatch) { dispatch_->AddRef(); }

DispatchObject::~DispatchObject() { dispatch_->Release(); }

bool DispatchObject::Failed(HRESULT hr, std::u16string_view member, const EXCEPINFO* exception) {
  lastError_.number = static_cast<long>(hr);
  lastError_.source = u"Word.Application";
  lastError_.description = u"'" + std::u16string(member) + u"' failed (" + HexCode(hr) + u")";
  if (exception != nullptr && hr == DISP_E_EXCEPTION) {
    if (exception->scode != 0) lastError_.number = static_cast<long>(exception->scode);
    if (exception->bstrSource != nullptr) lastError_.source = FromBstr(exception->bstrSource);
    if (exception->bstrDescription != nullptr) {
      lastError_.description += u": " + FromBstr(exception->bstrDescription);
    }
  }
  return false;
}

bool DispatchObject::Invoke(std::u16string_view member, WORD flags, const std::vector<window::NamedArgument>& arguments,
                            window::AutomationValue* result) {
  // GetIDsOfNames takes the member's name first, then the names of its named arguments. A
  // property put has one unnamed value, which Invoke knows by DISPID_PROPERTYPUT instead.
  const bool put = flags == DISPATCH_PROPERTYPUT;
  std::vector<std::wstring> names{std::wstring(member.begin(), member.end())};
  for (const window::NamedArgument& argument : arguments) {
    if (!put) names.emplace_back(argument.name.begin(), argument.name.end());
  }
  std::vector<LPOLESTR> namePointers;
  for (std::wstring& name : names) namePointers.push_back(name.data());
  std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
  HRESULT hr = dispatch_->GetIDsOfNames(IID_NULL, namePointers.data(), static_cast<UINT>(namePointers.size()),
                                        LOCALE_USER_DEFAULT, ids.data());
  if (FAILED(hr)) return Failed(hr, member, nullptr);

  // Invoke wants the arguments last to first, with their ids in the same order.
  std::vector<VARIANT> values;
  std::vector<DISPID> namedIds;
  for (std::size_t i = arguments.size(); i-- > 0;) {
    values.push_back(ToVariant(arguments[i].value));
    namedIds.push_back(put ? DISPID_PROPERTYPUT : ids[i + 1]);
  }
  DISPPARAMS parameters{values.data(), namedIds.data(), static_cast<UINT>(values.size()),
                        static_cast<UINT>(namedIds.size())};

  VARIANT returned;
  VariantInit(&returned);
  EXCEPINFO exception{};
  UINT badArgument = 0;
  hr = dispatch_->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, put ? nullptr : &returned,
                         &exception, &badArgument);
  for (VARIANT& value : values) VariantClear(&value);
  const bool ok = SUCCEEDED(hr) || Failed(hr, member, &exception);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  if (ok && result != nullptr) *result = FromVariant(returned);
  VariantClear(&returned);
  return ok;
}

bool DispatchObject::Get(std::u16string_view member, window::AutomationValue& result) {
  return Invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &result);
}

bool DispatchObject::Put(std::u16string_view member, const window::AutomationValue& value) {
  return Invoke(member, DISPATCH_PROPERTYPUT, {{u"", value}}, nullptr);
}

bool DispatchObject::Call(std::u16string_view member, const std::vector<window::NamedArgument>& arguments,
                          window::AutomationValue& result) {
  return Invoke(member, DISPATCH_METHOD, arguments, &result);
}

}  // namespace quilom::converter::win32
