// SPDX-License-Identifier: MIT
// The Windows headers that the others need first.
#include <windows.h>

#include <oleauto.h>

#include <exception>

#include "dispatch_objects.h"
#include "varnock/host.h"
#include "wide_text.h"

namespace varnock::com {

HRESULT reportError(const AutomationError& error, EXCEPINFO* exception) {
  const std::int32_t number = error.number();
  // What the host raises about the call itself (an unknown member, a wrong
  // argument count or type) is the dispatch interface's own answer.
  switch (number) {
    case kMemberNotFound:
    case kParameterNotFound:
    case kDispatchTypeMismatch:
    case kUnknownName:
    case kDispatchOverflow:
    case kBadParameterCount:
    case kParameterNotOptional:
      return static_cast<HRESULT>(number);
    default:
      break;
  }
  // Script engines show numbers of the form 0x800A00nn as nn: an error number
  // of Visual Basic's own (13, 429, ...) travels that way.
  const HRESULT code = (number > 0 && number <= 0xFFFF)
                           ? static_cast<HRESULT>(0x800A0000u | static_cast<unsigned>(number))
                           : static_cast<HRESULT>(number);
  ICreateErrorInfo* create = nullptr;
  if (SUCCEEDED(CreateErrorInfo(&create))) {
    const std::wstring description = wide(error.description());
    const std::wstring source = wide(error.source());
    create->SetDescription(const_cast<LPOLESTR>(description.c_str()));
    create->SetSource(const_cast<LPOLESTR>(source.c_str()));
    IErrorInfo* info = nullptr;
    if (SUCCEEDED(create->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
      SetErrorInfo(0, info);
      info->Release();
    }
    create->Release();
  }
  if (exception != nullptr) {
    ZeroMemory(exception, sizeof *exception);
    exception->bstrSource = newBstr(error.source());
    exception->bstrDescription = newBstr(error.description());
    exception->scode = code;
  }
  return DISP_E_EXCEPTION;
}

HRESULT reportCaught(EXCEPINFO* exception) noexcept {
  try {
    throw;
  } catch (const AutomationError& e) {
    return reportError(e, exception);
  } catch (const std::exception& e) {
    return reportError(AutomationError(static_cast<std::int32_t>(E_FAIL), e.what(),
                                       AutomationError::kRuntimeSource),
                       exception);
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace varnock::com
