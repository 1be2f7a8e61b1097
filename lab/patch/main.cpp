// The import patch: loaded into the controller, and the programs that it starts, before their first instruction, it
// redirects the calls that Wine only pretends to serve.
#include <windows.h>

#include "kit/text_pipe.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

HANDLE pipe = INVALID_HANDLE_VALUE;

template <class Group>
void RedirectAll(const Group& group) {
  for (const auto& redirection : group) Redirect(redirection);
}

void Install() {
  pipe = CreateFileW(kTracePipe, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  RedirectAll(TraceCalls());
  RedirectAll(DisplayCalls());
  RedirectAll(PowerCalls());
  RedirectAll(SessionCalls());
  RedirectAll(TouchCalls());
  RedirectAll(ProgramCalls());
  RedirectAll(WindowCalls());
  RedirectAll(ClockCalls());
  RedirectAll(ProcessStopCalls());
  RedirectAll(EventLogCalls());
  RedirectAll(SetupCalls());
  RedirectAll(DesktopCalls());
}

}  // namespace

void Report(const std::wstring& line) {
  if (pipe == INVALID_HANDLE_VALUE) return;
  DWORD written = 0;
  WriteFile(pipe, line.data(), static_cast<DWORD>(line.size() * sizeof(wchar_t)), &written, nullptr);
}

}  // namespace lab::patch

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    DisableThreadLibraryCalls(module);
    lab::patch::Install();
  }
  return TRUE;
}
