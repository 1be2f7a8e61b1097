#include "core/threads.h"

#include <utility>

#include "core/trace_log.h"
#include "os/threads.h"

namespace tessaview {

bool StartThread(const wchar_t* name, std::function<void()> body) {
  const bool isStarted = os::StartThread(name, std::move(body));
  if (!isStarted) Log(L"[Failure] There is no thread for \"%ls\" \n", name);
  return isStarted;
}

}  // namespace tessaview
