#include "contract/other_program.h"

#include <cstring>
#include <string_view>

namespace contract {
namespace {

void Note(std::uint64_t kindOrMessage, std::uint64_t wParam, std::int64_t lParam, const COPYDATASTRUCT* data) {
  auto* const journal = SharedJournal();
  const auto at = static_cast<std::size_t>(journal->count);
  if (at >= kToldMost) return;
  auto& entry = journal->entries[at];
  entry = {kindOrMessage, wParam, lParam, 0, {}};
  if (data != nullptr && data->cbData <= entry.bytes.size()) {
    entry.size = data->cbData;
    if (data->cbData != 0) std::memcpy(entry.bytes.data(), data->lpData, data->cbData);
  }
  InterlockedIncrement(&journal->count);
}

/// Until the contracts say that it no longer hangs.
void Hang() {
  auto* const journal = SharedJournal();
  for (journal->hangs = 1; journal->hangs != 0;) Sleep(5);
}

LRESULT AnswerOf(HWND window) {
  return reinterpret_cast<LRESULT>(window);
}

LRESULT Serve(HWND window, Request request, LPARAM parameter) {
  const HINSTANCE program = GetModuleHandleW(nullptr);
  switch (request) {
    case Request::Hang:
      Hang();
      return 0;
    case Request::OpenChild: {
      WNDCLASSW childClass{};
      childClass.lpfnWndProc = DefWindowProcW;
      childClass.hInstance = program;
      childClass.lpszClassName = kOtherChild;
      RegisterClassW(&childClass);
      return AnswerOf(CreateWindowExW(0, kOtherChild, L"", WS_CHILD | WS_VISIBLE, 20, 20, 150, 100, window, nullptr,
                                      program, nullptr));
    }
    case Request::OpenDialog: {
      std::array<wchar_t, 64> className{};
      GetClassNameW(window, className.data(), static_cast<int>(className.size()));
      return AnswerOf(CreateWindowExW(0, className.data(), L"A dialog", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE,
                                      600, 150, 300, 200, window, nullptr, program, nullptr));
    }
    case Request::Raise:
      NotifyWinEvent(LOWORD(parameter), window, static_cast<SHORT>(HIWORD(parameter)), CHILDID_SELF);
      return 0;
  }
  return 0;
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  constexpr UINT kFirstRegistered = 0xC000;
  if (message == RequestMessage()) return Serve(window, static_cast<Request>(wParam), lParam);
  if (message == WM_COPYDATA) {
    Note(wParam, 0, 0, reinterpret_cast<const COPYDATASTRUCT*>(lParam));
  } else if (message >= kFirstRegistered) {
    Note(message, wParam, lParam, nullptr);
  } else if (message == WM_DESTROY) {
    if (GetWindow(window, GW_OWNER) == nullptr) PostQuitMessage(0);
  } else {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  return 0;
}

int ServeWindow(const wchar_t* className, const wchar_t* title) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = className;
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, className, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 400, 300,
                                      nullptr, nullptr, windowClass.hInstance, nullptr);
  SetForegroundWindow(window);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}

}  // namespace

WindowJournal* SharedJournal() {
  static auto* const journal = [] {
    const HANDLE memory = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(WindowJournal),
                                             L"TessaviewContractJournal");
    return static_cast<WindowJournal*>(MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(WindowJournal)));
  }();
  return journal;
}

UINT RequestMessage() {
  static const UINT message = RegisterWindowMessageW(L"Tessaview Contract Request");
  return message;
}

std::optional<int> RunAsOtherProgram(int count, wchar_t** arguments) {
  constexpr DWORD kLastingMs = 2000;
  const std::wstring_view what = count > 1 ? arguments[1] : L"";
  if (what == L"--exit" && count == 3) return static_cast<int>(std::wcstoul(arguments[2], nullptr, 10));
  if (what == L"--window" && count == 4) return ServeWindow(arguments[2], arguments[3]);
  if (what != L"--last") return {};
  Sleep(kLastingMs);
  return 0;
}

}  // namespace contract
