#pragma once

#include <memory>

namespace os::win32 {

struct ComReleaser {
  template <class Interface>
  void operator()(Interface* object) const noexcept {
    object->Release();
  }
};

/// One reference to a COM object, given back at the end of its scope.
template <class Interface>
using ComPointer = std::unique_ptr<Interface, ComReleaser>;

}  // namespace os::win32
