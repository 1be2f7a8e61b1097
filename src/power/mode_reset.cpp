#include "power/mode_reset.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "core/log_failure.h"
#include "core/trace_log.h"
#include "display/configuration_database.h"
#include "display/display_writes.h"
#include "display/monitor_list.h"
#include "display/projection_mode.h"
#include "os/clock.h"
#include "os/devices.h"
#include "os/displays.h"
#include "power/firmware.h"
#include "power/panel_power.h"

namespace tessaview {
namespace {

using os::Topology;

/// The two names of the C panel among the stored configurations.
struct CPanelKeys {
  const wchar_t* a;
  const wchar_t* b;
};

CPanelKeys KnownCPanelKeys() {
  const bool g1 = InitGenerationCheck() == Generation::G1;
  return {g1 ? L"TSB88882290649088_1C_07DB_82" : L"TSB88882290649088_1C_07DB_26", L"TSB88882290649088_1C_07DB_8B"};
}

/// What the decision rests on.
struct Situation {
  std::vector<std::wstring> monitors;  // short keys of the monitors present
  CPanelKeys cPanel;
  bool hasCPanelKey = false;
  bool onlyOneDevice = false;  // one monitor is listed, and one monitor device is present
  Topology mode = Topology::None;

  [[nodiscard]] bool None() const { return monitors.empty(); }
  [[nodiscard]] bool Several() const { return monitors.size() >= 2; }
  [[nodiscard]] bool One() const { return monitors.size() == 1; }
  [[nodiscard]] bool OneOfMore() const { return One() && !onlyOneDevice; }
};

std::vector<std::wstring> MonitorKeys() {
  std::vector<std::wstring> keys;
  for (auto& monitor : ListConnectedMonitors()) keys.push_back(std::move(monitor.shortKey));
  return keys;
}

/// Logs what it counts.
bool OnlyOneMonitorDevice() {
  const auto classes = os::PresentDeviceClasses();
  const auto count = std::count(classes.begin(), classes.end(), L"Monitor");
  Log(L"[Timestamp] MonitorCount = %d \n", count);
  return count == 1;
}

Situation LookAround() {
  Situation now{.monitors = MonitorKeys(), .cPanel = KnownCPanelKeys()};
  Log(L"[Timestamp] MonitorList.size : %d \n", now.monitors.size());
  for (int i = 0; const auto& key : now.monitors) {
    Log(L"[Timestamp] MonitorList[%d] : %ls \n", i++, key);
    now.hasCPanelKey = now.hasCPanelKey || key == now.cPanel.a || key == now.cPanel.b;
  }
  now.mode = ProjectionMode();
  if (now.Several()) Log(L"[Timestamp] More than two monitor \n");
  if (now.One()) now.onlyOneDevice = OnlyOneMonitorDevice();
  return now;
}

// ---- What can be done ----

void LeaveAsItIs(const Situation& /*now*/) {}

void Extend(const Situation& /*now*/) {
  SetExtend();
}

void PowerOnAndExtend(const Situation& /*now*/) {
  TessaviewPowerControl(true);
  SetExtend();
}

/// The beginning of the name of the stored configuration in which the C panel comes second.
std::wstring NameWithCPanel(const std::vector<std::wstring>& monitors, const std::wstring& cPanelKey) {
  auto name = monitors.front() + L"+" + cPanelKey;
  for (auto further = std::next(monitors.begin()); further != monitors.end(); ++further) name += L"+" + *further;
  return name + L"^";
}

void MakeNewestAndPowerOn(const Situation& now) {
  const auto a = FindStoredConfiguration(NameWithCPanel(now.monitors, now.cPanel.a));
  const auto b = FindStoredConfiguration(NameWithCPanel(now.monitors, now.cPanel.b));
  Log(L"[Timestamp] %ls \n", a);
  Log(L"[Timestamp] %ls \n", b);
  const auto time = os::SystemFileTime();
  StampStoredConfiguration(a, time);
  StampStoredConfiguration(b, time);
  TessaviewPowerControl(true);
}

// ---- What is done when ----

struct Rule {
  bool (*applies)(const Situation& now);
  void (*tell)();
  void (*act)(const Situation& now);
};

void TellNothing() {}

/// The first rule that applies is carried out.
constexpr Rule kRules[] = {
    {[](const Situation& now) { return now.None(); }, [] { Log(L"[Timestamp] zero monitor \n"); }, LeaveAsItIs},

    {[](const Situation& now) { return now.Several() && now.hasCPanelKey; }, [] { Log(L"[Timestamp] set extend \n"); },
     Extend},
    {[](const Situation& now) { return now.Several() && now.mode == Topology::Clone; },
     [] { Log(L"[Timestamp] Duplicate, set power on, set extend \n"); }, PowerOnAndExtend},
    {[](const Situation& now) { return now.Several() && now.mode == Topology::Extend; },
     [] { Log(L"[Timestamp] Extend, set power on, set extend \n"); }, PowerOnAndExtend},
    {[](const Situation& now) { return now.Several(); }, TellNothing, MakeNewestAndPowerOn},

    {[](const Situation& now) { return now.OneOfMore() && now.mode == Topology::Internal; },
     [] { Log(L"[Timestamp] External another screen and PC screen only. Set power on, set extend \n"); },
     PowerOnAndExtend},
    {[](const Situation& now) { return now.OneOfMore() && now.mode == Topology::External; },
     [] { Log(L"[Timestamp] External another screen and Second screen only. Set power on, set extend \n"); },
     PowerOnAndExtend},
    {[](const Situation& now) { return now.OneOfMore() || now.hasCPanelKey; }, TellNothing, LeaveAsItIs},
    {[](const Situation& now) { return now.One(); }, [] { Log(L"[Timestamp] Only B panel \n"); }, MakeNewestAndPowerOn},
};

}  // namespace

void SetExtend() {
  const auto error = ChangeDisplays({}, {}, os::kSdcApply | os::kSdcTopologyExtend);
  if (error != 0) LogError(L"The desktop cannot be extended", static_cast<std::uint32_t>(error));
}

void ReSetTessaviewMode() {
  Log(L"[Timestamp] ReSetTessaviewMode \n");
  const auto now = LookAround();
  const auto* const rule =
      std::find_if(std::begin(kRules), std::end(kRules), [&](const Rule& known) { return known.applies(now); });
  rule->tell();
  rule->act(now);
}

}  // namespace tessaview
