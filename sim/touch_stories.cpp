// What happens on the touch controller by itself: it comes and goes, and fingers move on it.

#include <utility>

#include "sim/touch_controller.h"

namespace sim {
namespace {

constexpr std::uint8_t kScreenReport = 1, kTouching = 1;

os::Bytes ScreenReport(const HidCollection& screen, std::uint8_t flags) {
  os::Bytes report(screen.capabilities.inputReportLength);
  report[0] = kScreenReport;
  report[1] = flags;
  return report;
}

}  // namespace

void TouchController::PlugAfter(std::uint32_t ms) {
  Unplug();
  scheduler_.After(ms, [this] { Plug(); });
}

void TouchController::Contact(int reports) {
  for (int i = 0; i < reports; ++i) Report(ScreenReport(*touchScreen_, kTouching));
}

void TouchController::Lift() {
  Report(ScreenReport(*touchScreen_, 0));
}

void TouchController::Report(os::Bytes report) {
  ReportFrom(*touchScreen_, std::move(report));
}

void TouchController::PadReport(os::Bytes report) {
  ReportFrom(*touchPad_, std::move(report));
}

void TouchController::ReportFrom(const HidCollection& collection, os::Bytes report) {
  os::RawInput input;
  input.type = os::kRawInputHid;
  Deliver(collection, std::move(report), input);
}

void TouchController::Deliver(const HidCollection& collection, os::Bytes report, os::RawInput input) {
  if (!collection.Works() || !RawInputReaches(collection.capabilities.usagePage)) return;
  input.device = collection.raw;
  window_.Post([input, report = std::move(report)](const os::ServiceWindowEvents& events) {
    auto arrived = input;
    arrived.report = report;
    events.rawInput(arrived);
  });
  scheduler_.SettleStory();
}

}  // namespace sim
