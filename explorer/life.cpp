#include "explorer/life.h"

#include <algorithm>
#include <memory>

#include "uilink/commands/ui_commands.h"

namespace explorer {
namespace {

using os::WindowHandle;

constexpr std::uint32_t kAllOfIt = 0x00CF'0000, kDialog = 0x00C8'0000, kWithoutMaximize = 0x00CA'0000;  // styles
constexpr os::Rect kOnBPanel{200, 100, 1200, 800}, kOnCPanel{300, 1120, 1100, 1500};
constexpr auto kOffice = L"C:\\Office\\word.exe", kElevated = L"C:\\admin.exe", kPackaged = L"C:\\App\\App.exe";
constexpr auto kBlocksMover = L"BLOCKACTIONMENU";
constexpr std::size_t kMostWindows = 24;

/// Each command of the controller's, some as a UI may get them wrong.
const std::vector<std::wstring>& CommandTexts() {
  static const auto texts = [] {
    std::vector<std::wstring> all{L"blget", L"VERSION=9.9", L"WALLPAPER=C:\\a.jpg"};
    for (const auto& command : tessaview::UiCommands()) all.emplace_back(command.text);
    std::erase(all, L"BLSET");  // it makes a choice
    return all;
  }();
  return texts;
}

}  // namespace

const std::wstring& Life::CommandText(int number) {
  return CommandTexts()[static_cast<std::size_t>(number) % CommandTexts().size()];
}

Life::Life(const Beginning& beginning)
    : Laptop(beginning.laptop), monitor(displays.AddMonitor({.plugged = false, .attached = false, .x = 1920})) {
  if (beginning.primaryElsewhere) displays.AddPrimary({1920, 200});
  ui.whenTold = [this, asks = beginning.uiAsksBack](const std::wstring& text) {
    told.insert(text.substr(0, text.find(L'=')));
    if (asks && text != L"BLSET") ui.AskBack(L"BLGET");
  };
  ui.HandleFor(beginning.uiHandlesForMs);
  for (auto* const hook : {&mouseHook, &keyboardHook}) {
    if (beginning.hooksForgiveNothing) hook->diesAtOverrun = 1;
    hook->diesAtResume = hook->diesAtUnlock = beginning.hooksDieAtWaking;
  }
  firmware.panelLeavesWhenOff = true;
  power.restMs = 20'000;
  mouse.whenDropped = [this](WindowHandle dropped) { IsMovedByUser(dropped); };
  files.SetProductNames(kOffice, {L"Microsoft Office"});
  files.AddFile(L"C:\\a.jpg", {0xFF, 0xD8, 0xFF});
  processes.SetPackage(kPackaged, {L"App!Id", L"App_1", L"App_family", L"C:\\App"});
  processes.Protect(processes.Run(kElevated));
  powers = {beginning.laptop.saved.value_or(L"On")};
  for (const auto& level : {beginning.laptop.backlight, beginning.laptop.backlightDC}) {
    levels.insert(std::to_wstring(level.value_or(116)));
  }
  layout_ = {displays.bPanel().Area(), displays.cPanel().Area()};
  for (int kind = 0; kind < 3; ++kind) OpenWindow(kind, kind % 2);
}

// ---- Windows ----

void Life::OpenWindow(int kind, int onCPanel) {
  const auto open = [&](sim::Window opened) {
    opened.area = onCPanel != 0 ? kOnCPanel : kOnBPanel;
    windows_.push_back(desktop.OpenInForeground(std::move(opened)));
  };
  if (windows_.size() >= kMostWindows) {
    desktop.Close(windows_.front());
    windows_.erase(windows_.begin());
  }
  switch (kind) {
    case 0:
      return open({.style = kDialog});
    case 1:
      return open({.style = kWithoutMaximize});
    case 2:
      return open({.className = L"Chrome_WidgetWin_1", .style = kAllOfIt | os::kWsMaximize});
    case 3:
      return open({.program = kElevated});
    case 4:
      return open({.program = kOffice});
    case 5:
      return open({.refusesMoves = true});
    case 6:  // it closes in the middle of being shown and moved
      return open({.onChange = [this, life = std::make_shared<int>(5)](WindowHandle self) {
        if (--*life == 0) desktop.Close(self);
      }});
    case 7:
      open({.className = L"ApplicationFrameWindow", .title = L"App"});
      desktop.Open({.className = L"Windows.UI.Core.CoreWindow",
                    .program = kPackaged,
                    .area = kOnBPanel,
                    .parent = windows_.back()});
      return;
    case 8:
      return open({.program = L"C:\\stubborn.exe", .closesWhenAsked = false});
    case 9:  // it fills the screen
      windows_.push_back(
          desktop.OpenInForeground({.className = L"Game", .area = displays.bPanel().Area(), .style = 0x9000'0000}));
      return;
    default:
      return open(
          {.title = kKeyboard, .style = 0x9000'0000, .extendedStyle = os::kWsExNoActivate});  // a screen keyboard
  }
}

WindowHandle Life::Window(int number) const {
  return windows_[static_cast<std::size_t>(number) % windows_.size()];
}

void Life::ActivateWindow(int number) {
  if (desktop.Find(Window(number)) != nullptr) desktop.SetForeground(Window(number));
}

void Life::HangWindow(int number) {
  auto* const found = desktop.Find(Window(number));
  if (found == nullptr) return;
  found->responsive = false;
  hung.insert(found->program);
}

void Life::BusyWindow(int number, int ms) {
  auto* const found = desktop.Find(Window(number));
  if (found == nullptr) return;
  found->busyUntilMs = NowMs() + static_cast<std::uint64_t>(ms);
  After(static_cast<std::uint64_t>(ms), [] {});  // whoever waits for an answer gets it then
}

void Life::CloseHungView(int number) {
  HangWindow(number);
  ui.Send(L"VIEWCLOSE", {.handle = static_cast<std::uint64_t>(Window(number))});
}

void Life::ShowWindow(int number, int command) {
  desktop.Show(Window(number), static_cast<os::ShowCommand>(command));
  IsMovedByUser(Window(number));
}

/// The areas lie beside where the drag began.
void Life::ThrowOnto(int number, int area) {
  constexpr os::Point kAreas[] = {{75, 90}, {180, 90}, {0, 70}};
  Throw(number, kAreas[area].x, kAreas[area].y);
}

void Life::DragWindow(int number, int x, int y) {
  if (desktop.Find(Window(number)) == nullptr) return;
  desktop.Drag(Window(number), {x, y, x + 700, y + 400});
  IsMovedByUser(Window(number));
}

void Life::Throw(int number, int dx, int dy, bool border) {
  const auto handle = Window(number);
  const auto* const found = desktop.Find(handle);
  if (found == nullptr || !found->IsUp()) return;
  const os::Point press{(found->area.left + found->area.right) / 2, found->area.top + 10};
  desktop.SetForeground(handle);
  border ? mouse.GrabBorder(handle, press) : mouse.Grab(handle, press);
  mouse.Glide({press.x + 60, press.y + 60});
  mouse.Glide({press.x + dx, press.y + dy});
  mouse.MoveTo({press.x + dx, press.y + dy});  // with each event the system still tells where the pointer was before
  mouse.Drop();
}

std::ptrdiff_t Life::TimesPlaced(WindowHandle handle) const {
  const auto journal = desktop.Journal(handle);
  return std::ranges::count_if(
      journal, [](const std::wstring& entry) { return entry.starts_with(L"place ") || entry.starts_with(L"move "); });
}

void Life::NoteLayout() {
  std::vector<os::Rect> now;
  for (const auto& screen : displays.Screens()) now.push_back(screen.HasArea() ? screen.Area() : os::Rect{});
  if (std::exchange(layout_, now) == now) return;
  for (const auto handle : windows_) IsMovedByUser(handle);
}

std::vector<sim::Window> Life::WindowsOfController() const {
  std::vector<sim::Window> placed;
  for (const auto handle : windows_) {
    const auto* const found = desktop.Find(handle);
    const auto before = placedBefore_.find(handle);
    const auto times = before == placedBefore_.end() ? 0 : before->second;
    if (found != nullptr && !found->refusesMoves && TimesPlaced(handle) > times) placed.push_back(*found);
  }
  return placed;
}

// ---- What is chosen ----

void Life::EndF6(int action) {
  powers.insert({L"On", L"Off"});
  hotKey.EndF6(action);
}

/// What is too dark to be driven is replaced by the default at the next start.
void Life::NoteLevel(int level) {
  levels.insert(std::to_wstring(level));
  if (level < 10) levels.insert(L"116");
}

void Life::SetLight(int percent) {
  NoteLevel(percent * 2555 / 1000);
  ui.Send(L"BLSET", {.percent = percent});
}

/// In a shop the panel comes on by itself.
void Life::SetShopService(int state) {
  powers.insert(L"On");
  isInShop = true;
  services.Set(L"RetailDemo", static_cast<std::uint32_t>(state));
}

void Life::EditSettings(const std::wstring& key, int value) {
  if (key != L"Tessaview") {
    NoteLevel(value);
    settingsEdited = true;
    return settings.Set(key, std::to_wstring(value));
  }
  const auto* const choice = value % 2 == 0 ? L"On" : L"Off";
  powers.insert(choice);
  settings.Set(key, choice);
}

// ---- The UI, the process and the user ----

void Life::UiStarts() {
  if (ui.Running()) return;
  ui.ForgetReceived();  // it shows nothing yet
  ui.Start();
  ui.Send(L"ALIVE");
}

void Life::UiDies() {
  ui.Die();
  ui.ForgetReceived();
}

void Life::GuideOpens() {
  if (!ui.Running()) ui.OpenGuide();
}

void Life::Command(int number, int onWindow, int point) {
  const auto& text = CommandText(number);
  moverBlocked = moverBlocked || text == kBlocksMover;
  ui.Send(text, {.handle = static_cast<std::uint64_t>(Window(onWindow)),
                 .rect = {point, point / 2, point + 900, point / 2 + 500},
                 .point = {point, 60}});
}

void Life::Noise(int kind, int size, int content) {
  constexpr std::size_t kSizes[] = {0, 1, 16, 519, 551, 552, 553, 1559, 1560, 1561, 5000};
  os::Bytes bytes(kSizes[static_cast<std::size_t>(size) % std::size(kSizes)], static_cast<std::uint8_t>(content));
  const std::wstring text = CommandText(content) == kBlocksMover ? L"BLGET" : CommandText(content);
  for (std::size_t i = 0; i < text.size() && 2 * i + 1 < bytes.size(); ++i) {
    bytes[2 * i] = static_cast<std::uint8_t>(text[i]);
    bytes[2 * i + 1] = 0;
  }
  ui.SendRaw(100 + static_cast<std::uint64_t>(kind), std::move(bytes));
}

void Life::TouchLeaves() {
  touchLeft = true;
  touch.Unplug();
}

/// A controller that is just starting does not hear of it: it follows the system's log last of all.
void Life::Hibernate(int touchLateMs) {
  touchLeft = touchLeft || std::ranges::count(Threads(), L"resume") == 0;
  power.HibernateAndWake(static_cast<std::uint32_t>(touchLateMs));
}

void Life::TouchComesBack(int afterMs) {
  if (!touch.touchPad().plugged) touch.PlugAfter(static_cast<std::uint32_t>(afterMs));
}

void Life::Restart() {
  EndProcess();
  ui.ForgetReceived();  // an overlay that was shown stays until the next drag
  moverBlocked = false;
  Boot(1000);
}

void Life::SignInAgain() {
  sessions.LogOff();
  UiDies();
  moverBlocked = false;
  sessions.SignIn();
  Boot(1000);
}

}  // namespace explorer
