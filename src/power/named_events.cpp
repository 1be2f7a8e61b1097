#include "power/named_events.h"

#include "os/kernel_objects.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kPowerEvent = L"Global\\NORV PRDXSrv Tessaview Power Event";
constexpr const wchar_t* kSwitchingEvent = L"Global\\NORV PRDXSrv Tessaview Switching Event";

void Change(const wchar_t* name, void (*change)(const os::Event&)) {
  if (const auto event = os::OpenNamedEvent(name)) change(event);
}

}  // namespace

void SetPowerEvent() {
  Change(kPowerEvent, os::SignalEvent);
}
void ResetPowerEvent() {
  Change(kPowerEvent, os::ResetEvent);
}
void ResetSwitchingEvent() {
  Change(kSwitchingEvent, os::ResetEvent);
}

}  // namespace tessaview
