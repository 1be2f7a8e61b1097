// The stand-in application: a window with a title bar and a client area that says which program it is, to be moved,
// closed and looked at by the controller.
//   lab-app [--title=TEXT] [--class=NAME] [--area=LEFT,TOP,RIGHT,BOTTOM] [--no-maximize-box] [--bare]
//           [--ignores-close]
//
// Windows tells everybody when a window comes to the foreground, is taken by its title bar or moves, and a maximised
// window that is taken there is restored. Wine does none of it: the application does so for its own windows instead.
#include <windows.h>

#include <cstdio>
#include <span>

#include "apps/app_options.h"

namespace {

lab::AppOptions options;

/// A colour of its own for each title, dark enough for white text.
COLORREF Colour() {
  unsigned sum = 0;
  for (const wchar_t letter : options.title) sum = sum * 31 + letter;
  return RGB(40 + sum % 90, 40 + sum / 7 % 90, 40 + sum / 49 % 90);
}

void Paint(HWND window) {
  PAINTSTRUCT paint{};
  const HDC to = BeginPaint(window, &paint);
  RECT area{};
  GetClientRect(window, &area);
  const HBRUSH background = CreateSolidBrush(Colour());
  FillRect(to, &area, background);
  DeleteObject(background);
  const HFONT font = CreateFontW(-64, 0, 0, 0, FW_SEMIBOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                 CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH, L"Tahoma");
  const HGDIOBJ before = SelectObject(to, font);
  SetBkMode(to, TRANSPARENT);
  SetTextColor(to, RGB(255, 255, 255));
  DrawTextW(to, options.title.c_str(), -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(to, before);
  DeleteObject(font);
  EndPaint(window, &paint);
}

/// What Windows would raise by itself.
void RaiseEvent(HWND window, UINT message, WPARAM wParam) {
  const auto raise = [=](DWORD event) { NotifyWinEvent(event, window, OBJID_WINDOW, CHILDID_SELF); };
  if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE) raise(EVENT_SYSTEM_FOREGROUND);
  if (message == WM_ENTERSIZEMOVE) raise(EVENT_SYSTEM_MOVESIZESTART);
  if (message == WM_EXITSIZEMOVE) raise(EVENT_SYSTEM_MOVESIZEEND);
  if (message == WM_MOVE || message == WM_SIZE) raise(EVENT_OBJECT_LOCATIONCHANGE);
}

/// What Windows would do by itself with a maximised window whose title bar is dragged.
void RestoreInHand(HWND window, UINT message, WPARAM hit) {
  if (message == WM_NCLBUTTONDOWN && hit == HTCAPTION && IsZoomed(window)) ShowWindow(window, SW_RESTORE);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  static const UINT hang = RegisterWindowMessageW(lab::kAppHang);
  RaiseEvent(window, message, wParam);
  RestoreInHand(window, message, wParam);
  if (message == hang) Sleep(INFINITE);
  switch (message) {
    case WM_ENTERSIZEMOVE:
      SetPropW(window, lab::kInMoveSize, window);
      return 0;
    case WM_EXITSIZEMOVE:
      RemovePropW(window, lab::kInMoveSize);
      return 0;
    case WM_CLOSE:
      return options.ignoresClose ? 0 : DefWindowProcW(window, message, wParam, lParam);
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    case WM_PAINT:
      Paint(window);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

HWND Open() {
  WNDCLASSW windowClass{};
  windowClass.style = CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = OnMessage;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.lpszClassName = options.className.c_str();
  RegisterClassW(&windowClass);
  const auto& [left, top, right, bottom] = options.area;
  const DWORD framed = WS_OVERLAPPEDWINDOW & ~(options.maximizeBox ? 0UL : DWORD{WS_MAXIMIZEBOX});
  const DWORD style = options.bare ? WS_POPUP : framed;
  const HWND window =
      CreateWindowExW(0, options.className.c_str(), options.title.c_str(), style | WS_VISIBLE, left, top, right - left,
                      bottom - top, nullptr, nullptr, windowClass.hInstance, nullptr);
  if (window == nullptr) return nullptr;
  UpdateWindow(window);
  SetForegroundWindow(window);
  return window;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  const auto asked = lab::ReadCommandLine(std::span(words, static_cast<std::size_t>(count)).subspan(1));
  if (!asked) {
    std::fputs("lab-app: an unknown option\n", stderr);
    return 2;
  }
  options = *asked;
  if (Open() == nullptr) return 1;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
