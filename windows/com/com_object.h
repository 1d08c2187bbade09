// SPDX-License-Identifier: MIT
// What every COM object of the server shares: its reference count, and the
// server's count of live objects and locks that DllCanUnloadNow answers.
#pragma once

#include <windows.h>

#include <atomic>

namespace varnock::com {

// Objects and class factory locks alive in this server.
std::atomic<long>& liveObjects();

template <class Interface>
class ComObject : public Interface {
 public:
  ComObject() { ++liveObjects(); }
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;
  virtual ~ComObject() { --liveObjects(); }

  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG STDMETHODCALLTYPE Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

 private:
  std::atomic<long> references_{1};
};

}  // namespace varnock::com
