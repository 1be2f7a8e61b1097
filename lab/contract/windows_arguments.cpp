// What the service window asks of Windows and makes of its messages, and what the trace provider hands over, where Wine
// only pretends to serve it.
#include <windows.h>

#include <evntprov.h>
#include <gtest/gtest.h>
#include <shellscalingapi.h>
#include <wtsapi32.h>

#include <cstring>

#include "contract/patched.h"
#include "os/service_window.h"
#include "os/trace.h"
#include "tests/contract/heard.h"

namespace contract {
namespace {

constexpr auto kWindow = os::WindowHandle{0x10234};
const auto kNative = reinterpret_cast<HWND>(0x10234);
constexpr GUID kSettings[]{// by PowerSetting
                           {0x6FE69556, 0x704A, 0x47A0, {0x8F, 0x24, 0xC2, 0x8D, 0x93, 0x6F, 0xDA, 0x47}},
                           {0xBA3E0F4D, 0xB817, 0x4094, {0xA2, 0xD1, 0xD5, 0x63, 0x79, 0xE6, 0xA0, 0xF3}},
                           {0xE00958C0, 0xC213, 0x4ACE, {0xAC, 0x77, 0xFE, 0xCC, 0xED, 0x2E, 0xEE, 0xA5}},
                           {0x5D3E9A59, 0xE9D5, 0x4B00, {0xA6, 0xBD, 0xFF, 0x34, 0xFF, 0x51, 0x65, 0x48}},
                           {0x5CA83367, 0x6E45, 0x459F, {0xA2, 0x7B, 0x47, 0x6B, 0x1D, 0x01, 0xC9, 0x36}}};

TEST(WindowArguments, NotificationsAreAskedForThisWindowAndThisSession) {
  static GUID setting;
  static std::string asked;
  CONTRACT_PATCH(RegisterPowerSettingNotification, [](auto window, auto id, auto flags) -> HPOWERNOTIFY {
    setting = *id;
    const bool right = window == kNative && flags == DEVICE_NOTIFY_WINDOW_HANDLE;
    return reinterpret_cast<HPOWERNOTIFY>(right ? INT_PTR{0x77} : INT_PTR{0});
  });
  CONTRACT_PATCH(UnregisterPowerSettingNotification, [](auto handle) -> BOOL {
    return asked += handle == reinterpret_cast<HPOWERNOTIFY>(0x77) ? "." : "?", TRUE;
  });
  for (std::size_t i = 0; i < std::size(kSettings); ++i) {
    const auto notification = os::RegisterPowerSetting(kWindow, static_cast<os::PowerSetting>(i));
    EXPECT_TRUE(notification && IsEqualGUID(setting, kSettings[i])) << i;
    os::UnregisterPowerSetting(*notification);
  }
  CONTRACT_PATCH(WTSRegisterSessionNotification, [](auto window, auto flags) -> BOOL {
    return SetLastError(ERROR_GEN_FAILURE), window == kNative && flags == NOTIFY_FOR_THIS_SESSION;
  });
  EXPECT_TRUE(os::RegisterSessionEvents(kWindow));
  EXPECT_EQ(os::RegisterSessionEvents(os::WindowHandle::None).error(), 31U);
  CONTRACT_PATCH(WTSUnRegisterSessionNotification,
                 [](auto window) -> BOOL { return asked += window == kNative ? "unregistered " : "", TRUE; });
  CONTRACT_PATCH(ChangeWindowMessageFilterEx, [](auto window, auto message, auto action, auto) -> BOOL {
    return asked += window == kNative && message == WM_COPYDATA && action == MSGFLT_ALLOW ? "allowed " : "", TRUE;
  });
  CONTRACT_PATCH(SetProcessDpiAwareness, [](auto awareness) -> HRESULT {
    return asked += awareness == PROCESS_PER_MONITOR_DPI_AWARE ? "aware " : "", S_OK;
  });
  CONTRACT_PATCH(DialogBoxParamW, [](auto program, auto dialog, auto owner, auto procedure, auto) -> INT_PTR {
    const bool own = program == GetModuleHandleW(nullptr) && owner == kNative && procedure != nullptr;
    return asked += own && dialog == MAKEINTRESOURCEW(103) ? "dialog" : "", 1;
  });
  os::UnregisterSessionEvents(kWindow);
  EXPECT_TRUE(os::AllowMessage(kWindow, os::kCopyDataMessage) && os::BecomePerMonitorDpiAware());
  os::ShowDialog(kWindow, 103);
  EXPECT_EQ(asked, ".....unregistered allowed aware dialog");
}

// ---- Messages in ----

TEST(WindowDecoder, EachMessageIsDecodedIntoItsEvent) {
  static const auto events = HeardEvents();  // no id of a registered message: those registrations failed
  ASSERT_TRUE(os::RegisterServiceWindowClass({L"ContractDecoder", 0, 0, 0}, events));
  const auto window = *os::CreateServiceWindow(L"ContractDecoder", L"");
  // A record of 38 bytes: two reports of three bytes each. Input 2 is a mouse's, and 3 is announced as larger.
  CONTRACT_PATCH(GetRawInputData, [](auto input, auto command, auto to, auto size, auto headerSize) -> UINT {
    const auto number = reinterpret_cast<std::uintptr_t>(input);
    const struct {
      RAWINPUTHEADER header;
      DWORD reportSize, count;
      BYTE reports[8];
    } record{{number == 2 ? DWORD{RIM_TYPEMOUSE} : RIM_TYPEHID, 38, nullptr, 0}, 3, 2, {4, 1, 1, 4, 2, 2}};
    if (command != RID_INPUT || headerSize != sizeof(RAWINPUTHEADER)) return static_cast<UINT>(-1);
    if (to == nullptr) return *size = number == 3 ? 40 : 38, 0;
    return std::memcpy(to, &record, 38), 38;
  });
  const struct {
    GUID guid;
    DWORD length, value;
  } lid{kSettings[1], 4, 1}, saver{kSettings[2], 4, 7}, none{{1, 2, 3, {}}, 4, 1}, tooShort{kSettings[1], 1, 1};
  const auto at = [](const auto& data) { return reinterpret_cast<LPARAM>(&data); };
  const struct {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    std::vector<std::string> heard;
  } cases[]{
      {WM_INPUT, RIM_INPUTSINK, 1, {"raw 1 2 3 6 4"}},
      {WM_INPUT, RIM_INPUTSINK, 2, {"raw 1 0 0 0 0"}},
      {WM_INPUT, RIM_INPUTSINK, 3, {"raw 0 2 3 6 4"}},
      {WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0, {"power 10"}},
      {WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE, at(lid), {"setting 1 1"}},
      {WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE, at(saver), {"setting 2 7"}},
      {WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE, at(none), {}},
      {WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE, at(tooShort), {}},
      {WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE, 0, {}},
      {WM_WTSSESSION_CHANGE, WTS_SESSION_LOCK, 1, {"session 7"}},
      {WM_QUERYENDSESSION, 0, static_cast<LPARAM>(0x80000000U), {"end 2147483648"}},
      {WM_ENDSESSION, TRUE, 0, {}},
      {WM_COPYDATA, 5, 0, {"copyData 5 0"}},
      {WM_DISPLAYCHANGE, 32, 0, {"displayChange"}},
      {WM_NULL, 0, 0, {}},
  };
  for (const auto& each : cases) {
    Heard().clear();
    const auto native = reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window));
    EXPECT_EQ(SendMessageW(native, each.message, each.wParam, each.lParam), 0);
    EXPECT_EQ(Heard(), each.heard) << each.message;
  }
  os::DestroyServiceWindow(window);
}

