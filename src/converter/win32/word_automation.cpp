#include "converter/win32/word_automation.hpp"

// The other system headers need the types of <windows.h>.
// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on

#include <memory>

#include "converter/win32/dispatch_object.hpp"

namespace quilom::converter::win32 {

window::AutomationRef WordAutomationConnector::AttachRunning() {
  CLSID wordClass;
  if (FAILED(CLSIDFromProgID(L"Word.Application", &wordClass))) return nullptr;
  IUnknown* running = nullptr;
  if (FAILED(GetActiveObject(wordClass, nullptr, &running)) || running == nullptr) return nullptr;
  IDispatch* dispatch = nullptr;
  const HRESULT hr = running->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch));
  running->Release();
  if (FAILED(hr) || dispatch == nullptr) return nullptr;
  auto application = std::make_shared<DispatchObject>(dispatch);
  dispatch->Release();  // DispatchObject holds its own reference
  return application;
}

}  // namespace quilom::converter::win32
