#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

namespace contract {

/// A COM object whose methods stand at given places of its interface. It counts no references: it outlives its users.
class ComObject {
 public:
  ComObject() { With(2, Release); }

  template <class Method>
  ComObject& With(std::size_t place, Method* method) {
    methods_.at(place) = reinterpret_cast<void*>(method);
    return *this;
  }

  /// What a user of the object is given; it must not move after that.
  [[nodiscard]] void* Interface() {
    table_ = methods_.data();
    return &table_;
  }

 private:
  static ULONG WINAPI Release(void* /*object*/) { return 1; }

  std::array<void*, 8> methods_{};
  void** table_ = nullptr;
};

}  // namespace contract
