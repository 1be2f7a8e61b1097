#include "touch/touch_pad.h"

#include <algorithm>
#include <array>

#include "os/trace.h"
#include "touch/touch_pad_search.h"
#include "touch/touch_pad_state.h"

namespace tessaview {
namespace {

/// The output report that switches the controller's pad to cursor mode; the rest of the report is zero.
constexpr std::array<std::uint8_t, 12> kCursorMode = {kModeReportId, 0x00, 0x09, 0xA1, 0x00, 0x00,
                                                      0x0F,          0x00, 0x00, 0x00, 0x08, 0x70};

os::Bytes ModeReport(std::uint32_t length) {
  os::Bytes report(length);
  std::copy_n(kCursorMode.begin(), std::min<std::size_t>(length, kCursorMode.size()), report.begin());
  return report;
}

}  // namespace

bool FindTouchPadHid() {
  auto pad = gTouchPad.get();
  const bool isControllerKnown = pad.vendorId != 0 || pad.productId != 0;
  const bool found = isControllerKnown ? OpenModeCollection(pad) : FindController(pad);
  gTouchPad.set(pad);
  return found;
}

bool SearchTouchPadAgain() {
  gTouchPad.set({});
  FindTouchPadHid();
  const bool found = FindTouchPadHid() && gTouchPad.get().writeHandle != nullptr;
  gTouchPadFound.set(found);
  return found;
}

bool SetModetoTouchPad() {
  const auto pad = gTouchPad.get();
  if (!gTouchPadFound.get() || pad.writeHandle == nullptr) {
    os::WriteDebugText(L"Connect failed! SetModetoTouchPad failed.\n");
    return false;
  }
  return os::WriteHidReport(*pad.writeHandle, ModeReport(pad.outputReportLength));
}

}  // namespace tessaview
