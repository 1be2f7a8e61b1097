#include "core/service_timers.h"

#include "core/service_state.h"
#include "os/service_window.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kUpdatePeriodMs = 3'600'000;
constexpr std::uint32_t kRetailDemoMs = 300'000;

}  // namespace

void StartUpdateTimer() {
  os::StartTimer(gServiceWindow.get(), kUpdateTimer, kUpdatePeriodMs);
}

void StartRetailDemoTimer() {
  os::StartTimer(gServiceWindow.get(), kRetailDemoTimer, kRetailDemoMs);
}

}  // namespace tessaview
