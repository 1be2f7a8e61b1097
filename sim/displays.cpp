#include "sim/displays.h"

#include <algorithm>
#include <utility>

#include "sim/edid.h"
#include "sim/text.h"

namespace sim {
namespace {

constexpr std::int32_t kBadParameter = -5;  // DISP_CHANGE_BADPARAM
constexpr wchar_t kMonitorInterface[] = L"#{e6f07b5f-ee97-4a90-b076-33f57bf4eaa7}";

/// The path of a device interface: the instance id with other separators, and the interface's class.
std::wstring InterfacePath(std::wstring instanceId) {
  std::replace(instanceId.begin(), instanceId.end(), L'\\', L'#');
  return L"\\\\?\\" + instanceId + kMonitorInterface;
}

Screen MakeBPanel() {
  return {.instanceId = L"DISPLAY\\BOE0D53\\4&1b1f3fd7&0&UID8388688",
          .friendlyName = L"",
          .edid = Edid{.manufacturer = "BOE", .product = 0x0D53, .week = 12}.Encode(),
          .targetId = 8388688,
          .address = 8388688};
}

/// Mounted upright: its own top is at the left, so it shows a lying picture when turned by 270 degrees.
Screen MakeCPanel() {
  const Edid edid{.manufacturer = "TSB",
                  .product = 0x8888,
                  .serial = 2290649088,
                  .week = 0x1C,
                  .year = 2011,
                  .width = 515,
                  .height = 1920,
                  .checksum = 0x26};
  return {.instanceId = L"DISPLAY\\TSB8888\\4&1b1f3fd7&0&UID8392784",
          .friendlyName = L"",
          .edid = edid.Encode(),
          .nativeWidth = 515,
          .nativeHeight = 1920,
          .targetId = 8392784,
          .address = 8392784,
          .y = 1080,
          .width = 1920,
          .height = 515,
          .orientation = 3,
          .rotation = os::kRotation270};
}

}  // namespace

Displays::Displays(Scheduler& scheduler, Registry& registry) : scheduler_(scheduler), registry_(registry) {
  AddMonitor(MakeBPanel());
  AddMonitor(MakeCPanel());
}

Screen& Displays::AddMonitor(Screen screen) {
  const auto number = static_cast<std::uint32_t>(screens_.size()) + 1;
  if (screen.targetId == 0) screen.targetId = 4352 + number;
  if (screen.sourceId == 0) screen.sourceId = number - 1;
  if (screen.gdiName.empty()) screen.gdiName = L"\\\\.\\DISPLAY" + std::to_wstring(number);
  if (screen.instanceId.empty()) {
    screen.instanceId = L"DISPLAY\\GEN0001\\4&1b1f3fd7&0&UID" + std::to_wstring(screen.targetId);
  }
  if (screen.devicePath.empty()) screen.devicePath = InterfacePath(screen.instanceId);
  screens_.push_back(std::move(screen));
  return screens_.back();
}

Screen& Displays::AddPrimary(const os::Point& bPanelAt, Screen screen) {
  const auto from = bPanel().Area();
  for (auto& other : screens_) other.MoveTo(other.x - from.left + bPanelAt.x, other.y - from.top + bPanelAt.y);
  screen.MoveTo(0, 0);
  return AddMonitor(std::move(screen));
}

void Displays::RemoveAll() {
  for (auto& screen : screens_) screen.Unplug();
}

void Displays::AppearsAfter(Screen& screen, std::uint32_t ms) {
  screen.Unplug();
  scheduler_.After(ms, [this, &screen] {
    screen.Plug();
    TakeUpNewest();
    LayOutAndTell();
  });
}

void Displays::Project(os::Topology choice) {
  topology = choice;
  const bool firstShows = choice != os::Topology::External, othersShow = choice != os::Topology::Internal;
  for (auto& screen : screens_) screen.attached = &screen == &bPanel() ? firstShows : othersShow;
}

void Displays::ForgetChanges() {
  settingsChanges_.clear();
  configurationChanges_.clear();
}

template <class Wanted>
const Screen* Displays::First(Wanted isIt) const {
  const auto found = std::find_if(screens_.begin(), screens_.end(), isIt);
  return found == screens_.end() ? nullptr : &*found;
}

const Screen* Displays::Door::FindSource(const os::DisplayPath& path) const {
  return First([&](const auto& s) { return s.sourceId == path.source.id && s.adapter == path.source.adapter; });
}

const Screen* Displays::Door::FindTarget(const os::DisplayPath& path) const {
  return First(
      [&](const auto& s) { return s.plugged && s.targetId == path.target.id && s.adapter == path.target.adapter; });
}

/// A cloned display shows the picture of the first one's source; its own source shows nothing.
bool Displays::MirrorsFirst(const Screen& screen) const {
  return topology == os::Topology::Clone && &screen != &screens_[0] && screens_[0].OnDesktop();
}

const Screen* Displays::FindGdiName(const std::wstring& name) const {
  return First([&](const auto& s) { return s.gdiName == name; });
}

Screen* Displays::Door::Named(const std::wstring& gdiName) {
  return const_cast<Screen*>(FindGdiName(gdiName));
}

std::int32_t Displays::Door::ChangeSettings(const std::wstring& gdiName, const os::DisplaySettings& settings,
                                            std::uint32_t flags) {
  auto* screen = Named(gdiName);
  const auto result = screen == nullptr || !screen->plugged ? kBadParameter : screen->Apply(settings);
  settingsChanges_.push_back({gdiName, settings, flags, result});
  if (result == os::kDisplayChangeSuccessful) LayOutAndTell();
  return result;
}

std::optional<os::Bytes> Displays::Door::DeviceParameter(const std::wstring& key, const std::wstring& value) const {
  if (Lower(value) != L"edid") return std::nullopt;
  for (const auto& screen : screens_) {
    const auto node = L"SYSTEM\\CurrentControlSet\\Enum\\" + screen.instanceId + L"\\Device Parameters";
    if (Lower(node) == Lower(key) && !screen.edid.empty()) return screen.edid;
  }
  return std::nullopt;
}

}  // namespace sim
