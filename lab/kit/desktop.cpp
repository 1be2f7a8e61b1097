#include "kit/desktop.h"

#include <windows.h>

#include <deque>
#include <mutex>
#include <thread>

#include "kit/journal.h"

namespace lab {
namespace {

constexpr wchar_t kDesktopClass[] = L"TessaviewLabDesktop";
constexpr std::size_t kLinesShown = 38;
constexpr int kLineHeight = 27;

std::mutex mutex;
std::deque<std::wstring> lines;

/// Headings, what happened to the laptop and how a check came out stand out from what was merely seen.
COLORREF ColourOf(const std::wstring& line) {
  if (!line.starts_with(L"  ")) return RGB(0, 70, 130);
  if (line.starts_with(L"  laptop ")) return RGB(150, 80, 0);
  if (line.starts_with(L"  ok ")) return RGB(0, 115, 50);
  if (line.starts_with(L"  NOT SO ")) return RGB(190, 0, 0);
  return RGB(70, 74, 80);
}

void Paint(HWND window) {
  PAINTSTRUCT paint{};
  const HDC to = BeginPaint(window, &paint);
  RECT area{};
  GetClientRect(window, &area);
  const HBRUSH background = CreateSolidBrush(RGB(236, 238, 240));
  FillRect(to, &area, background);
  DeleteObject(background);
  const HFONT font = CreateFontW(-20, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                 CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New");
  const HGDIOBJ before = SelectObject(to, font);
  SetBkMode(to, TRANSPARENT);
  int y = 20;
  const std::lock_guard lock(mutex);
  for (const auto& line : lines) {
    SetTextColor(to, ColourOf(line));
    TextOutW(to, 30, y, line.c_str(), static_cast<int>(line.size()));
    y += kLineHeight;
  }
  SelectObject(to, before);
  DeleteObject(font);
  EndPaint(window, &paint);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return 1;
  if (message != WM_PAINT) return DefWindowProcW(window, message, wParam, lParam);
  Paint(window);
  return 0;
}

void ServeDesktop() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kDesktopClass;
  RegisterClassW(&windowClass);
  const HWND window =
      CreateWindowExW(0, kDesktopClass, L"Desktop", WS_POPUP | WS_VISIBLE, 0, 0, GetSystemMetrics(SM_CXSCREEN),
                      GetSystemMetrics(SM_CYSCREEN), nullptr, nullptr, windowClass.hInstance, nullptr);
  if (window == nullptr) return;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

}  // namespace

bool OpenDesktop() {
  static std::once_flag opened;
  std::call_once(opened, [] { std::thread(ServeDesktop).detach(); });
  return Eventually([] {
    const HWND window = FindWindowW(kDesktopClass, nullptr);
    if (window == nullptr) return false;
    SetForegroundWindow(window);
    return GetForegroundWindow() == window;
  });
}

void ShowOnDesktop(const std::wstring& line) {
  {
    const std::lock_guard lock(mutex);
    lines.push_back(line);
    if (lines.size() > kLinesShown) lines.pop_front();
  }
  if (const HWND window = FindWindowW(kDesktopClass, nullptr)) InvalidateRect(window, nullptr, FALSE);
}

}  // namespace lab
