#pragma once

namespace os::win32 {

/// From here on an exception that nobody catches, and whatever else the C++ library gives up at, ends the process where
/// it happened: with the exit code STATUS_FAIL_FAST_EXCEPTION (0xC0000602) and a dump where Windows keeps one. Neither
/// that nor a drive that is not ready shows a message box (std::set_terminate, signal with SIGABRT,
/// RaiseFailFastException, SetErrorMode with SEM_FAILCRITICALERRORS).
void FailFastFromHereOn();

/// Ends the process under its threads. No code of other modules runs: they would find threads gone that held their
/// locks. What the process registered, such as the trace provider, the system takes back (TerminateProcess).
[[noreturn]] void EndProcess(int exitCode);

}  // namespace os::win32