// ---- Events out ----

TEST(TraceArguments, AProviderHearsWhoListensAndWritesEventsOfThreeParts) {
  static PENABLECALLBACK onEnable;
  static void* context;
  static std::string heard, asked;
  CONTRACT_PATCH(EventRegister, [](auto id, auto call, auto with, auto handle) -> ULONG {
    onEnable = call, context = with, *handle = 5;
    return id->Data1 == 0x01020304 && id->Data4[7] == 9 ? 0 : ERROR_INVALID_PARAMETER;
  });
  const auto provider = os::RegisterTraceProvider(
      {0x01020304, 5, 6, {0, 0, 0, 0, 0, 0, 0, 9}},
      [](bool enabled, std::uint8_t level) { heard += std::to_string(enabled) + std::to_string(level) + " "; });
  ASSERT_TRUE(provider && *provider == os::TraceProvider{5});
  for (const ULONG control : {1UL, 2UL, 0UL}) onEnable(nullptr, control, 4, 0, 0, nullptr, context);
  EXPECT_EQ(heard, "14 04 ") << "a request to log the state anew changes nothing";

  CONTRACT_PATCH(EventSetInformation, [](auto of, auto what, auto traits, auto size) -> ULONG {
    const bool right = of == 5 && static_cast<int>(what) == 2 && size == 3 && std::memcmp(traits, "abc", 3) == 0;
    return right ? 0 : ERROR_INVALID_PARAMETER;
  });
  CONTRACT_PATCH(
      EventWriteTransfer, [](auto, auto event, auto activity, auto related, auto count, auto parts) -> ULONG {
        asked = std::to_string(event->Channel) + std::to_string(event->Level) + " " + std::to_string(event->Keyword);
        for (ULONG i = 0; i < count; ++i) {
          const auto* text = reinterpret_cast<const char*>(static_cast<std::uintptr_t>(parts[i].Ptr));
          asked += " " + std::to_string(parts[i].Reserved) + std::string(text, parts[i].Size);
        }
        return activity == nullptr && related == nullptr ? 234 : 0;
      });
  const os::Bytes traits{'a', 'b', 'c'}, metadata{'m'}, data{'d', 'd'};
  EXPECT_TRUE(os::SetTraceProviderTraits(*provider, traits));
  const os::TraceEventDescriptor event{.channel = 11, .level = 4, .keyword = 0x8'0000'0000};
  EXPECT_EQ(os::WriteTraceEvent(*provider, event, traits, metadata, data), 234U) << "the system's code";
  EXPECT_EQ(asked, "114 34359738368 2abc 1m 0dd");
  CONTRACT_PATCH(OutputDebugStringW, [](auto text) { asked = std::string(text, text + std::wcslen(text)); });
  os::WriteDebugText(L"line");
  EXPECT_EQ(asked, "line");
}

}  // namespace
}  // namespace contract
