#pragma once

#include <windows.h>

#include <type_traits>

#include "patch/import_table.h"

namespace contract {

/// The system's own function of this name, in whichever of the libraries that the door imports from.
[[nodiscard]] inline void* SystemFunction(const char* name) {
  for (const auto* dll : {"kernel32", "user32", "advapi32", "setupapi", "wtsapi32", "userenv", "powrprof", "shcore",
                          "ole32", "shell32", "wevtapi"}) {
    if (const auto found = GetProcAddress(GetModuleHandleA(dll), name)) return reinterpret_cast<void*>(found);
  }
  return nullptr;
}

/// While it lives, this program's calls of a system function, the door's among them, reach a replacement. `function`
/// only tells the type.
class Patched {
 public:
  template <class Function>
  Patched(const char* name, Function* /*function*/, std::type_identity_t<Function>* replacement)
      : name_(name), own_(SystemFunction(name)) {
    lab::patch::Redirect({name_, reinterpret_cast<void*>(replacement)});
  }
  Patched(const Patched&) = delete;
  Patched& operator=(const Patched&) = delete;
  ~Patched() { lab::patch::Redirect({name_, own_}); }

 private:
  const char* name_;
  void* own_;
};

}  // namespace contract

/// A patch of `function`; a macro, because the import is found by the name it is called by.
#define CONTRACT_PATCH(function, ...) const contract::Patched patched##function(#function, &::function, __VA_ARGS__)
