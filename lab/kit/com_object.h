#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

namespace lab {

/// A COM object whose methods stand at given places of its interface. It outlives its users, and only counts how often
/// it is released, references that a user added apart.
class ComObject {
 public:
  ComObject() { With(0, HasNoOther).With(1, AddRef).With(2, Release); }

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

  [[nodiscard]] long releases() const { return seen_.releases; }

 private:
  struct Seen {
    void** table;  // where COM looks for it: first
    long releases;
  };

  static HRESULT WINAPI HasNoOther(void* /*object*/, const IID* /*interfaceId*/, void** other) {
    *other = nullptr;
    return E_NOINTERFACE;
  }

  static ULONG WINAPI AddRef(void* object) {
    --static_cast<Seen*>(object)->releases;
    return 2;
  }

  static ULONG WINAPI Release(void* object) {
    ++static_cast<Seen*>(object)->releases;
    return 1;
  }

  std::array<void*, 24> methods_{};
  Seen seen_{};
};

}  // namespace lab
