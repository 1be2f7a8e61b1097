#pragma once

#include <atomic>
#include <functional>
#include <string>

namespace lab {

/// The pipes that the import patch and the stand-in UI write their lines to.
inline constexpr wchar_t kTracePipe[] = L"\\\\.\\pipe\\TessaviewLabTrace";
inline constexpr wchar_t kUiPipe[] = L"\\\\.\\pipe\\TessaviewLabUi";

/// Listens on a named pipe for the rest of the process's life and hands on each message, a UTF-16 text, on a thread of
/// its own. Any number of programs may write at once, each its own connection: how many are open is kept in
/// `connections`, which must live as long. One is open until its program has ended and its last message is handed on.
void ListenOnPipe(const std::wstring& name, std::atomic<int>& connections,
                  const std::function<void(std::wstring)>& onText);

}  // namespace lab
