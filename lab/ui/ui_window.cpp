#include "ui/ui_window.h"

#include <windows.h>

#include <map>
#include <string>

#include "kit/text_pipe.h"
#include "ui/talk.h"
#include "ui/ui_message.h"

namespace lab {
namespace {

Talk talk;
HANDLE journal = INVALID_HANDLE_VALUE;
std::wstring ownName;

void Tell(const std::wstring& event) {
  const std::wstring line = ownName + event;
  DWORD written = 0;
  if (journal != INVALID_HANDLE_VALUE) {
    WriteFile(journal, line.data(), static_cast<DWORD>(line.size() * sizeof(wchar_t)), &written, nullptr);
  }
}

// ---- What it shows ----

void DrawLine(HDC to, const std::wstring& text, RECT area, int height, COLORREF colour, UINT format) {
  const HFONT font =
      CreateFontW(-height, 0, 0, 0, FW_SEMIBOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                  CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH, L"Tahoma");
  const HGDIOBJ before = SelectObject(to, font);
  SetTextColor(to, colour);
  DrawTextW(to, text.c_str(), -1, &area, format | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(to, before);
  DeleteObject(font);
}

/// The finger's way over the panel, which may pass under the texts.
void DrawTrail(HDC to, const RECT& all) {
  constexpr int kRadius = 26;
  const HGDIOBJ brush = SelectObject(to, CreateSolidBrush(RGB(236, 150, 40)));
  const HGDIOBJ pen = SelectObject(to, GetStockObject(NULL_PEN));
  for (const auto& [x, y] : talk.trail()) {
    const int left = x * all.right / kTouchRange, top = y * all.bottom / kTouchRange;
    Ellipse(to, left - kRadius, top - kRadius, left + kRadius, top + kRadius);
  }
  SelectObject(to, pen);
  DeleteObject(SelectObject(to, brush));
}

/// The state and the last text large on the left, the talk so far on the right.
void Paint(HWND window) {
  PAINTSTRUCT paint{};
  const HDC to = BeginPaint(window, &paint);
  const bool off = talk.panelOn() == false;
  const wchar_t* title = !talk.panelOn() ? L"Tessaview" : off ? L"C panel off" : L"C panel on";
  RECT all{};
  GetClientRect(window, &all);
  const HBRUSH background = CreateSolidBrush(off ? RGB(24, 24, 24) : RGB(18, 70, 110));
  FillRect(to, &all, background);
  DeleteObject(background);
  SetBkMode(to, TRANSPARENT);
  if (!off) DrawTrail(to, all);

  const COLORREF bright = off ? RGB(130, 130, 130) : RGB(255, 255, 255);
  const LONG middle = all.right / 2;
  DrawLine(to, title, {40, 30, middle, 170}, 110, bright, DT_LEFT);
  if (!talk.lastReceived().empty()) DrawLine(to, L"last told", {40, 230, middle, 290}, 36, RGB(150, 180, 200), DT_LEFT);
  constexpr std::size_t kFewLetters = 16;
  const int height = talk.lastReceived().size() > kFewLetters ? 38 : 64;
  DrawLine(to, talk.lastReceived(), {40, 290, middle, 420}, height, bright, DT_LEFT);
  if (!talk.overlay().empty()) {
    DrawLine(to, L"overlay  " + talk.overlay(), {40, 440, middle, 500}, 36, RGB(236, 190, 110), DT_LEFT);
  }
  constexpr LONG kLineHeight = 52;
  LONG top = 24;
  for (const auto& line : talk.lines()) {
    DrawLine(to, line, {middle, top, all.right, top + kLineHeight}, 34, bright, DT_LEFT);
    top += kLineHeight;
  }
  EndPaint(window, &paint);
}

// ---- What it does ----

/// A hang, as far as others can see: whoever asked for it has his answer already.
void Hang() {
  ReplyMessage(TRUE);
  const HANDLE wake = CreateEventW(nullptr, FALSE, FALSE, kWakeEvent);
  Tell(L"hangs");
  WaitForSingleObject(wake, INFINITE);
  CloseHandle(wake);
  Tell(L"woke");
}

void Send(const UiMessage& message) {
  Tell(L"sent " + talk.Sent(message));
  if (!SendUiMessage(FindWindowW(kControllerClass, nullptr), kUiMessageKind, message)) Tell(L"waited in vain");
}

// ---- What it asks back, before it has answered a text ----

struct Question {
  DWORD busyMs;
  std::wstring command;
};

std::map<std::wstring, Question> questions;  // by the text

void LearnQuestion(const UiMessage& message) {
  const std::wstring words = message.text;
  const auto blank = words.find(L' ');
  questions[words.substr(0, blank)] = {static_cast<DWORD>(message.handle), words.substr(blank + 1)};
}

void AskBack(const std::wstring& text) {
  const auto found = questions.find(text);
  if (found == questions.end()) return;
  const auto question = found->second;
  Sleep(question.busyMs);
  Send(MakeUiMessage(question.command.c_str(), {}));
  Tell(L"answers " + text);
}

// ---- What it takes ----

/// The record of a WM_COPYDATA; null when it is none.
const UiMessage* RecordOf(const COPYDATASTRUCT& data) {
  return data.cbData == sizeof(UiMessage) ? static_cast<const UiMessage*>(data.lpData) : nullptr;
}

void TakeData(HWND window, WPARAM kind, const COPYDATASTRUCT& data) {
  if (kind == kPleaseHang) return Hang();
  if (kind == kRawTouchKind) {
    Tell(L"received " + talk.Touched(static_cast<const unsigned char*>(data.lpData), data.cbData));
  } else if (const UiMessage* message = RecordOf(data); message != nullptr && kind == kUiMessageKind) {
    const std::wstring text = message->text;
    Tell(L"received " + talk.Received(*message));
    AskBack(text);
  } else if (message != nullptr && kind == kPleaseSend) {
    const UiMessage copy = *message;
    Send(copy);
  } else if (message != nullptr && kind == kPleaseAskBack) {
    LearnQuestion(*message);
  }
  InvalidateRect(window, nullptr, FALSE);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COPYDATA:
      TakeData(window, wParam, *reinterpret_cast<const COPYDATASTRUCT*>(lParam));
      return TRUE;
    case WM_PAINT:
      Paint(window);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

/// The C panel is the monitor that is not the primary one; an empty rectangle when there is none.
RECT CPanelArea() {
  RECT area{};
  const auto look = [](HMONITOR monitor, HDC, LPRECT rect, LPARAM result) -> BOOL {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(monitor, &info);
    if ((info.dwFlags & MONITORINFOF_PRIMARY) == 0) *reinterpret_cast<RECT*>(result) = *rect;
    return TRUE;
  };
  EnumDisplayMonitors(nullptr, nullptr, look, reinterpret_cast<LPARAM>(&area));
  return area;
}

}  // namespace

int RunUiWindow(const wchar_t* className, const std::wstring& name) {
  ownName = name.empty() ? name : name + L" ";
  journal = CreateFileW(kUiPipe, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = className;
  RegisterClassW(&windowClass);
  const RECT area = CPanelArea();
  const HWND window =
      CreateWindowExW(WS_EX_NOACTIVATE, className, L"Tessaview", WS_POPUP | WS_VISIBLE, area.left, area.top,
                      area.right - area.left, area.bottom - area.top, nullptr, nullptr, windowClass.hInstance, nullptr);
  if (window == nullptr) return 1;
  Tell(L"started");
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}

}  // namespace lab
