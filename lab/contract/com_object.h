#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

namespace contract {

/// A COM object whose methods stand at given places of its interface. It outlives its users, and only counts how often
/// it is released.
class ComObject {
 public:
  ComObject() { With(2, Release); }

  template <class Method>
  ComObject& With(std::size_t place, Method* method) {
    methods_.at(place) = reinterpret_cast<void*>(method);
    return *this;
  }

  /// What a user of the object is given, nothing released yet; it must not move after that.
  [[nodiscard]] void* Interface() {
    seen_ = {methods_.data(), 0};
    return &seen_;
  }

  [[nodiscard]] ULONG releases() const { return seen_.releases; }

 private:
  struct Seen {
    void** table;  // where COM looks for it: first
    ULONG releases;
  };

  static ULONG WINAPI Release(void* object) {
    ++static_cast<Seen*>(object)->releases;
    return 1;
  }

  std::array<void*, 8> methods_{};
  Seen seen_{};
};

}  // namespace contract
