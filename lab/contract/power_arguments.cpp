// What the door asks of Windows about power schemes, hooks and the system's log, where Wine only pretends to serve it.
#include <windows.h>

#include <gtest/gtest.h>
#include <powrprof.h>
#include <winevt.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <vector>

#include "contract/patched.h"
#include "os/hooks.h"
#include "os/power.h"
#include "os/watches.h"

namespace contract {
namespace {

constexpr GUID kScheme{0x381B4222, 0xF694, 0x41F0, {0x96, 0x85, 0xFF, 0x5B, 0xB2, 0x60, 0xDF, 0x2E}};
constexpr GUID kButtons{0x4F971E89, 0xEEBD, 0x4455, {0xA8, 0xDE, 0x9E, 0x59, 0x04, 0x0E, 0x73, 0x47}};
constexpr GUID kLid{0x5CA83367, 0x6E45, 0x459F, {0xA2, 0x7B, 0x47, 0x6B, 0x1D, 0x01, 0xC9, 0x36}};

template <DWORD action>
DWORD WINAPI ReadAction(HKEY root, const GUID* scheme, const GUID* group, const GUID* setting, DWORD* value) {
  const bool right = root == nullptr && *scheme == kScheme && *group == kButtons && *setting == kLid;
  *value = action;
  return right ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER;
}

FARPROC WINAPI FindReader(HMODULE, LPCSTR name) {
  void* found = nullptr;
  if (std::strcmp(name, "PowerReadACValueIndex") == 0) found = reinterpret_cast<void*>(&ReadAction<2>);
  if (std::strcmp(name, "PowerReadDCValueIndex") == 0) found = reinterpret_cast<void*>(&ReadAction<3>);
  return reinterpret_cast<FARPROC>(found);
}

TEST(PowerArguments, TheLidsActionIsReadFromTheSchemeForEachSource) {
  static DWORD answer;
  static HLOCAL freed;
  CONTRACT_PATCH(PowerGetActiveScheme, [](auto, auto scheme) -> DWORD {
    static GUID given;
    given = kScheme;
    *scheme = &given;
    return answer;
  });
  CONTRACT_PATCH(LocalFree, [](auto memory) -> HLOCAL { return freed = memory, nullptr; });
  CONTRACT_PATCH(GetProcAddress, FindReader);
  answer = ERROR_SUCCESS, freed = nullptr;
  const auto scheme = os::ActivePowerScheme();
  ASSERT_TRUE(scheme && freed != nullptr);
  const auto onMains = os::LidCloseActionOf(*scheme, true), onBattery = os::LidCloseActionOf(*scheme, false);
  EXPECT_TRUE(onMains && *onMains == 2 && onBattery && *onBattery == 3);
  EXPECT_EQ(os::LidCloseActionOf({}, true).error(), 87U);
  answer = ERROR_CALL_NOT_IMPLEMENTED;
  EXPECT_EQ(os::ActivePowerScheme().error(), 120U);
}

constexpr std::uintptr_t kFirstHook = 0x77;
std::vector<DWORD> gAsked;

TEST(HookArguments, EachRangeOfEventsIsHookedWithoutTheOwnProcessAndWhoCannotWatchReturns) {
  gAsked.clear();
  CONTRACT_PATCH(SetWinEventHook, [](auto first, auto last, auto, auto, auto, auto, auto flags) -> HWINEVENTHOOK {
    gAsked.insert(gAsked.end(), {first, last, flags});
    SetLastError(ERROR_GEN_FAILURE);
    return reinterpret_cast<HWINEVENTHOOK>(gAsked.size() == 3 ? kFirstHook : 0);  // there is no second one
  });
  CONTRACT_PATCH(UnhookWinEvent, [](auto hook) -> BOOL {
    return gAsked.push_back(static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(hook))), TRUE;
  });
  const auto watched = os::WatchWindowEvents({{os::WindowEvent::Foreground, os::WindowEvent::Foreground},
                                              {os::WindowEvent::MoveSizeStart, os::WindowEvent::LocationChange}},
                                             [](auto, auto, auto) {});
  EXPECT_EQ(watched.error(), 31U);
  EXPECT_EQ(gAsked,
            (std::vector<DWORD>{3, 3, WINEVENT_SKIPOWNPROCESS, 0x0A, 0x800B, WINEVENT_SKIPOWNPROCESS, kFirstHook}));
}

std::vector<std::intptr_t> gHooks;  // as they were set, or with a minus released
int gPriority, gMessages;

TEST(HookArguments, ANewHookIsInPlaceBeforeTheOldOneIsReleasedOnAThreadThatRunsBeforeAllOthers) {
  gHooks.clear(), gPriority = gMessages = 0;
  CONTRACT_PATCH(SetThreadPriority, [](auto, auto priority) -> BOOL { return gPriority = priority, TRUE; });
  CONTRACT_PATCH(SetWindowsHookExW, [](auto kind, auto, auto, auto) -> HHOOK {
    gHooks.push_back(gMessages == 2 || kind != WH_MOUSE_LL ? 0 : gMessages + 1);  // the third time there is none
    return reinterpret_cast<HHOOK>(gHooks.back());
  });
  CONTRACT_PATCH(UnhookWindowsHookEx,
                 [](auto hook) -> BOOL { return gHooks.push_back(-reinterpret_cast<std::intptr_t>(hook)), FALSE; });
  CONTRACT_PATCH(GetMessageW, [](auto message, auto, auto, auto) -> BOOL {
    os::HookAgain(os::InputHook::Mouse);
    return ++gMessages <= 2 && PeekMessageW(message, nullptr, 0, 0, PM_REMOVE);
  });
  EXPECT_TRUE(os::WatchMouse([](auto, auto) {}));
  EXPECT_TRUE(gPriority == THREAD_PRIORITY_TIME_CRITICAL && gHooks == (std::vector<std::intptr_t>{1, 2, -1, 0, -2}));
}

// ---- The system's log, which Wine has none of ----

const EVT_HANDLE kSubscription = reinterpret_cast<EVT_HANDLE>(0x50);
HANDLE gSignal;
std::vector<DWORD> gBatches;  // events that come, in threes at most, and 0 for no more of them
std::vector<std::size_t> gClosed;
int gWaits;

TEST(WatchArguments, EventsOfTheSystemsLogAreTakenWholeAndToldOnce) {
  CONTRACT_PATCH(EvtSubscribe,
                 [](auto session, auto signal, auto channel, auto query, auto bookmark, auto context, auto callback,
                    auto flags) -> EVT_HANDLE {
                   gSignal = signal;
                   const bool plain = !session && !bookmark && !context && !callback && flags == 1;
                   const bool right = std::wcscmp(channel, L"System") == 0 && std::wcscmp(query, L"*[it]") == 0;
                   return plain && right ? kSubscription : nullptr;
                 });
  CONTRACT_PATCH(EvtNext, [](auto results, auto size, auto events, auto, auto flags, auto count) -> BOOL {
    const DWORD batch = gBatches.empty() ? 0 : gBatches.front();
    if (!gBatches.empty()) gBatches.erase(gBatches.begin());
    for (DWORD i = 0; i < batch; ++i) events[i] = reinterpret_cast<EVT_HANDLE>(static_cast<std::uintptr_t>(i + 1));
    *count = batch;
    SetLastError(ERROR_NO_MORE_ITEMS);
    return results == kSubscription && size >= 3 && flags == 0 && batch != 0;
  });
  CONTRACT_PATCH(EvtClose,
                 [](auto handle) -> BOOL { return gClosed.push_back(reinterpret_cast<std::uintptr_t>(handle)), TRUE; });
  CONTRACT_PATCH(WaitForSingleObject, [](auto object, auto patience) -> DWORD {
    if (object != gSignal) return WaitForSingleObjectEx(object, patience, FALSE);
    return patience == INFINITE && ++gWaits <= 3 ? WAIT_OBJECT_0 : WAIT_FAILED;
  });
  gBatches = {3, 1, 0, 0, 2};  // six events in all: the second signal came for one of the first four
  gClosed.clear(), gWaits = 0;
  int told = 0;
  for (const auto* query : {L"*[it]", L"*[another]"}) EXPECT_FALSE(os::WatchSystemLog(query, [&] { ++told; }));
  EXPECT_TRUE(told == 2 && gWaits == 4) << "the other one it is not let to watch";
  EXPECT_EQ(gClosed, (std::vector<std::size_t>{1, 2, 3, 1, 1, 2, 0x50}));
}

}  // namespace
}  // namespace contract
