// The world of the contracts as a simulated laptop.
#include <memory>

#include "sim/laptop.h"
#include "tests/contract/world.h"

namespace world {
namespace {

constexpr auto kProgram = L"C:\\Contract\\contract.exe";

std::unique_ptr<sim::Laptop> gLaptop;
os::WindowHandle gWindow;

sim::Window& OpenedWindow() {
  return *gLaptop->desktop.Find(gWindow);
}

}  // namespace

const std::uint32_t kUserSession = 1;

void Begin() {
  gLaptop = std::make_unique<sim::Laptop>();
  gLaptop->sessions.missingPrivileges = {L"SeCreateTokenPrivilege"};
  gLaptop->files.AddFolder(Folder());
  gLaptop->files.SetProductNames(os::OwnProgramPath(), {L"Tessaview controller"});
  gLaptop->services.Set(kFirmwareService, os::kServiceRunning);
}

void End() {
  gLaptop.reset();
}

void Run(const std::function<void()>& body) {
  bool returned = false;
  os::StartThread(L"contract", [&] {
    body();
    returned = true;
  });
  gLaptop->Advance(60'000);
  EXPECT_TRUE(returned);
}

void SetRegistryValue(const std::wstring& key, const std::wstring& value, const RegistryValue& stored) {
  const auto& [type, bytes] = stored;
  std::wstring units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) units += static_cast<wchar_t>(bytes[i] | bytes[i + 1] << 8);
  if (type == kText) gLaptop->registry.SetUnterminatedText(key, value, units);
  if (type == kBinary) gLaptop->registry.SetBytes(key, value, bytes);
  if (type == kDword) gLaptop->registry.SetDword(key, value, bytes.at(0));
}

RegistryValue StoredValue(const std::wstring& key, const std::wstring& value) {
  const auto* stored = gLaptop->registry.Find(key, value);
  return stored == nullptr ? RegistryValue() : RegistryValue{static_cast<std::uint32_t>(stored->type), stored->bytes};
}

std::wstring Folder() {
  return L"C:\\Contract\\files";
}

void WriteFile(const std::wstring& path, const std::string& text) {
  gLaptop->files.AddFile(path, {text.begin(), text.end()});
}

std::string FileText(const std::wstring& path) {
  const auto content = gLaptop->files.Content(path).value_or(os::Bytes());
  return {content.begin(), content.end()};
}

void AnswerShort(std::size_t bytes) {
  gLaptop->firmware.replyBytes = bytes;
}

void RemoveFirmwareDriver() {
  gLaptop->firmware.driverInstalled = false;
  gLaptop->services.Set(kFirmwareService, 1);
}

void UnplugTouch() {
  gLaptop->touch.Unplug();
}

std::vector<os::Bytes> OutputReports() {
  return gLaptop->touch.OutputReports();
}

void MakeEvent(const wchar_t* name) {
  gLaptop->events.Add(name);
}

bool IsSignalled(const wchar_t* name) {
  return gLaptop->events.Signalled(name);
}

Launch OtherProgram(std::optional<std::uint32_t> exitCode) {
  gLaptop->processes[L"contract.exe"] = {.exitCode = exitCode.value_or(0), .neverEnds = !exitCode};
  return {kProgram, L""};
}

os::WindowHandle OpenWindow() {
  gWindow = gLaptop->desktop.OpenInForeground(
      {.className = kClass, .title = kTitle, .program = kProgram, .area = {100, 100, 500, 400}});
  return gWindow;
}

os::WindowHandle OpenChild() {
  return gLaptop->desktop.Open({.className = kChildClass,
                                .program = kProgram,
                                .area = {120, 160, 270, 260},
                                .style = 0x4000'0000,  // WS_CHILD
                                .parent = gWindow});
}

os::WindowHandle OpenDialog() {
  return gLaptop->desktop.Open({.className = kClass,
                                .title = L"A dialog",
                                .program = kProgram,
                                .area = {600, 150, 900, 350},
                                .style = 0x80C8'0000,  // WS_POPUP | WS_CAPTION | WS_SYSMENU
                                .owner = gWindow});
}

void RaiseWindowEvent(os::WindowEvent event, std::int32_t object) {
  gLaptop->desktop.Raise(event, gWindow, object);
}

void CloseWindow() {
  gLaptop->desktop.Close(gWindow);
}

void Hang() {
  OpenedWindow().responsive = false;
}

void Wake() {
  OpenedWindow().responsive = true;
}

void Stroke(std::uint32_t virtualKey, bool down) {
  down ? gLaptop->input.Press(virtualKey) : gLaptop->input.Release(virtualKey);
}

void MovePointer(os::Point to) {
  gLaptop->mouse.MoveTo(to);
}

void Click() {
  gLaptop->mouse.Press();
  gLaptop->mouse.Release();
}

}  // namespace world
