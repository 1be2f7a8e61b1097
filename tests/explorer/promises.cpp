#include "tests/explorer/promises.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <set>

#include "tests/drags.h"

namespace explorer {
namespace {

using namespace support;

constexpr std::size_t kMostChangesPerEvent = 24;
constexpr std::uint32_t kBatterySaverLevel = 58;
constexpr std::uint64_t kMinuteMs = 60'000;

/// The panel's own registers; power is only ever switched off by its register.
bool MayBeWritten(const sim::FirmwareRequest& request) {
  switch (request.id) {
    case Firmware::kPower:
      return request.value == 0;
    case Firmware::kBacklight:
      return request.value >= 10 && request.value <= 255;
    case Firmware::kRefreshRate:
    case Firmware::kLidCloseAction:
      return request.value <= 1;
    default:
      return false;
  }
}

/// A list of what is not as promised.
class Expectations {
 public:
  explicit Expectations(Broken& broken) : broken_(broken) {}
  void Expect(bool holds, std::string what) {
    if (!holds) broken_.push_back(std::move(what));
  }

 private:
  Broken& broken_;
};

std::size_t Changes(const Life& laptop) {
  return laptop.displays.SettingsChanges().size() + laptop.displays.ConfigurationChanges().size();
}

}  // namespace

Broken Watcher::Look(const Life& laptop) {
  Broken broken;
  Expectations promises(broken);
  promises.Expect(laptop.trace.Malformed().empty(), "a log line is malformed");
  promises.Expect(laptop.mouseHook.LongestHoldUpMs() == 0, "the pointer is held up");
  promises.Expect(laptop.keyboardHook.LongestHoldUpMs() == 0, "a key is held up");
  const auto& requests = laptop.firmware.Requests();
  for (; requests_ < requests.size(); ++requests_) {
    const auto& request = requests[requests_];
    const bool isWrite = request.method == sim::FirmwareRequest::Method::Write;
    promises.Expect(!isWrite || MayBeWritten(request), "a firmware register gets what it must not");
  }
  // A repair that half of the questions contradict goes on while they do.
  const auto most = laptop.faults.plan ? 20 * kMostChangesPerEvent : kMostChangesPerEvent;
  promises.Expect(Changes(laptop) - changes_ <= most, "an event changes the displays without end");
  changes_ = Changes(laptop);
  for (const auto& program : laptop.processes.EndedByController()) {
    promises.Expect(laptop.hung.contains(program), "a program is ended that never hung");
  }
  for (const auto& copy : laptop.files.Copies()) {
    promises.Expect(copy.asUser.has_value(), "a file is copied with the system's rights");
  }
  return broken;
}

// ---- At rest ----

namespace {

/// One of the two: a panel that is off is not asked for the power source, which is then as it was noted before. So is
/// the battery saver, which caps the light.
bool IsSavedLevel(const Life& laptop, std::uint32_t level) {
  if (level == kBatterySaverLevel) return true;
  return std::ranges::any_of(std::array{L"Backlight", L"BacklightDC"}, [&](const wchar_t* key) {
    return static_cast<unsigned long>(level) ==
           std::max(10UL, std::wcstoul(laptop.settings.Text(key).c_str(), nullptr, 10));
  });
}

/// Panel, touch surface and UI are as the settings say.
void LookAtPanel(Life& laptop, Expectations& promises) {
  const auto saved = laptop.settings.Text(L"Tessaview");
  promises.Expect(laptop.powers.contains(saved), "the saved power is nobody's choice");
  for (const auto* key : {L"Backlight", L"BacklightDC"}) {
    promises.Expect(laptop.levels.contains(laptop.settings.Text(key)), "a saved level is nobody's choice");
  }
  const bool isOn = saved == L"On";
  promises.Expect(laptop.firmware.PanelOn() == isOn, "the panel's power is not as saved");
  promises.Expect(isOn || laptop.touch.InCursorMode(), "the panel is off, and its touch surface no touch pad");
  promises.Expect(LastPowerTold(laptop) == (isOn ? L"POWERON" : L"POWEROFF"), "the UI was told otherwise");
  if (!isOn) return;
  promises.Expect(laptop.settingsEdited || IsSavedLevel(laptop, laptop.firmware.Backlight()),
                  "the light is not as saved");
  auto& b = laptop.displays.bPanel();
  auto& c = laptop.displays.cPanel();
  promises.Expect(c.orientation == 3, "the C panel is turned");
  const auto middle = b.x + (static_cast<std::int32_t>(b.width) - static_cast<std::int32_t>(c.width)) / 2;
  promises.Expect(c.x == middle && c.Area().top == b.Area().bottom, "the C panel is not below the B panel");
}

/// Each window that the controller was the last to place is in sight.
void LookAtWindows(Life& laptop, Expectations& promises) {
  for (const auto& window : laptop.WindowsOfController()) {
    const auto meets = [&](const sim::Screen& screen) {
      return screen.HasArea() && sim::Overlap(screen.Area(), window.area) > 0;
    };
    promises.Expect(!window.IsUp() || std::ranges::any_of(laptop.displays.Screens(), meets),
                    "a window is out of sight");
    promises.Expect(window.title == Life::kKeyboard || (window.extendedStyle & os::kWsExNoActivate) == 0,
                    "a window cannot be activated");
  }
}

/// What showed and took down overlays.
Texts OverlayTexts(const Life& laptop) {
  auto texts = laptop.ui.Received();
  std::erase_if(texts, [](const auto& text) { return text.find(L"WS") == std::wstring::npos || text == L"WSENTER"; });
  return texts;
}

void LookAtUi(Life& laptop, Expectations& promises) {
  const auto overlays = OverlayTexts(laptop);
  promises.Expect(overlays.empty() || overlays.back() == L"WSPRESS", "an overlay is left");
  std::wstring mask;
  for (const auto& text : laptop.ui.Received()) {
    if (text == L"OPENMASK" || text == L"CLOSEMASK") mask = text;
  }
  const bool isOn = laptop.settings.Text(L"Tessaview") == L"On";
  promises.Expect(mask != L"OPENMASK" || !isOn || laptop.isInShop, "a mask is left");
  for (const auto choice : {Topology::Clone, Topology::Extend}) {
    laptop.displays.UserProjects(choice);
    laptop.Advance(20'000);
    const bool isShown = isOn && choice == Topology::Extend;
    promises.Expect(LastPowerTold(laptop) == (isShown ? L"POWERON" : L"POWEROFF"), "the UI is told otherwise");
  }
  laptop.ui.ForgetReceived();
  laptop.ui.Send(L"BLGET");
  promises.Expect(TimesTold(laptop, L"BLSET") == 1, "BLGET is not answered");
}

void LookAtHandles(Life& laptop, Expectations& promises) {
  promises.Expect(laptop.firmware.OpenHandles() == 0, "the firmware is left open");
  promises.Expect(laptop.touch.OpenNodeLists() == 0, "a list of devices is left open");
  promises.Expect(laptop.touch.OpenHandles() <= 1, "a touch device is left open");
  promises.Expect(laptop.apps.OpenManagers() == 0, "an activation manager is left open");
  promises.Expect(laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments() == 0, "a token is left open");
  promises.Expect(laptop.processes.OpenHandles() == 0, "a process is left open");
  promises.Expect(laptop.events.OpenHandles() <= 2, "an event is left open");
  promises.Expect(laptop.power.Registrations() <= 5, "a power setting is registered twice");
  promises.Expect(!laptop.sessions.AnyThreadActsAsUser(), "a thread still acts as the user");
}

/// No thread too many, no timer but the hourly one, and nothing happens.
void LookAtQuiet(Life& laptop, Expectations& promises) {
  static const std::set<std::wstring> kStanding{L"main",           L"mouse",         L"drag",       L"foreground",
                                                L"UI sender",      L"keyboard",      L"packages",   L"resume",
                                                L"desktop switch", L"process stops", L"management", L"touch reset"};
  for (const auto& thread : laptop.Threads()) {
    promises.Expect(kStanding.contains(thread), "a thread is left over: " + std::string(thread.begin(), thread.end()));
  }
  promises.Expect(laptop.Threads().size() == kStanding.size(), "a thread is missing, or there twice");
  promises.Expect(laptop.window.TimerPeriod(9487) == 3'600'000U, "the hourly timer does not run");
  promises.Expect(!laptop.window.TimerPeriod(9527) && !laptop.window.TimerPeriod(9528), "a shop's timer is left");
  laptop.displays.Changed();  // a place that was right is put right once after a start
  const auto changes = Changes(laptop);
  laptop.displays.Changed();
  laptop.power.Unplug();
  laptop.power.Plug();
  laptop.Advance(kMinuteMs);
  promises.Expect(Changes(laptop) == changes, "displays are changed though nothing is wrong");
  // In one of two half hours the hourly timer does not go off.
  bool isQuiet = false;
  for (int half = 0; half < 2; ++half) {
    const auto calls = laptop.faults.AllCalls();
    laptop.Advance(29 * kMinuteMs);
    isQuiet = isQuiet || laptop.faults.AllCalls() == calls;
  }
  promises.Expect(isQuiet, "something wakes at rest");
}

/// A window is thrown, a key switches the panel, and the process ends when it is told to.
void LookAtService(Life& laptop, Expectations& promises) {
  laptop.desktop.SetForeground(laptop.desktop.Shell());  // beside a full screen the panel is not turned
  if (laptop.settings.Text(L"Tessaview") != L"On") laptop.hotKey.UseF6(3);
  laptop.Advance(20'000);  // the panel may take a while to come
  promises.Expect(laptop.settings.Text(L"Tessaview") == L"On" && laptop.firmware.PanelOn(), "F6 does not switch it on");
  laptop.displays.UserProjects(Topology::Extend);  // the system may know the panel only as switched off
  laptop.ui.ForgetReceived();
  const auto place = laptop.displays.bPanel().Area();
  const auto x = place.left, y = place.top;
  const auto window = laptop.desktop.OpenInForeground({.area = {x + 200, y + 100, x + 1000, y + 700}});
  laptop.Settle();
  DragOut(laptop, window, {x + 700, y + 110}, {x + 1000, y + 400});
  laptop.mouse.Drop();
  const auto overlays = OverlayTexts(laptop);
  const bool comesAndGoes = TimesTold(laptop, L"WSNORMAL") == 1 && overlays.back() == L"WSPRESS";
  promises.Expect(laptop.moverBlocked ? overlays.empty() : comesAndGoes, "the overlay does not come and go");
  laptop.hotKey.UseF6(2);
  promises.Expect(laptop.settings.Text(L"Tessaview") == L"Off" && !laptop.firmware.PanelOn(),
                  "F6 does not switch it off");
  laptop.window.PickMenuItem(105);
  promises.Expect(laptop.ExitCode() == 0, "the process does not end");
}

}  // namespace

Broken LookAtRest(Life& laptop) {
  Broken broken;
  Expectations promises(broken);
  LookAtHandles(laptop, promises);
  LookAtPanel(laptop, promises);
  LookAtWindows(laptop, promises);
  LookAtUi(laptop, promises);
  LookAtQuiet(laptop, promises);
  LookAtService(laptop, promises);
  return broken;
}

}  // namespace explorer
