#include "contract/other_program.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>
#include <utility>

#include "os/threads.h"
#include "os/win32/process_end.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

HWND Open(const wchar_t* className, const wchar_t* title, DWORD style, const RECT& at, HWND parentOrOwner) {
  return CreateWindowExW(0, className, title, style | WS_VISIBLE, at.left, at.top, at.right - at.left,
                         at.bottom - at.top, parentOrOwner, nullptr, GetModuleHandleW(nullptr), nullptr);
}

LRESULT AnswerOf(HWND window) {
  return reinterpret_cast<LRESULT>(window);
}

LRESULT Serve(HWND window, Request request, LPARAM parameter) {
  switch (request) {
    case Request::Hang:
      WaitForSingleObject(OpenEventW(SYNCHRONIZE, FALSE, kWake), INFINITE);
      break;
    case Request::OpenChild:
      return AnswerOf(Open(world::kChildClass, L"", WS_CHILD, {20, 20, 170, 120}, window));
    case Request::OpenDialog:
      return AnswerOf(
          Open(world::kClass, L"A dialog", WS_POPUP | WS_CAPTION | WS_SYSMENU, {600, 150, 900, 350}, window));
    case Request::Raise:
      NotifyWinEvent(LOWORD(parameter), window, static_cast<SHORT>(HIWORD(parameter)), CHILDID_SELF);
  }
  return 0;
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == RequestMessage()) return Serve(window, static_cast<Request>(wParam), lParam);
  if (message == WM_DESTROY && GetWindow(window, GW_OWNER) == nullptr) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

int ServeWindow() {
  for (const auto& [name, procedure] : {std::pair(world::kClass, &OnMessage), {world::kChildClass, &DefWindowProcW}}) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = name;
    RegisterClassW(&windowClass);
  }
  SetForegroundWindow(Open(world::kClass, world::kTitle, WS_OVERLAPPEDWINDOW, {100, 100, 500, 400}, nullptr));
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}

/// Takes the lock under which modules come and go, and keeps it.
void HoldLoader(HANDLE held) {
  using Lock = LONG NTAPI(ULONG flags, ULONG * result, ULONG_PTR * cookie);
  ULONG_PTR cookie = 0;
  const auto lock = GetProcAddress(GetModuleHandleW(L"ntdll"), "LdrLockLoaderLock");
  reinterpret_cast<Lock*>(reinterpret_cast<void*>(lock))(0, nullptr, &cookie);
  SetEvent(held);
  Sleep(INFINITE);
}

/// Ends as the product's programs do: by an exception out of a thread, by the library's giving up, or in order.
int EndLikeTheProduct(std::string_view how) {
  os::win32::FailFastFromHereOn();
  if (how == "--abort") std::abort();
  const HANDLE held = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  os::StartThread(L"other", [=] { how == "--throw" ? throw 1 : HoldLoader(held); });
  WaitForSingleObject(held, INFINITE);
  os::win32::EndProcess(7);
}

}  // namespace

UINT RequestMessage() {
  static const UINT message = RegisterWindowMessageW(L"Tessaview Contract Request");
  return message;
}

}  // namespace contract

/// As the other program: --exit CODE · --last (2 seconds) · --window · --throw · --abort · --end
int main(int count, char** arguments) {
  constexpr DWORD kLastingMs = 2000;
  const std::string_view what = count > 1 ? arguments[1] : "";
  if (what == "--exit") return std::atoi(arguments[2]);
  if (what == "--window") return contract::ServeWindow();
  if (what == "--last") return Sleep(kLastingMs), 0;
  if (what == "--throw" || what == "--abort" || what == "--end") return contract::EndLikeTheProduct(what);
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
