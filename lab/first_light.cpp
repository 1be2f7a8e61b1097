// First light: the controller as it will be installed, started on the virtual laptop and taken through its first
// duties. Tells the story as it happens; the exit code is 0 only when everything went as it should.
#include <windows.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "kit/desktop.h"
#include "kit/laptop.h"
#include "kit/laptop_state.h"
#include "kit/machine.h"
#include "kit/story.h"

namespace {

using lab::Controller;
using lab::HotKey;
using lab::StandInUi;

/// Trace lines worth a line in the story, by how they begin; the rest goes to the log file alone.
constexpr std::array<std::wstring_view, 22> kTellingLines{
    L" ******* Start",
    L"[InitGenerationCheck]",
    L"Enable Device",
    L"Find TouchPad",
    L"Get Rawinput hDevice",
    L"Setting path",
    L" Create ini file success",
    L"Read ini file",
    L"[TessaviewPowerControl] Tessaview Power",
    L"[TessaviewPowerControl] Tessaview Backlight",
    L"[TessaviewPowerControl] Set",
    L"[Update_UI_Status] Send",
    L"[Update_UI_Status] Global",
    L" Found Package",
    L" Launch UWP",
    L"AppActivationMgr",
    L"The computer is powered",
    L"Receivedata",
    L"UI set BacklightValue",
    L"Send to UI",
    L"[DisplayChange]",
    L"----",
};

bool IsTelling(std::wstring_view who, std::wstring_view line) {
  if (who == L"firmware") return line.rfind(L"DEVS", 0) == 0;
  if (who != L"controller") return true;
  for (const auto beginning : kTellingLines) {
    if (line.rfind(beginning, 0) == 0) return true;
  }
  return false;
}

/// Everything that happened, telling or not, in the file that the environment variable LAB_LOG names as a Linux path.
class Log {
 public:
  Log() {
    std::array<wchar_t, 1024> path{};
    GetEnvironmentVariableW(L"LAB_LOG", path.data(), static_cast<DWORD>(path.size()));
    file_ = _wfopen((std::wstring(L"Z:") + path.data()).c_str(), L"w, ccs=UTF-8");
  }
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;
  ~Log() {
    if (file_ != nullptr) std::fclose(file_);
  }

  void Write(const std::wstring& who, const std::wstring& line) {
    if (file_ == nullptr) return;
    std::fwprintf(file_, L"%-12ls%ls%ls", who.c_str(), line.c_str(), line.ends_with(L'\n') ? L"" : L"\n");
    std::fflush(file_);
  }

 private:
  std::FILE* file_ = nullptr;
};

class FirstLight {
 public:
  bool Boot() {
    Chapter(L"The laptop boots");
    if (!Check(laptop_.Boot(), L"firmware driver, touch controller and activation answer")) return false;
    Check(lab::OpenDesktop(), L"a user's desktop is in the foreground");
    const auto monitors = lab::Monitors();
    Check(monitors == std::vector<std::wstring>{L"1920x1080 at (0,0)", L"1920x515 at (0,1080)"},
          L"two panels: B 1920x1080, C 1920x515 below it");
    Check(lab::Setting("Tessaview").empty(), L"no settings file yet");
    return true;
  }

  bool StartController() {
    Chapter(L"The controller starts");
    const bool started = laptop_.controller.Start() && laptop_.WaitForController();
    if (!Check(started, L"window TESSAVIEWSERVICE is open, and its messages are served")) return false;
    Check(laptop_.trace.WaitFor(L"Global gBPanel X: 0, Y: 0, Wdith: 1920, Height: 1080"), L"B panel found");
    Check(laptop_.trace.WaitFor(L"Global gCPanel X: 0, Y: 1080, Wdith: 1920, Height: 515"), L"C panel found");
    Check(laptop_.trace.WaitFor(L"Find TouchPad Vid & Pid Success!"), L"touch pad found");
    Check(laptop_.trace.WaitFor(L"Get Rawinput hDevice of CPanel_TouchScreen successed"), L"touch screen found");
    Check(laptop_.requests.WaitFor(L"DSTS 0x00050033"), L"firmware asked for its generation");
    Check(laptop_.requests.WaitFor(L"DEVS 0x00050032 = 116"), L"panel powered on at its default level");
    Check(SettingsAre({"On", "116", "116", "1", "Cursor"}), L"settings file made with its defaults");
    Check(laptop_.uiTalk.WaitFor(L"activated 7C31A0D4.TessaviewMaster"), L"UI activated by its application id");
    Check(StandInUi::IsThere(), L"UI has its window");
    return true;
  }

