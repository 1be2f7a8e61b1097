#include "kit/laptop.h"

#include <filesystem>

#include "kit/activation_server.h"
#include "kit/laptop_state.h"
#include "kit/machine.h"
#include "kit/text_pipe.h"

namespace lab {
namespace {

constexpr DWORD kWatchMs = 20;
constexpr std::chrono::milliseconds kPipeQuiet{30};
constexpr std::size_t kModeReportBytes = 12;  // what the mode report sets; the rest of the 32 is padding

/// The part after "trace " and the like, when the line begins so.
bool Unwrap(const std::wstring& line, const wchar_t* prefix, std::wstring& rest) {
  const std::size_t length = wcslen(prefix);
  if (line.compare(0, length, prefix) != 0) return false;
  rest = line.substr(length);
  return true;
}

}  // namespace

Laptop::Laptop(const Listener& listener)
    : trace([listener](const auto& line) { listener(L"controller", line); }),
      usage([listener](const auto& line) { listener(L"usage", line); }),
      uiTalk([listener](const auto& line) { listener(L"UI", line); }),
      requests([listener](const auto& line) { listener(L"firmware", line); }),
      reports([listener](const auto& line) { listener(L"touch pad", line); }),
      patched([listener](const auto& line) { listener(L"patch", line); }),
      listener_(listener) {}

Laptop::~Laptop() {
  if (watcher_ == nullptr) return;
  SetEvent(stop_);
  WaitForSingleObject(watcher_, INFINITE);
  CloseHandle(watcher_);
  CloseHandle(stop_);
}

bool Laptop::Boot() {
  const auto has = [this](bool works, const wchar_t* part) {
    if (!works) listener_(L"laptop", std::wstring(part) + L" does not work");
    return works;
  };
  if (!has(SharedLaptopState() != nullptr, L"the shared state") || !has(WriteFactoryIds(), L"the registry") ||
      !has(firmware.Install(), L"the firmware driver") || !has(touch.Install(), L"the touch bus") ||
      !has(touch.Plug(kTouchPad), L"the touch pad") || !has(touch.Plug(kTouchScreen), L"the touch screen")) {
    return false;
  }
  ListenOnPipe(kTracePipe, [this](const std::wstring& line) { SortIn(line); });
  ListenOnPipe(kUiPipe, [this](const std::wstring& line) { uiTalk.Add(line); });
  const bool serves = ServeActivations([this](const auto& application, const auto& argument) {
    uiTalk.Add(L"activated " + application + L" " + argument);
    if (!StandInUi::IsThere()) ui.Start();
  });
  stop_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  const auto watch = [](void* laptop) -> DWORD {
    static_cast<Laptop*>(laptop)->WatchDevices();
    return 0;
  };
  watcher_ = CreateThread(nullptr, 0, watch, this, 0, nullptr);
  return has(serves, L"application activation");
}

bool Laptop::Renew() {
  controller.End();
  ui.End();
  ResetLaptopState(*SharedLaptopState());
  std::error_code ignored;
  std::filesystem::remove(SettingsPath(), ignored);
  for (const auto which : {kTouchPad, kTouchScreen}) {
    if (!touch.Plug(which)) return false;
  }
  const std::lock_guard lock(devices_);
  (void)touch.Outputs(kTouchPad, nextReport_);  // those of the time before
  nextRequest_ = 0;
  if (!firmware.Start()) return false;
  trace.WaitUntilQuiet(kPipeQuiet);  // what the ended controller said last is still on its way
  for (auto* journal : {&trace, &usage, &uiTalk, &requests, &reports, &patched}) journal->Clear();
  return true;
}

bool Laptop::WaitForController() {
  constexpr std::chrono::seconds kStartUp{30};
  if (!Eventually([this] { return Controller::Window() != nullptr || !controller.IsRunning(); }, kStartUp))
    return false;
  // A sent message may be served in the middle of start-up; a posted one comes in turn. This one is logged, no more.
  // The first may come before what start-up itself had posted.
  for (int times = 0; times < 2; times++) {
    const auto mark = trace.Mark();
    PostMessageW(Controller::Window(), WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    if (!trace.WaitFor(L"PBT_APMPOWERSTATUSCHANGE", mark, kStartUp)) return false;
  }
  ReadDevices();
  return true;
}

void Laptop::SortIn(const std::wstring& line) {
  std::wstring rest;
  if (Unwrap(line, L"trace ", rest)) trace.Add(rest);
  if (Unwrap(line, L"usage ", rest)) usage.Add(rest);
  if (Unwrap(line, L"patch ", rest)) patched.Add(rest);
}

void Laptop::WatchDevices() {
  while (WaitForSingleObject(stop_, kWatchMs) == WAIT_TIMEOUT) ReadDevices();
}

void Laptop::ReadDevices() {
  const std::lock_guard lock(devices_);
  for (const auto& request : firmware.Requests(nextRequest_)) requests.Add(Describe(request));
  for (const auto& report : touch.Outputs(kTouchPad, nextReport_)) reports.Add(HexText(report, kModeReportBytes));
}

}  // namespace lab
