// Windows' first setup. Wine lacks its functions, which programs look up when they run: here setup is over, or ends
// when the test says so.
#include <windows.h>

#include <cstring>
#include <thread>

#include "kit/laptop_state.h"
#include "kit/system_events.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

using OnFinished = void(CALLBACK*)(void* context);

BOOL WINAPI IsOver(BOOL* isOver) {
  *isOver = SharedLaptopState()->setupOver != 0;
  return TRUE;
}

/// As on Windows, there is nothing to wait for once setup is over.
BOOL WINAPI RegisterWait(OnFinished onFinished, void* context, void** wait) {
  static int anyWait;
  if (SharedLaptopState()->setupOver != 0) return SetLastError(ERROR_INVALID_STATE), FALSE;
  std::thread([=] {
    Await(SystemEvent::SetupFinished);
    onFinished(context);
  }).detach();
  *wait = &anyWait;
  return TRUE;
}

BOOL WINAPI UnregisterWait(void* /*wait*/) {
  return TRUE;
}

FARPROC WINAPI FindFunction(HMODULE module, LPCSTR name) {
  struct Known {
    const char* name;
    void* function;
  };
  const Known setup[]{{"OOBEComplete", reinterpret_cast<void*>(IsOver)},
                      {"RegisterWaitUntilOOBECompleted", reinterpret_cast<void*>(RegisterWait)},
                      {"UnregisterWaitUntilOOBECompleted", reinterpret_cast<void*>(UnregisterWait)}};
  for (const auto& known : setup) {
    if (!IS_INTRESOURCE(name) && std::strcmp(name, known.name) == 0) return reinterpret_cast<FARPROC>(known.function);
  }
  return GetProcAddress(module, name);
}

}  // namespace

std::array<Redirection, 1> SetupCalls() {
  return {{{"GetProcAddress", reinterpret_cast<void*>(FindFunction)}}};
}

}  // namespace lab::patch
