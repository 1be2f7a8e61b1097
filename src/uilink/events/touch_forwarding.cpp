#include "core/input_hooks.h"
#include "core/state.h"
#include "os/trace.h"
#include "touch/raw_input.h"
#include "touch/report_thinning.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/events/events.h"

namespace tessaview {
namespace {

MainThreadOnly<std::uint32_t> gReportCounter;  // reports since the last lift

bool IsFromCPanel(const os::RawInput& input) {
  if (input.type != os::kRawInputHid || input.device == os::RawDevice::None) return false;
  return input.device == gRawTouchScreen() || input.device == gRawTouchPad();
}

}  // namespace

void OnRawInput(const os::RawInput& input) {
  if (!input.sizeMatches) os::WriteDebugText(L"GetRawInputData does not return correct size !\n");
  if (!IsFromCPanel(input) || input.report.empty()) return;
  const auto step = ThinReports(*gReportCounter, input.report);
  if (step.forward) SendTouchReport(input.report);
  *gReportCounter = step.nextCounter;
  ComparePointerWithHook();
}

}  // namespace tessaview
