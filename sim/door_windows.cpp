#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>

#include "os/window_control.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {
namespace {

using sim::Machine;

std::wstring Number(std::int64_t number) {
  return std::to_wstring(number);
}

/// Where a window comes to: the system keeps places to 16 bits, and sizes to what is left without a sign.
Rect Kept(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
  const auto place = [](std::int32_t at) { return std::clamp(at, -0x8000, 0x7FFF); };
  const auto end = [&](std::int32_t at, std::int32_t size) { return place(at) + std::clamp(size, 0, 0x7FFF); };
  return {place(x), place(y), end(x, width), end(y, height)};
}

/// Waits until a window's thread does what it is asked for, and notes what that is. False when the window is gone.
bool Ask(WindowHandle window, std::wstring what, std::optional<std::uint64_t> deadlineMs = {}) {
  auto& desktop = Machine().desktop;
  if (!desktop.AwaitAnswer(window, deadlineMs)) return false;
  if (!what.empty()) desktop.Note(window, std::move(what));
  return true;
}

/// The same for a message that is not sent to a window which is held for hung.
bool AskInTime(WindowHandle window, std::wstring what, std::uint32_t timeoutMs) {
  const auto* found = Machine().desktop.Find(window);
  if (found == nullptr || !found->responsive) return false;
  return Ask(window, std::move(what), Machine().scheduler.NowMs() + timeoutMs);
}

}  // namespace

Status ShowWindow(WindowHandle window, ShowCommand command) {
  if (const auto call = sim::Enter<&ShowWindow>(); call.failed()) return Error{call.error()};
  if (!Ask(window, sim::ShowEntry(command))) return Error{sim::kInvalidWindowHandle};
  if (!Machine().desktop.Show(window, command)) return Error{};  // it was hidden
  return Done{};
}

void AskToShow(WindowHandle window, ShowCommand command) {
  if (sim::Enter<&AskToShow>().failed()) return;
  Machine().desktop.AskToShow(window, command);
}

Status MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
  if (const auto call = sim::Enter<&MoveWindow>(); call.failed()) return Error{call.error()};
  const auto entry = L"move " + Number(x) + L" " + Number(y) + L" " + Number(width) + L" " + Number(height);
  if (!Ask(window, entry)) return Error{sim::kInvalidWindowHandle};
  return Machine().desktop.Move(window, Kept(x, y, width, height));
}

Result<WindowPlacement> GetPlacement(WindowHandle window) {
  if (const auto call = sim::Enter<&GetPlacement>(); call.failed()) return Error{call.error()};
  return Machine().desktop.Placement(window);
}

Status SetPlacement(WindowHandle window, const WindowPlacement& placement) {
  if (const auto call = sim::Enter<&SetPlacement>(); call.failed()) return Error{call.error()};
  const auto& [left, top, right, bottom] = placement.rcNormalPosition;
  const auto entry = L"place " + Number(static_cast<std::uint32_t>(placement.showCmd)) + L" (" + Number(left) + L"," +
                     Number(top) + L"," + Number(right) + L"," + Number(bottom) + L")";
  if (!Ask(window, entry)) return Error{sim::kInvalidWindowHandle};
  return Machine().desktop.SetPlacement(window, placement);
}

Status SetTopmost(WindowHandle window, bool topmost) {
  if (const auto call = sim::Enter<&SetTopmost>(); call.failed()) return Error{call.error()};
  if (!Ask(window, topmost ? L"topmost 1" : L"topmost 0")) return Error{sim::kInvalidWindowHandle};
  Machine().desktop.SetTopmost(window, topmost);
  return Done{};
}

void SetWindowExtendedStyle(WindowHandle window, std::uint32_t style) {
  constexpr std::uint32_t kTopmost = 0x8;  // WS_EX_TOPMOST, which only SetTopmost changes
  if (sim::Enter<&SetWindowExtendedStyle>().failed()) return;
  wchar_t entry[24];
  std::swprintf(entry, std::size(entry), L"exstyle %08X", style);
  if (!Ask(window, entry)) return;
  auto& bits = Machine().desktop.Find(window)->extendedStyle;
  bits = (style & ~kTopmost) | (bits & kTopmost);
}

bool AnswersWithin(WindowHandle window, std::uint32_t timeoutMs) {
  if (sim::Enter<&AnswersWithin>().failed()) return false;
  return AskInTime(window, L"", timeoutMs);
}

bool AskToClose(WindowHandle window, std::uint32_t timeoutMs) {
  if (sim::Enter<&AskToClose>().failed() || !AskInTime(window, L"close", timeoutMs)) return false;
  Machine().desktop.AskToClose(window);
  return true;
}

}  // namespace os
