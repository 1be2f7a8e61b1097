// What the door asks of the system's log, which Wine has none of.
#include <windows.h>

#include <gtest/gtest.h>
#include <winevt.h>

#include <cwchar>
#include <vector>

#include "contract/patched.h"
#include "os/watches.h"

namespace contract {
namespace {

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
  os::WatchSystemLog(L"*[it]", [&] { ++told; });
  EXPECT_EQ(told, 2);
  EXPECT_EQ(gClosed, (std::vector<std::size_t>{1, 2, 3, 1, 1, 2, 0x50}));
  EXPECT_EQ(gWaits, 4);
  os::WatchSystemLog(L"*[another]", [&] { ++told; });
  EXPECT_TRUE(told == 2 && gWaits == 4) << "not let to watch";
}

}  // namespace
}  // namespace contract
