#include "core/service_timers.h"

#include "core/service_state.h"
#include "os/service_window.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kUpdatePeriodMs = 3'600'000;
constexpr std::uint32_t kRetailDemoMs = 300'000;
constexpr std::uint32_t kRetailDemoCloneMs = 180'000;
constexpr std::uint32_t kDesktopPeriodMs = 100;

void Start(std::uint64_t id, std::uint32_t periodMs) {
  os::StartTimer(gServiceWindow.get(), id, periodMs);
}

void Stop(std::uint64_t id) {
  os::StopTimer(gServiceWindow.get(), id);
}

}  // namespace

void StartUpdateTimer() {
  Start(kUpdateTimer, kUpdatePeriodMs);
}

void StartRetailDemoTimer() {
  Start(kRetailDemoTimer, kRetailDemoMs);
}

void StopRetailDemoTimer() {
  Stop(kRetailDemoTimer);
}

void StartRetailDemoCloneTimer() {
  Start(kRetailDemoCloneTimer, kRetailDemoCloneMs);
}

void StopRetailDemoCloneTimer() {
  Stop(kRetailDemoCloneTimer);
}

void StartDesktopTimer() {
  Start(kDesktopTimer, kDesktopPeriodMs);
}

void StopDesktopTimer() {
  Stop(kDesktopTimer);
}

}  // namespace tessaview
