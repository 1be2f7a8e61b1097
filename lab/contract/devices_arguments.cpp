// What the door asks of Windows about devices, where Wine only pretends to serve it.
#include <windows.h>

#include <gtest/gtest.h>
#include <setupapi.h>

#include <cstring>
#include <string>

#include "contract/patched.h"
#include "os/device_io.h"
#include "os/devices.h"
#include "os/hid.h"

namespace contract {
namespace {

TEST(DeviceArguments, DevicesAreOpenedShared) {
  static std::string asked;
  CONTRACT_PATCH(
      CreateFileW,
      [](LPCWSTR, DWORD access, DWORD share, SECURITY_ATTRIBUTES*, DWORD disposition, DWORD flags, HANDLE) -> HANDLE {
        asked = std::to_string(access >> 28) + " " + std::to_string(share) + " " + std::to_string(disposition) + " " +
                std::to_string(flags);
        return SetLastError(ERROR_SHARING_VIOLATION), INVALID_HANDLE_VALUE;
      });
  EXPECT_EQ(os::OpenDevice(L"\\\\.\\Device").error(), 32U);
  EXPECT_EQ(asked, "12 3 3 0") << "read and write, shared for both, existing";
  EXPECT_EQ(os::OpenHid(L"\\\\?\\HID#").error(), 32U);
  EXPECT_EQ(asked, "4 3 3 1073741824") << "write only, and overlapped";
}

TEST(DeviceArguments, AWriteThatTheDeviceDoesNotTakeIsGivenUp) {
  static std::string story;
  CONTRACT_PATCH(WriteFile, [](auto, auto, auto size, auto, auto overlapped) -> BOOL {
    story += overlapped->hEvent != nullptr ? "write " + std::to_string(size) : "";
    return SetLastError(ERROR_IO_PENDING), FALSE;
  });
  CONTRACT_PATCH(GetOverlappedResultEx, [](auto, auto, auto, auto ms, auto) -> BOOL {
    story += ", " + std::to_string(ms) + " ms";
    return SetLastError(WAIT_TIMEOUT), FALSE;
  });
  CONTRACT_PATCH(CancelIoEx, [](auto, auto) -> BOOL { return story += ", cancel", TRUE; });
  EXPECT_FALSE(os::WriteHidReport(os::HidDevice(), os::Bytes(64)));
  EXPECT_EQ(story, "write 64, 1000 ms, cancel, 100 ms");
}

TEST(DeviceArguments, AFirmwareVariableIsNamedSpacedAndSized) {
  static std::wstring asked;
  CONTRACT_PATCH(SetFirmwareEnvironmentVariableW, [](auto name, auto guid, auto value, auto size) -> BOOL {
    asked = name + std::wstring(guid) + std::to_wstring(size) + std::to_wstring(*static_cast<BYTE*>(value));
    return SetLastError(ERROR_PRIVILEGE_NOT_HELD), FALSE;
  });
  EXPECT_EQ(os::WriteFirmwareVariable(L"Name", L"{guid}", os::Bytes{9, 0, 0, 0}).error(), 1314U);
  EXPECT_EQ(asked, L"Name{guid}49");
}

TEST(DeviceArguments, ANodeIsSwitchedForGoodInAllProfiles) {
  static SP_PROPCHANGE_PARAMS change;
  static DWORD size, enumeratorFlags, restartFlags;
  static DI_FUNCTION called;
  CONTRACT_PATCH(SetupDiGetClassDevsW, [](auto devices, auto enumerator, auto, auto flags) -> HDEVINFO {
    enumeratorFlags = devices == nullptr && std::wcscmp(enumerator, L"HID") == 0 ? flags : 0;
    return reinterpret_cast<HDEVINFO>(0x1234);
  });
  CONTRACT_PATCH(SetupDiDestroyDeviceInfoList, [](auto) -> BOOL { return TRUE; });
  CONTRACT_PATCH(SetupDiEnumDeviceInfo, [](auto, auto index, auto node) -> BOOL {
    node->DevInst = 70 + index;
    return index < 2;
  });
  CONTRACT_PATCH(SetupDiSetClassInstallParamsW, [](auto, auto node, auto parameters, auto length) -> BOOL {
    change = *reinterpret_cast<SP_PROPCHANGE_PARAMS*>(parameters), size = length;
    return node->DevInst == 71;
  });
  CONTRACT_PATCH(SetupDiCallClassInstaller, [](auto function, auto, auto node) -> BOOL {
    called = function;
    return SetLastError(ERROR_ACCESS_DENIED), node->DevInst == 71 && change.StateChange == DICS_ENABLE;
  });
  CONTRACT_PATCH(SetupDiGetDeviceInstallParamsW,
                 [](HDEVINFO, PSP_DEVINFO_DATA, PSP_DEVINSTALL_PARAMS_W parameters) -> BOOL {
                   return parameters->Flags = restartFlags, parameters->cbSize == sizeof(SP_DEVINSTALL_PARAMS_W);
                 });
  const auto nodes = os::OpenHidNodes();
  ASSERT_TRUE(nodes && enumeratorFlags == (DIGCF_PRESENT | DIGCF_ALLCLASSES));
  for (const DWORD flags : {DWORD{0}, DWORD{DI_NEEDRESTART}, DWORD{DI_NEEDREBOOT}}) {
    restartFlags = flags | DI_SHOWALL;
    const auto changed = os::EnableHidNode(*nodes, 1, true);
    EXPECT_TRUE(changed && *changed == (flags == 0 ? os::NodeChange::Now : os::NodeChange::AfterRestart));
  }
  EXPECT_EQ(os::EnableHidNode(*nodes, 1, false).error(), 5U) << "what the class installer says";
  EXPECT_TRUE(size == sizeof change && change.ClassInstallHeader.cbSize == sizeof(SP_CLASSINSTALL_HEADER));
  EXPECT_TRUE(change.ClassInstallHeader.InstallFunction == DIF_PROPERTYCHANGE && called == DIF_PROPERTYCHANGE);
  EXPECT_TRUE(change.StateChange == DICS_DISABLE && change.Scope == DICS_FLAG_GLOBAL && change.HwProfile == 0);
}

TEST(DeviceArguments, RawInputIsAskedForOneUsagePage) {
  static RAWINPUTDEVICE asked;
  CONTRACT_PATCH(RegisterRawInputDevices, [](auto devices, auto count, auto size) -> BOOL {
    asked = *devices;
    return SetLastError(ERROR_INVALID_PARAMETER), count == 1 && size == 16 && devices->usUsage == 0;
  });
  const auto window = os::WindowHandle{0x10234};
  EXPECT_TRUE(os::RegisterRawInput(0x0D, 0, os::kRawInputPageOnly | os::kRawInputSink, window));
  EXPECT_TRUE(asked.usUsagePage == 0x0D && asked.dwFlags == (RIDEV_PAGEONLY | RIDEV_INPUTSINK));
  EXPECT_EQ(asked.hwndTarget, reinterpret_cast<HWND>(0x10234));
  EXPECT_EQ(os::RegisterRawInput(0x0D, 4, os::kRawInputRemove, os::WindowHandle::None).error(), 87U);
  EXPECT_TRUE(asked.dwFlags == RIDEV_REMOVE && asked.hwndTarget == nullptr);
}

TEST(DeviceArguments, ClassesAreReadFromEachDevicesProperty) {
  CONTRACT_PATCH(SetupDiGetDevicePropertyW,
                 [](auto, auto, auto key, auto type, auto to, auto size, auto required, auto) -> BOOL {
                   constexpr wchar_t kClass[] = L"Monitor";
                   constexpr DWORD kOddSize = sizeof kClass - 1;  // half of the NUL is missing
                   *type = DEVPROP_TYPE_STRING;
                   if (required != nullptr) *required = kOddSize;
                   if (key->fmtid.Data1 != 0xA45C254E || key->pid != 9 || size < kOddSize) return FALSE;
                   return std::memcpy(to, kClass, kOddSize), TRUE;
                 });
  const auto classes = os::PresentDeviceClasses();
  EXPECT_TRUE(!classes.empty() && classes == std::vector<std::wstring>(classes.size(), L"Monitor"));
}

}  // namespace
}  // namespace contract