  /// What Windows and the hot-key component tell a controller that has just started, and Wine never does.
  void TellTheState() {
    Chapter(L"The controller is told: on mains, touch pad enabled");
    const auto asked = laptop_.requests.Mark();
    const auto told = laptop_.uiTalk.Mark();
    Check(laptop_.controller.NotifyPowerSetting(lab::kAcDcPowerSource, kMains), L"power source taken in");
    Check(laptop_.requests.WaitFor(L"DEVS 0x00050032 = 116", asked), L"the level for mains applied");
    Controller::PostTouchPadStatus(true);
    Check(laptop_.uiTalk.WaitFor(L"received GETTOUCHPAD", told), L"UI told GETTOUCHPAD");
  }

  void Backlight() {
    Chapter(L"The UI asks for the backlight and sets it");
    auto told = laptop_.uiTalk.Mark();
    Check(StandInUi::Send(L"BLGET") && laptop_.uiTalk.WaitFor(L"received BLSET 45", told),
          L"BLGET answered with 45 percent of level 116");
    laptop_.firmware.Set(kBacklight, 255);
    told = laptop_.uiTalk.Mark();
    Check(StandInUi::SendByCommandLine(L"BLGET") && laptop_.uiTalk.WaitFor(L"received BLSET 99", told),
          L"BLGET, from the command line, answered with 99 percent after the register went to 255");
    Check(StandInUi::Send(L"BLSET", 50) && SettingsAre({"On", "127", "116", "1", "Cursor"}),
          L"BLSET 50 stored as level 127 for mains");
  }

  void Battery() {
    Chapter(L"The laptop is unplugged, with battery saver on, and plugged in again");
    lab::LaptopState& state = *lab::SharedLaptopState();
    auto asked = laptop_.requests.Mark();
    state.onMains = 0;
    state.batterySaver = 1;
    Check(laptop_.controller.NotifyPowerSetting(lab::kAcDcPowerSource, kBattery) &&
              laptop_.requests.WaitFor(L"DEVS 0x00050032 = 58", asked),
          L"panel dimmed to level 58");
    asked = laptop_.requests.Mark();
    state.onMains = 1;
    state.batterySaver = 0;
    Check(laptop_.controller.NotifyPowerSetting(lab::kAcDcPowerSource, kMains) &&
              laptop_.requests.WaitFor(L"DEVS 0x00050032 = 127", asked),
          L"panel back at the level just stored");
  }

  void Flip() {
    Chapter(L"The laptop is folded over and back");
    auto told = laptop_.uiTalk.Mark();
    laptop_.firmware.Set(kFlipState, 1);
    Controller::PostHotKey(HotKey::FlipChanged);
    Check(laptop_.uiTalk.WaitFor(L"received POWEROFF", told), L"UI told POWEROFF");
    told = laptop_.uiTalk.Mark();
    const auto asked = laptop_.requests.Mark();
    laptop_.firmware.Set(kFlipState, 0);
    Controller::PostHotKey(HotKey::FlipChanged);
    Check(laptop_.requests.WaitFor(L"DEVS 0x00050032 = 127", asked), L"panel on at its level for mains");
    Check(laptop_.uiTalk.WaitFor(L"received POWERON", told), L"UI told POWERON");
    Picture(L"panel-on");
  }

