#include "kit/pointer_rest.h"

#include <windows.h>

#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace lab {
namespace {

constexpr POINT kRest{0, 540};  // at the edge of the B panel

/// Whoever sends this waits for ever for the answer.
constexpr UINT kNeverAnswer = WM_USER;

void ServeMessages() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kNeverAnswer) ServeMessages();
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK PassOn(int code, WPARAM message, LPARAM event) {
  return CallNextHookEx(nullptr, code, message, event);
}

HWND Create(const wchar_t* className, HWND parent) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = className;
  RegisterClassW(&windowClass);
  return CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, className, L"", WS_POPUP, kRest.x,
                         kRest.y, 1, 1, parent, nullptr, windowClass.hInstance, nullptr);
}

/// Watches the mouse; the window that it opens is the one to send kNeverAnswer to.
void WatchMouse(std::promise<HWND>& watching) {
  SetWindowsHookExW(WH_MOUSE_LL, PassOn, GetModuleHandleW(nullptr), 0);
  watching.set_value(Create(L"TessaviewLabMouseWatch", HWND_MESSAGE));
  ServeMessages();
}

/// Opens a window of one pixel for the pointer to be over. Its thread then waits for an answer, which means that it
/// serves what others send, such as broadcasts, but not the mouse: and Wine learns from a window where the X server's
/// pointer is only when its thread serves the mouse.
void ServeRest(std::promise<HWND>& opened, HWND watching) {
  const HWND rest = Create(L"TessaviewLabPointerRest", nullptr);
  ShowWindow(rest, SW_SHOWNA);
  opened.set_value(rest);
  SendMessageW(watching, kNeverAnswer, 0, 0);
}

HWND Watching() {
  static std::promise<HWND> promise;
  static const HWND window = [] {
    std::thread(WatchMouse, std::ref(promise)).detach();
    return promise.get_future().get();
  }();
  return window;
}

HWND Rest() {
  static std::promise<HWND> promise;
  static const HWND window = [] {
    std::thread(ServeRest, std::ref(promise), Watching()).detach();
    return promise.get_future().get();
  }();
  return window;
}

}  // namespace

void LetPointerRest() {
  static std::once_flag once;
  std::call_once(once, PutPointerToRest);
}

void PutPointerToRest() {
  // One that is on top already, as far as Wine knows, would not be raised over a window that the X server raised.
  for (const HWND below : {HWND_BOTTOM, HWND_TOPMOST}) {
    SetWindowPos(Rest(), below, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  // A pointer that is there already, as far as Wine knows, would stay where it is.
  SetCursorPos(kRest.x, kRest.y + 1);
  SetCursorPos(kRest.x, kRest.y);
}

}  // namespace lab
