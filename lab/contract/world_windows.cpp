// The world of the contracts as Windows on the lab's laptop.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "contract/other_program.h"
#include "kit/firmware_driver.h"
#include "kit/journal.h"
#include "kit/pointer.h"
#include "kit/process.h"
#include "kit/touch_controller.h"
#include "os/device_io.h"
#include "os/files.h"
#include "patch/patched_calls.h"
#include "tests/contract/world.h"

namespace world {
namespace {

constexpr auto kKeys = L"SOFTWARE\\NORV\\Contract";  // all that the contracts write lies below

lab::FirmwareDriver gFirmware;
lab::TouchController gTouch;
bool gFirmwareStopped = false;
std::uint32_t gReportsBefore = 0;
int gContract = 0;
std::vector<HANDLE> gEvents;
lab::ChildProcess gOther;
HWND gWindow = nullptr;

bool PlugBoth() {
  return gTouch.Plug(kTouchPad) && gTouch.Plug(kTouchScreen);
}

/// Wine places only its own process's windows: the lab's import patch is part of this world.
bool Boot() {
  for (const auto& call : lab::patch::WindowCalls()) lab::patch::Redirect(call);
  return gFirmware.Install() && gTouch.Install();
}

os::WindowHandle ToDoor(HWND window) {
  return static_cast<os::WindowHandle>(reinterpret_cast<std::uintptr_t>(window));
}

LRESULT Ask(contract::Request request, LPARAM parameter = 0) {
  return SendMessageW(gWindow, contract::RequestMessage(), static_cast<WPARAM>(request), parameter);
}

}  // namespace

const std::uint32_t kUserSession = 0;  // Wine tells a token for any session

void Begin() {
  static const bool booted = Boot();
  ASSERT_TRUE(booted && gFirmware.Reset() && PlugBoth());
  gReportsBefore = 0;
  (void)gTouch.Outputs(kTouchPad, gReportsBefore);
  ++gContract;
  ASSERT_TRUE(CreateDirectoryW(Folder().c_str(), nullptr));
}

void End() {
  gOther.Kill();
  for (const HANDLE event : gEvents) CloseHandle(event);
  gEvents.clear();
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kKeys);
  EXPECT_TRUE((!std::exchange(gFirmwareStopped, false) || gFirmware.Start()) && PlugBoth());
}

void Run(const std::function<void()>& body) {
  body();
}

/// The system looks behind a text for its NUL, and takes it in when it stands there.
void SetRegistryValue(const std::wstring& key, const std::wstring& value, const RegistryValue& stored) {
  auto [type, bytes] = stored;
  const auto size = static_cast<DWORD>(bytes.size());
  bytes.insert(bytes.end(), 2, 0xFF);
  EXPECT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), value.c_str(), type, bytes.data(), size), ERROR_SUCCESS);
}

RegistryValue StoredValue(const std::wstring& key, const std::wstring& value) {
  HKEY opened = nullptr;
  os::Bytes bytes(1024);
  DWORD type = 0, size = static_cast<DWORD>(bytes.size());
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return {};
  const auto code = RegQueryValueExW(opened, value.c_str(), nullptr, &type, bytes.data(), &size);
  RegCloseKey(opened);
  bytes.resize(size);
  return code == ERROR_SUCCESS ? RegistryValue{type, bytes} : RegistryValue();
}

std::wstring Folder() {
  return lab::LabFolder() + L"contract-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(gContract);
}

void WriteFile(const std::wstring& path, const std::string& text) {
  EXPECT_TRUE(std::ofstream(std::filesystem::path(path), std::ios::binary) << text);
}

std::string FileText(const std::wstring& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void AnswerShort(std::size_t bytes) {
  EXPECT_TRUE(gFirmware.SetFault(kBacklight, kShortReply, static_cast<std::uint32_t>(bytes)));
}

void RemoveFirmwareDriver() {
  gFirmwareStopped = true;
  EXPECT_TRUE(gFirmware.Stop());
  EXPECT_TRUE(lab::Eventually([] { return !os::OpenDevice(L"\\\\.\\ZRVACPI"); }));
}

void UnplugTouch() {
  EXPECT_TRUE(gTouch.Unplug(kTouchPad) && gTouch.Unplug(kTouchScreen));
}

std::vector<os::Bytes> OutputReports() {
  return gTouch.Outputs(kTouchPad, gReportsBefore);
}

void MakeEvent(const wchar_t* name) {
  gEvents.push_back(CreateEventW(nullptr, TRUE, FALSE, name));
}

bool IsSignalled(const wchar_t* name) {
  const HANDLE event = OpenEventW(SYNCHRONIZE, FALSE, name);
  const bool signalled = WaitForSingleObject(event, 0) == WAIT_OBJECT_0;
  CloseHandle(event);
  return signalled;
}

Launch OtherProgram(std::optional<std::uint32_t> exitCode) {
  return {os::OwnProgramPath(), L"contract_tests " + (exitCode ? L"--exit " + std::to_wstring(*exitCode) : L"--last")};
}

os::WindowHandle OpenWindow() {
  gOther = lab::ChildProcess::Start(os::OwnProgramPath(), L"--window");
  const auto isThere = [&] { return (gWindow = FindWindowW(kClass, kTitle)) != nullptr; };
  EXPECT_TRUE(lab::Eventually([&] { return isThere() && GetForegroundWindow() == gWindow; }));
  return ToDoor(gWindow);
}

os::WindowHandle OpenChild() {
  return ToDoor(reinterpret_cast<HWND>(Ask(contract::Request::OpenChild)));
}

os::WindowHandle OpenDialog() {
  return ToDoor(reinterpret_cast<HWND>(Ask(contract::Request::OpenDialog)));
}

void RaiseWindowEvent(os::WindowEvent event, std::int32_t object) {
  Ask(contract::Request::Raise, MAKELPARAM(static_cast<WORD>(event), static_cast<WORD>(object)));
}

void CloseWindow() {
  PostMessageW(gWindow, WM_CLOSE, 0, 0);
  EXPECT_TRUE(lab::Eventually([] { return IsWindow(gWindow) == FALSE; }));
}

/// What is sent to it comes in order.
void Hang() {
  MakeEvent(contract::kWake);
  ResetEvent(gEvents.back());  // it lives on from the time before
  SendNotifyMessageW(gWindow, contract::RequestMessage(), static_cast<WPARAM>(contract::Request::Hang), 0);
}

void Wake() {
  SetEvent(gEvents.back());
}

void Stroke(std::uint32_t virtualKey, bool down) {
  keybd_event(static_cast<BYTE>(virtualKey), 0, down ? 0 : KEYEVENTF_KEYUP, 0);
}

void MovePointer(os::Point to) {
  lab::Pointer::MoveTo(to);
}

void Click() {
  lab::Pointer::Press();
  lab::Pointer::Release();
}

}  // namespace world
