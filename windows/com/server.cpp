// SPDX-License-Identifier: MIT
// Varnock.dll's entry points: the class factories of the eleven classes,
// unloading, and the registration of the classes, their ProgIDs and the
// type library embedded in the file.
// The Windows headers that the others need first.
#include <windows.h>

#include <oleauto.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "com_object.h"
#include "dispatch_objects.h"
#include "own_object.h"
#include "varnock/host.h"
#include "wide_text.h"

namespace varnock::com {

namespace {

HMODULE thisModule = nullptr;

std::wstring modulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(thisModule, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

class ClassFactory final : public ComObject<IClassFactory> {
 public:
  explicit ClassFactory(std::string progId) : progId_(std::move(progId)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (riid != IID_IUnknown && riid != IID_IClassFactory) return E_NOINTERFACE;
    *out = this;
    AddRef();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    try {
      // A new, initialised object: its DSN is the default connection string.
      IDispatch* object = newRecordDispatch(CreateObject(progId_));
      const HRESULT hr = object->QueryInterface(riid, out);
      object->Release();
      return hr;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock ? ++liveObjects() : --liveObjects();
    return S_OK;
  }

 private:
  std::string progId_;
};

// Writes the default value, or the named value, of a key under HKEY_CLASSES_ROOT.
bool setValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  HKEY handle = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                      nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const LONG written =
      RegSetValueExW(handle, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                     static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(handle);
  return written == ERROR_SUCCESS;
}

void removeKey(const std::wstring& key) {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  RegDeleteKeyW(HKEY_CLASSES_ROOT, key.c_str());
}

GUID guidOf(const std::string& text) {
  GUID id = GUID_NULL;
  const std::wstring w = wide(text);
  CLSIDFromString(w.c_str(), &id);
  return id;
}

// The library's identifier and version, from the type library itself.
bool libraryAttributes(GUID& id, WORD& major, WORD& minor, LCID& locale) {
  ITypeLib* library = typeLibrary();
  if (library == nullptr) return false;
  TLIBATTR* attributes = nullptr;
  if (FAILED(library->GetLibAttr(&attributes))) return false;
  id = attributes->guid;
  major = attributes->wMajorVerNum;
  minor = attributes->wMinorVerNum;
  locale = attributes->lcid;
  library->ReleaseTLibAttr(attributes);
  return true;
}

std::wstring textOf(const GUID& id) {
  wchar_t text[40] = {};
  StringFromGUID2(id, text, 40);
  return text;
}

}  // namespace

std::atomic<long>& liveObjects() {
  static std::atomic<long> count{0};
  return count;
}

ITypeLib* typeLibrary() {
  static ITypeLib* library = [] {
    ITypeLib* loaded = nullptr;
    LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, &loaded);
    return loaded;
  }();
  return library;
}

HRESULT registerServer() {
  GUID library;
  WORD major = 0, minor = 0;
  LCID locale = 0;
  if (!libraryAttributes(library, major, minor, locale)) return SELFREG_E_TYPELIB;
  const std::wstring path = modulePath();
  const std::wstring libraryId = textOf(library);
  const std::wstring version = std::to_wstring(major) + L"." + std::to_wstring(minor);
  for (const ClassDescription& c : classes()) {
    const std::wstring classKey = L"CLSID\\" + wide(c.classId);
    const std::wstring progId = wide(c.progId);
    const bool written =
        setValue(classKey, nullptr, progId) &&
        setValue(classKey + L"\\InprocServer32", nullptr, path) &&
        setValue(classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
        setValue(classKey + L"\\ProgID", nullptr, progId) &&
        setValue(classKey + L"\\VersionIndependentProgID", nullptr, progId) &&
        setValue(classKey + L"\\TypeLib", nullptr, libraryId) &&
        setValue(classKey + L"\\Version", nullptr, version) && setValue(progId, nullptr, progId) &&
        setValue(progId + L"\\CLSID", nullptr, wide(c.classId));
    if (!written) return SELFREG_E_CLASS;
  }
  // The type library and its interfaces, as the system writes them.
  ITypeLib* registered = nullptr;
  if (FAILED(LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, &registered))) return SELFREG_E_TYPELIB;
  registered->Release();
  return S_OK;
}

HRESULT unregisterServer() {
  GUID library;
  WORD major = 0, minor = 0;
  LCID locale = 0;
  if (libraryAttributes(library, major, minor, locale)) {
    UnRegisterTypeLib(library, major, minor, locale, SYS_WIN64);
  }
  for (const ClassDescription& c : classes()) {
    removeKey(L"CLSID\\" + wide(c.classId));
    removeKey(wide(c.progId));
    // What the type library's registration wrote for the interface, in case
    // the library could not be read to remove it.
    removeKey(L"Interface\\" + wide(c.interfaceId));
  }
  removeKey(L"TypeLib\\" + textOf(library));
  return S_OK;
}

}  // namespace varnock::com

using namespace varnock::com;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    thisModule = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID riid, void** out) {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  for (const varnock::ClassDescription& c : varnock::classes()) {
    if (guidOf(c.classId) == classId) {
      ClassFactory* factory = new ClassFactory(c.progId);
      const HRESULT hr = factory->QueryInterface(riid, out);
      factory->Release();
      return hr;
    }
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() {
  return liveObjects() == 0 ? S_OK : S_FALSE;
}

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer() {
  return registerServer();
}

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer() {
  return unregisterServer();
}
