#include "kit/text_pipe.h"

#include <windows.h>

#include <array>
#include <thread>

namespace lab {
namespace {

constexpr DWORD kPipeBuffer = 65536;

void ServeConnection(HANDLE pipe, const std::function<void(std::wstring)>& onText) {
  std::array<wchar_t, 4096> text{};
  DWORD size = 0;
  while (ReadFile(pipe, text.data(), sizeof text, &size, nullptr)) {
    onText(std::wstring(text.data(), size / sizeof(wchar_t)));
  }
  CloseHandle(pipe);
}

HANDLE NewPipe(const std::wstring& name) {
  return CreateNamedPipeW(name.c_str(), PIPE_ACCESS_INBOUND, PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT,
                          PIPE_UNLIMITED_INSTANCES, kPipeBuffer, kPipeBuffer, 0, nullptr);
}

}  // namespace

void ListenOnPipe(const std::wstring& name, std::atomic<int>& connections,
                  const std::function<void(std::wstring)>& onText) {
  // The first instance is there before this returns, so that a program started next finds it.
  std::thread([name, onText, &connections, pipe = NewPipe(name)]() mutable {
    while (pipe != INVALID_HANDLE_VALUE) {
      if (ConnectNamedPipe(pipe, nullptr) || GetLastError() == ERROR_PIPE_CONNECTED) {
        ++connections;
        std::thread([pipe, onText, &connections] {
          ServeConnection(pipe, onText);
          --connections;
        }).detach();
      } else {
        CloseHandle(pipe);
      }
      pipe = NewPipe(name);
    }
  }).detach();
}

}  // namespace lab
