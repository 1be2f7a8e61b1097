#include "os/messages.h"

#include "os/win32/win32_support.h"

namespace os {
namespace {

COPYDATASTRUCT CopyDataOf(BytesView record) {
  COPYDATASTRUCT data{};
  data.cbData = static_cast<DWORD>(record.size());
  data.lpData = const_cast<std::uint8_t*>(record.data());  // the receiver reads a copy
  return data;
}

}  // namespace

std::uint32_t RegisterMessage(const wchar_t* name) {
  return RegisterWindowMessageW(name);
}

bool PostToWindow(WindowHandle window, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  return PostMessageW(win32::NativeOf(window), message, wParam, lParam) != FALSE;
}

void SendCopyData(WindowHandle window, std::uint64_t kind, BytesView record) {
  COPYDATASTRUCT data = CopyDataOf(record);
  SendMessageW(win32::NativeOf(window), WM_COPYDATA, kind, reinterpret_cast<LPARAM>(&data));
}

bool SendCopyDataTimeout(WindowHandle window, std::uint64_t kind, BytesView record, std::uint32_t timeoutMs) {
  COPYDATASTRUCT data = CopyDataOf(record);
  return SendMessageTimeoutW(win32::NativeOf(window), WM_COPYDATA, kind, reinterpret_cast<LPARAM>(&data),
                             SMTO_ABORTIFHUNG, timeoutMs, nullptr) != 0;
}

}  // namespace os
