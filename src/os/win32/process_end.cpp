#include "os/win32/process_end.h"

#include <windows.h>

#include <csignal>
#include <exception>

namespace os::win32 {
namespace {

/// SEM_NOGPFAULTERRORBOX is left alone, because it would take the dump away together with the box.
[[noreturn]] void FailFast() {
  RaiseFailFastException(nullptr, nullptr, FAIL_FAST_GENERATE_EXCEPTION_ADDRESS | FAIL_FAST_NO_HARD_ERROR_DLG);
  __builtin_unreachable();  // the call does not return, which its declaration does not say
}

void OnAbort(int /*signal*/) {
  FailFast();
}

}  // namespace

void FailFastFromHereOn() {
  SetErrorMode(SEM_FAILCRITICALERRORS);
  std::set_terminate(FailFast);
  std::signal(SIGABRT, OnAbort);  // the library would show a message box, and end the process after it
}

void EndProcess(int exitCode) {
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
  __builtin_unreachable();  // nor does this one
}

}  // namespace os::win32
