#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <iterator>

#include "os/types.h"

namespace lab {

/// The record that controller and UI exchange by WM_COPYDATA, as it lies in memory on Windows.
struct UiMessage {
  wchar_t text[260];     // ends with a NUL
  std::uint64_t handle;  // a window, or a number in the low 32 bits
  std::int32_t rect[4];  // left, top, right, bottom
  std::int32_t point[2];
};
static_assert(sizeof(UiMessage) == 552 && offsetof(UiMessage, handle) == 520 && offsetof(UiMessage, point) == 544);

/// What a record carries beside its text.
struct UiValues {
  std::uint64_t handle = 0;
  os::Point point = {};
  os::Rect rect = {};
};

/// A record of this text, cut to what it has room for.
inline UiMessage MakeUiMessage(const wchar_t* text, const UiValues& values) {
  const auto& [left, top, right, bottom] = values.rect;
  UiMessage message{{}, values.handle, {left, top, right, bottom}, {values.point.x, values.point.y}};
  wcsncpy(message.text, text, std::size(message.text) - 1);
  return message;
}

/// Kinds of WM_COPYDATA, its wParam.
inline constexpr WPARAM kRawTouchKind = 101;   // controller to UI: one HID report
inline constexpr WPARAM kUiMessageKind = 102;  // both ways: a UiMessage
inline constexpr WPARAM kPleaseSend = 900;     // lab to stand-in UI: a UiMessage that it shall send to the controller
inline constexpr WPARAM kPleaseHang = 901;  // lab to stand-in UI: a UiMessage; serves nothing until kWakeEvent is set
/// Lab to stand-in UI: a UiMessage with a text of the controller's, a blank and a command. Whenever it is told that
/// text it serves nothing for so many milliseconds as the record's number says, then sends the command, and only then
/// answers.
inline constexpr WPARAM kPleaseAskBack = 902;

/// Set by the lab, it ends a hang of the stand-in UI (auto-reset).
inline constexpr wchar_t kWakeEvent[] = L"TessaviewLabWake";

// The UI's window classes, its own and those of the first-run guide and of the video.
inline constexpr wchar_t kUiClass[] = L"Tessaview";
inline constexpr wchar_t kUiGuideClass[] = L"TessaviewQuickGuide";
inline constexpr wchar_t kUiVideoClass[] = L"TessaviewVideoClass";
inline constexpr wchar_t kControllerClass[] = L"TESSAVIEWSERVICE";

/// Sends one record and waits until the other side has taken it, at most 10 s; false when nobody has.
inline bool SendUiMessage(HWND to, WPARAM kind, const UiMessage& message) {
  COPYDATASTRUCT data{0, sizeof message, const_cast<UiMessage*>(&message)};
  DWORD_PTR result = 0;
  constexpr UINT kPatienceMs = 10000;
  return to != nullptr && SendMessageTimeoutW(to, WM_COPYDATA, kind, reinterpret_cast<LPARAM>(&data), SMTO_NORMAL,
                                              kPatienceMs, &result) != 0;
}

}  // namespace lab
