#include "core/service_window.h"

#include "core/state.h"
#include "os/service_window.h"

namespace tessaview {
namespace {

Shared<os::WindowHandle> gWindow;

constexpr std::uint32_t PeriodMs(ServiceTimer timer) {
  switch (timer) {
    case ServiceTimer::Update:
      return 3'600'000;
    case ServiceTimer::RetailDemo:
      return 300'000;
    case ServiceTimer::RetailDemoClone:
      return 180'000;
  }
  return 0;
}

}  // namespace

os::WindowHandle gServiceWindow() {
  return gWindow.get();
}

void SetServiceWindow(os::WindowHandle window) {
  gWindow.set(window);
}

void StartServiceTimer(ServiceTimer timer) {
  os::StartTimer(gWindow.get(), static_cast<std::uint64_t>(timer), PeriodMs(timer));
}

void StopServiceTimer(ServiceTimer timer) {
  os::StopTimer(gWindow.get(), static_cast<std::uint64_t>(timer));
}

}  // namespace tessaview
