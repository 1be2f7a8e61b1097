#include "contract/other_program.h"

#include <cstring>
#include <string_view>
#include <utility>

#include "tests/contract/world.h"

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

HWND Open(const wchar_t* className, const wchar_t* title, DWORD style, const RECT& at, HWND parentOrOwner) {
  return CreateWindowExW(0, className, title, style | WS_VISIBLE, at.left, at.top, at.right - at.left,
                         at.bottom - at.top, parentOrOwner, nullptr, GetModuleHandleW(nullptr), nullptr);
}

LRESULT AnswerOf(HWND window) {
  return reinterpret_cast<LRESULT>(window);
}

LRESULT Serve(HWND window, Request request, LPARAM parameter) {
  auto* const journal = SharedJournal();
  switch (request) {
    case Request::Hang:
      for (journal->hangs = 1; journal->hangs != 0;) Sleep(5);
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
  if (what == L"--window" && count == 2) return ServeWindow();
  if (what != L"--last") return {};
  Sleep(kLastingMs);
  return 0;
}

}  // namespace contract
