#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/door.h"

/// What a contract of the door finds on the laptop before it calls the door, and looks at afterwards. There are two
/// such worlds: the simulated laptop, and Windows as the lab boots it. Both have the two panels on the desktop, the
/// firmware driver with its factory registers, the touch controller plugged in, and a user signed in.
namespace world {

/// Each contract begins with a world that no other has changed.
void Begin();
void End();

/// Runs `body` as a thread of the controller's would run, until it has returned.
void Run(const std::function<void()>& body);

// ---- Registry, below HKEY_LOCAL_MACHINE ----
inline constexpr std::uint32_t kText = 1, kBinary = 3, kDword = 4, kQword = 11;  // REG_SZ, REG_BINARY and so on
using RegistryValue = std::pair<std::uint32_t, os::Bytes>;                       // its type, and its bytes as stored
void SetRegistryValue(const std::wstring& key, const std::wstring& value, const RegistryValue& stored);
RegistryValue StoredValue(const std::wstring& key, const std::wstring& value);

// ---- Files ----
std::wstring Folder();  // an empty one, without a backslash at its end
void WriteFile(const std::wstring& path, const std::string& text);
std::string FileText(const std::wstring& path);

// ---- The firmware driver ----
inline constexpr std::uint32_t kBacklight = 0x00050032;  // a register that reads as 116
void AnswerShort(std::size_t bytes);                     // requests for the backlight
void RemoveFirmwareDriver();                             // until the contract ends; its service stops
inline constexpr auto kFirmwareService = L"zrvacpi";

// ---- The touch controller ----
void UnplugTouch();  // until the contract ends
std::vector<os::Bytes> OutputReports();

// ---- Other programs ----
void MakeEvent(const wchar_t* name);
bool IsSignalled(const wchar_t* name);
extern const std::uint32_t kUserSession;  // one with a user's token
struct Launch {
  std::wstring program, commandLine;
};
Launch OtherProgram(std::optional<std::uint32_t> exitCode);  // it ends at once with this one, or lasts

/// Opens a window of another program, in the foreground.
inline constexpr auto kClass = L"ContractWindow", kTitle = L"A window of another program";
os::WindowHandle OpenWindow();
void CloseWindow();
/// Inside that window, and beside it, owned by it and above it, with neither maximise nor minimise box.
inline constexpr auto kChildClass = L"ContractChild";
os::WindowHandle OpenChild();
os::WindowHandle OpenDialog();
void RaiseWindowEvent(os::WindowEvent event, std::int32_t object);  // of that window's, by its program
void Hang();                                                        // it answers nothing until it is woken
void Wake();

/// The user presses a key, or lets it go.
void Stroke(std::uint32_t virtualKey, bool down);

/// The user moves the mouse, at once, and clicks with its left button.
void MovePointer(os::Point to);
void Click();

}  // namespace world

namespace contract {

class Contract : public testing::Test {
 protected:
  void SetUp() override { world::Begin(); }
  void TearDown() override { world::End(); }
};

}  // namespace contract
