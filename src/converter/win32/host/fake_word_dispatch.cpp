#include "converter/win32/host/fake_word_dispatch.hpp"

#include <oleauto.h>

#include <fstream>
#include <map>
#include <vector>

#include "text/utf.hpp"

namespace quilom::converter::win32::host {
namespace {

// Member names and argument names share one table of ids for the whole tree.
class NameTable {
 public:
  DISPID IdOf(const std::wstring& name) {
    auto found = ids_.find(name);
    if (found != ids_.end()) return found->second;
    names_.push_back(name);
    return ids_[name] = static_cast<DISPID>(names_.size());
  }
  std::wstring NameOf(DISPID id) const {
    return id >= 1 && static_cast<std::size_t>(id) <= names_.size() ? names_[static_cast<std::size_t>(id) - 1] : L"?";
  }

 private:
  std::map<std::wstring, DISPID> ids_;
  std::vector<std::wstring> names_;
};

std::wstring Describe(const VARIANT& value) {
  switch (value.vt) {
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE ? L"True" : L"False";
    case VT_I4:
      return std::to_wstring(value.lVal);
    case VT_BSTR:
      return value.bstrVal != nullptr ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal)) : L"";
    default:
      return L"(vt " + std::to_wstring(value.vt) + L")";
  }
}

class FakeNode final : public IDispatch {
 public:
  FakeNode(std::wstring path, std::shared_ptr<FakeWordState> state, std::shared_ptr<NameTable> names)
      : path_(std::move(path)), state_(std::move(state)), names_(std::move(names)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch)) {
      *object = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    for (UINT i = 0; i < count; ++i) ids[i] = names_->IdOf(names[i]);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override {
    const std::wstring name = names_->NameOf(id);
    const std::wstring full = path_.empty() ? name : path_ + L"." + name;
    if (flags & DISPATCH_PROPERTYPUT) {
      if (parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
      Log(L"put " + full + L"=" + Describe(parameters->rgvarg[0]));
      if (name == L"Text") state_->contentText = Describe(parameters->rgvarg[0]);
      return S_OK;
    }
    if (parameters->cArgs > 0 || name == L"ClearFormatting" || name == L"UndoClear") {
      return Call(full, name, *parameters, result, exception);
    }
    return Property(full, name, result);
  }

 private:
  HRESULT Call(const std::wstring& full, const std::wstring& name, const DISPPARAMS& parameters, VARIANT* result,
               EXCEPINFO* exception) {
    std::wstring line = L"call " + full + L"(";
    // Arguments arrive last to first; the log shows them in the order they were written.
    for (UINT i = parameters.cArgs; i-- > 0;) {
      const std::wstring argument =
          i < parameters.cNamedArgs ? names_->NameOf(parameters.rgdispidNamedArgs[i]) : L"#" + std::to_wstring(i);
      line += argument + L"=" + Describe(parameters.rgvarg[i]) + (i > 0 ? L"," : L"");
    }
    Log(line + L")");
    if (name == state_->failingMethod && ++state_->failingCalls >= state_->failFromCall && exception != nullptr) {
      *exception = EXCEPINFO{};
      exception->scode = static_cast<SCODE>(0x800A1066);
      exception->bstrSource = SysAllocString(L"Stand-in Word");
      exception->bstrDescription = SysAllocString(L"Command failed");
      return DISP_E_EXCEPTION;
    }
    if (result != nullptr && name == L"Execute") {
      result->vt = VT_BOOL;
      result->boolVal = VARIANT_TRUE;
    }
    return S_OK;
  }

  HRESULT Property(const std::wstring& full, const std::wstring& name, VARIANT* result) {
    Log(L"get " + full);
    if (result == nullptr) return S_OK;
    VariantInit(result);
    if (name == L"Count" || name == L"Start" || name == L"End") {
      result->vt = VT_I4;
      result->lVal =
          name == L"Count" ? state_->documentCount : (name == L"Start" ? state_->selectionStart : state_->selectionEnd);
    } else if (name == L"Text") {
      result->vt = VT_BSTR;
      result->bstrVal = SysAllocStringLen(state_->contentText.data(), static_cast<UINT>(state_->contentText.size()));
    } else {
      result->vt = VT_DISPATCH;
      result->pdispVal = new FakeNode(full, state_, names_);
    }
    return S_OK;
  }

  void Log(const std::wstring& line) {
    if (state_->logFile.empty()) return;
    std::ofstream out(state_->logFile, std::ios::binary | std::ios::app);
    out << text::Utf16ToUtf8(std::u16string(line.begin(), line.end())) << "\n";
  }

  ULONG references_ = 1;
  std::wstring path_;
  std::shared_ptr<FakeWordState> state_;
  std::shared_ptr<NameTable> names_;
};

}  // namespace

IDispatch* CreateFakeWord(std::shared_ptr<FakeWordState> state) {
  return new FakeNode(L"", std::move(state), std::make_shared<NameTable>());
}

}  // namespace quilom::converter::win32::host
