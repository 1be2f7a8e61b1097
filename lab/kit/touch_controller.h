#pragma once

#include <cstdint>
#include <vector>

#include "touch/touch_control.h"

namespace lab {

using TouchBytes = std::vector<std::uint8_t>;

/// The touch controller of the C panel: a touch pad and a touch screen on the lab's bus. Any thread.
class TouchController {
 public:
  /// Installs bus and HID driver from the lab's folder, unless they are; true when the bus answers. Nothing is plugged
  /// in by it.
  bool Install();

  /// Plugs a collection in or out and waits until the system has made or dropped its HID interface. To plug in what is
  /// there succeeds.
  bool Plug(TouchDevice which);
  bool Unplug(TouchDevice which);

  /// True while the system lists the collection's HID interface.
  [[nodiscard]] bool IsPresent(TouchDevice which) const;

  /// The collection reports: report id first.
  bool Report(TouchDevice which, const TouchBytes& report);

  /// The output reports written to the collection since it was plugged in, from number `next` on; `next` moves behind
  /// them. It begins anew with a collection that was plugged in again.
  [[nodiscard]] std::vector<TouchBytes> Outputs(TouchDevice which, std::uint32_t& next) const;
};

}  // namespace lab
