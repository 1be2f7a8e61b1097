#include "display/monitor_change.h"

#include "display/display_writes.h"
#include "display/panel_orientation.h"
#include "os/displays.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kSizeFields = os::kDmPelsWidth | os::kDmPelsHeight;
constexpr std::uint32_t kTurned270 = 3;

struct PanelSize {
  std::uint32_t width, height;
  friend bool operator==(const PanelSize&, const PanelSize&) = default;
};

PanelSize Exchanged(PanelSize size) {
  return {size.height, size.width};
}

/// The size as it is when the display stands at 270 degrees.
PanelSize SizeTurned(const MonitorChange& change, const os::DisplaySettings& current) {
  if (change.width != 0 || change.height != 0) {
    return {static_cast<std::uint32_t>(change.height), static_cast<std::uint32_t>(change.width)};
  }
  const PanelSize size{current.width, current.height};
  return IsTurnedByQuarter(current.orientation) ? size : Exchanged(size);
}

}  // namespace

bool SetMonitorEx(const std::wstring& gdiName, const MonitorChange& change) {
  const auto current = os::CurrentDisplaySettings(gdiName);
  if (!current) return false;
  os::DisplaySettings wanted{.x = current->x,
                             .y = current->y,
                             .width = current->width,
                             .height = current->height,
                             .orientation = current->orientation};
  if (change.x != 0 || change.y != 0) {
    wanted.x = change.x;
    wanted.y = change.y;
    wanted.fields |= os::kDmPosition;
  }
  auto size = SizeTurned(change, *current);
  if (change.turn == Turn::To270) {
    wanted.orientation = kTurned270;
    wanted.fields |= os::kDmDisplayOrientation;
  } else if (!IsTurnedByQuarter(current->orientation)) {
    size = Exchanged(size);
  }
  if (size != PanelSize{current->width, current->height}) {
    wanted.width = size.width;
    wanted.height = size.height;
    wanted.fields |= kSizeFields;
  }
  return ChangeDisplay(gdiName, wanted) == os::kDisplayChangeSuccessful;
}

}  // namespace tessaview
