#pragma once

#include <cstdint>
#include <vector>

#include "sim/desktop.h"
#include "sim/service_window.h"

namespace sim {

/// The firmware's hot-key component: what it posts to the controller, as a process of lower integrity, and what the
/// controller posts to it. The laptop settles after each step.
class HotKey {
 public:
  HotKey(Scheduler& scheduler, Desktop& desktop, ServiceWindow& window)
      : scheduler_(scheduler), desktop_(desktop), window_(window) {}

  static constexpr auto kHotKeyMessage = L"ACPI Notification through ZRVHotkey from BIOS";
  static constexpr auto kTouchPadMessage = L"Touchpad status reported from ZRVHotkey";

  void PressF6(int times = 1);
  /// The end of a sequence of F6 presses: 2 switches the panel off, 3 on.
  void EndF6(std::int64_t lParam) { Notify(0xF9, lParam); }
  /// A whole sequence, from its first press to its end.
  void UseF6(std::int64_t lParam, int times = 1) {
    PressF6(times);
    EndF6(lParam);
  }
  void FlipChanged() { Notify(0xFA, 0); }
  /// Any hot-key notification.
  void Notify(std::uint64_t wParam, std::int64_t lParam) { Post(kHotKeyMessage, wParam, lParam); }
  /// `wParam` 3 is a report; then `lParam` is 0 disabled, 1 enabled, 2 unknown.
  void TouchPadStatus(std::uint64_t wParam, std::int64_t lParam) { Post(kTouchPadMessage, wParam, lParam); }

  /// What was posted to its window, of class "HCONTROL" and title "HControl"; nothing while that is gone.
  [[nodiscard]] std::vector<PostedMessage> Received() const;
  /// The component is not there.
  void Remove();

 private:
  void Post(const wchar_t* message, std::uint64_t wParam, std::int64_t lParam);

  Scheduler& scheduler_;
  Desktop& desktop_;
  ServiceWindow& window_;
};

}  // namespace sim
