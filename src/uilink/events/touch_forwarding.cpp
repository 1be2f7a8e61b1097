#include <algorithm>

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

void Forward(os::BytesView report) {
  const auto step = ThinReports(*gReportCounter, report);
  if (step.forward) SendTouchReport(report);
  *gReportCounter = step.nextCounter;
}

}  // namespace

void OnRawInput(const os::RawInput& input) {
  if (!input.sizeMatches) os::WriteDebugText(L"GetRawInputData does not return correct size !\n");
  if (input.type != os::kRawInputHid || input.reports.empty() || !IsFromCPanel(input.device)) return;
  auto rest = input.reports;
  while (!rest.empty()) {
    const auto report = rest.first(std::min<std::size_t>(input.reportSize, rest.size()));
    Forward(report);
    rest = rest.subspan(report.size());
  }
  ComparePointerWithHook();
}

}  // namespace tessaview
