#include "touch/report_thinning.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kForwardEvery = 3;

constexpr std::uint8_t kTouchReport = 1, kTouchIsDown = 0x01;
constexpr std::uint8_t kPadReport = 17, kPadIsDown = 0x02;

/// True for a touch report that says that the finger went up: report 1 with flag bit 0 clear, or report 17 with flag
/// bit 1 clear. Byte 0 of a report is its id, byte 1 its flags; a shorter report is no lift.
bool IsLift(os::BytesView report) {
  if (report.size() < 2) return false;
  const auto id = report[0], flags = report[1];
  return (id == kTouchReport && (flags & kTouchIsDown) == 0) || (id == kPadReport && (flags & kPadIsDown) == 0);
}

}  // namespace

ThinningStep ThinReports(std::uint32_t counter, os::BytesView report) {
  const bool lift = IsLift(report);
  return {.forward = lift || counter % kForwardEvery == 0, .nextCounter = lift ? 0 : counter + 1};
}

}  // namespace tessaview
