#include "kit/laptop.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <thread>

#include "kit/activation_server.h"
#include "kit/hex_text.h"
#include "kit/laptop_state.h"
#include "kit/machine.h"
#include "kit/system_events.h"
#include "kit/text_pipe.h"

namespace lab {
namespace {

constexpr DWORD kWatchMs = 20;
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
  ListenOnPipe(kTracePipe, tracing_, [this](const std::wstring& line) { SortIn(line); });
  ListenOnPipe(kUiPipe, talking_, [this](const std::wstring& line) { uiTalk.Add(line); });
  const bool serves = ServeActivations([this](const auto& application, const auto& argument) {
    uiTalk.Add(L"activated " + application + L" " + argument);
    static std::mutex one;  // an activation that comes while the UI still starts finds it there
    const std::lock_guard lock(one);
    if (!StandInUi::IsThere()) ui.Start();
  });
  std::thread([this] {
    for (;; Sleep(kWatchMs)) ReadDevices();
  }).detach();
  return has(serves, L"application activation");
}

bool Laptop::Renew() {
  controller.End();
  ui.End();
  // What the ended programs said last is still on its way; a package check ends by itself.
  if (!Eventually([this] { return tracing_ == 0 && talking_ == 0; })) return false;
  ResetLaptopState(*SharedLaptopState());
  ForgetSystemEvents();
  std::error_code ignored;
  std::filesystem::remove(SettingsPath(), ignored);
  for (const auto which : {kTouchPad, kTouchScreen}) {
    if (!touch.Plug(which)) return false;
  }
  const std::lock_guard lock(devices_);
  (void)touch.Outputs(kTouchPad, nextReport_);  // those of the time before
  nextRequest_ = 0;
  if (!firmware.Start()) return false;
  for (auto* journal : {&trace, &usage, &uiTalk, &requests, &reports, &patched}) journal->Clear();
  return true;
}

void Laptop::KillUi() {
  ui.End();
  Happen(SystemEvent::UiEnded);
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

void Laptop::ReadDevices() {
  const std::lock_guard lock(devices_);
  for (const auto& request : firmware.Requests(nextRequest_)) requests.Add(Describe(request));
  for (const auto& report : touch.Outputs(kTouchPad, nextReport_)) {
    reports.Add(HexText(std::span(report).first(std::min(report.size(), kModeReportBytes))));
  }
}

}  // namespace lab