  void SwitchOff() {
    Chapter(L"F6: the C panel off");
    const auto told = laptop_.uiTalk.Mark();
    const auto asked = laptop_.requests.Mark();
    const auto reported = laptop_.reports.Mark();
    Controller::PostHotKey(HotKey::F6Pressed);
    Controller::PostHotKey(HotKey::F6Ended, 2);
    Check(laptop_.requests.WaitFor(L"DEVS 0x00050031 = 0", asked), L"firmware told to power the panel off");
    Check(laptop_.reports.WaitFor(L"03 00 09 A1 00 00 0F 00 00 00 08 70", reported),
          L"touch pad switched to cursor mode");
    Check(laptop_.uiTalk.WaitFor(L"received POWEROFF", told), L"UI told POWEROFF");
    Check(SettingsAre({"Off", "127", "116", "1", "Cursor"}), L"settings remember Off");
    Check(laptop_.firmware.Read(kPanelPower) == kPanelOff, L"the panel's power register reads off");
    Picture(L"panel-off");
  }

  void SecondInstance() {
    Chapter(L"A second controller is started");
    Controller second;
    const bool started = second.Start();
    const auto code = second.WaitForExit();
    Check(started && code == 0U, L"it leaves at once, with 0");
    Check(laptop_.controller.IsRunning(), L"the first one runs on");
  }

  void Exit() {
    Chapter(L"The controller is told to exit");
    Controller::Exit();
    const auto code = laptop_.controller.WaitForExit();
    Check(code == 0U, L"it ends by itself, with 0");
    laptop_.ui.End();
  }

  int Summary() {
    story_.Chapter(story_.failures() == 0 ? L"First light: all is well." : L"First light: something went wrong.");
    std::wstring counts = std::to_wstring(story_.checks() - story_.failures()) + L" of " +
                          std::to_wstring(story_.checks()) + L" things were as they should be; ";
    counts += std::to_wstring(laptop_.trace.Mark()) + L" trace lines, " + std::to_wstring(laptop_.requests.Mark()) +
              L" firmware requests";
    story_.Tell(L"counted", counts);
    for (const auto& picture : pictures_) story_.Tell(L"picture", picture);
    return story_.failures() == 0 ? 0 : 1;
  }

 private:
  static constexpr std::uint32_t kMains = 0, kBattery = 1;  // values of the power source's setting

  /// The next part of the story, once the controller has finished with the one before.
  void Chapter(const std::wstring& title) {
    if (laptop_.controller.IsRunning() && !laptop_.WaitForController()) {
      Check(false, L"the controller answers");
    }
    story_.Chapter(title);
  }

  /// A check, told after the lines that led to it: they arrive by a pipe.
  bool Check(bool holds, const std::wstring& what) {
    laptop_.trace.WaitUntilQuiet(std::chrono::milliseconds(30));
    return story_.Check(holds, what);
  }

  /// In the order of the file: Tessaview, Backlight, BacklightDC, PowerSaving, Mode.
  static bool SettingsAre(const std::array<std::string, 5>& expected) {
    return lab::Eventually([&] {
      return std::array<std::string, 5>{lab::Setting("Tessaview"), lab::Setting("Backlight"),
                                        lab::Setting("BacklightDC"), lab::Setting("PowerSaving"),
                                        lab::Setting("Mode")} == expected;
    });
  }

  void Picture(const std::wstring& name) {
    const auto path = lab::TakePicture(name);
    if (Check(!path.empty(), L"picture of both panels: " + name)) pictures_.push_back(path);
  }

  Log log_;
  lab::Story story_;
  std::mutex telling_;
  lab::Laptop laptop_{[this](const std::wstring& who, const std::wstring& line) {
    const std::lock_guard lock(telling_);
    log_.Write(who, line);
    if (IsTelling(who, line)) story_.Tell(who, line);
  }};
  std::vector<std::wstring> pictures_;
};

}  // namespace

int main() {
  FirstLight story;
  if (story.Boot() && story.StartController()) {
    story.TellTheState();
    story.Backlight();
    story.Battery();
    story.Flip();
    story.SwitchOff();
    story.SecondInstance();
    story.Exit();
  }
  return story.Summary();
}
