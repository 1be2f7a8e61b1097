#include "kit/controller.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace lab {
namespace {

constexpr UINT kAnswerMs = 30000;
constexpr WORD kExitCommand = 105;

}  // namespace

bool Deliver(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR result = 0;
  return SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kAnswerMs, &result) != 0;
}

bool Controller::Start() {
  const std::wstring folder = kControllerFolder;
  process_ = ChildProcess::Start(folder + L"TessaviewService.exe", {}, LabFolder() + L"lab_patch.dll");
  return static_cast<bool>(process_);
}

HWND Controller::Window() {
  return FindWindowW(L"TESSAVIEWSERVICE", L"TessaviewServiceTitle");
}

void Controller::PostHotKey(HotKey key, LPARAM lParam) {
  static const UINT message = RegisterWindowMessageW(L"ACPI Notification through ZRVHotkey from BIOS");
  PostMessageW(Window(), message, static_cast<WPARAM>(key), lParam);
}

void Controller::PressF6(int times, LPARAM end) {
  for (int i = 0; i < times; i++) PostHotKey(HotKey::F6Pressed);
  PostHotKey(HotKey::F6Ended, end);
}

void Controller::PostTouchPadStatus(bool enabled) {
  static const UINT message = RegisterWindowMessageW(L"Touchpad status reported from ZRVHotkey");
  constexpr WPARAM kStatusReport = 3;
  PostMessageW(Window(), message, kStatusReport, enabled ? 1 : 0);
}

bool Controller::NotifyPowerSetting(const GUID& setting, std::uint32_t value) {
  // The record must lie in the controller's own memory: only the message's two words cross the processes.
  std::array<std::byte, sizeof(POWERBROADCAST_SETTING) + sizeof value> record{};
  auto* content = reinterpret_cast<POWERBROADCAST_SETTING*>(record.data());
  content->PowerSetting = setting;
  content->DataLength = sizeof value;
  std::memcpy(content->Data, &value, sizeof value);

  DWORD id = 0;
  GetWindowThreadProcessId(Window(), &id);
  const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, id);
  if (process == nullptr) return false;
  void* const there = VirtualAllocEx(process, nullptr, record.size(), MEM_COMMIT, PAGE_READWRITE);
  const bool handled = there != nullptr &&
                       WriteProcessMemory(process, there, record.data(), record.size(), nullptr) != 0 &&
                       Deliver(Window(), WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE, reinterpret_cast<LPARAM>(there));
  if (there != nullptr) VirtualFreeEx(process, there, 0, MEM_RELEASE);
  CloseHandle(process);
  return handled;
}

void Controller::Exit() {
  PostMessageW(Window(), WM_COMMAND, kExitCommand, 0);
}

}  // namespace lab
