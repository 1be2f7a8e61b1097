#pragma once

#include <cstdint>

#include "os/types.h"
#include "os/waiting.h"

namespace os {

/// The id of a message known by name to every process of the session (RegisterWindowMessageW). Any thread.
[[nodiscard]] std::uint32_t RegisterMessage(const wchar_t* name);

/// Posts a message without waiting (PostMessageW). False when the window is gone or its queue is full. Any thread.
bool PostToWindow(WindowHandle window, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);

/// Sends a copy-data record and waits for the answer (SendMessageW, WM_COPYDATA, dwData 0). Returns at once when the
/// window is gone. Any thread; blocks for as long as the receiver takes, for ever when it hangs.
void SendCopyData(WindowHandle window, std::uint64_t kind, BytesView record);
template <>
inline constexpr WaitingMark kWaiting<&SendCopyData>{Waiting::Serving};

/// Sends a copy-data record and waits at most `timeoutMs` milliseconds, not at all for a receiver the system holds for
/// hung (SendMessageTimeoutW, SMTO_ABORTIFHUNG). False when it was not taken in time. Any thread.
bool SendCopyDataTimeout(WindowHandle window, std::uint64_t kind, BytesView record, std::uint32_t timeoutMs);
template <>
inline constexpr WaitingMark kWaiting<&SendCopyDataTimeout>{Waiting::Serving};

}  // namespace os
