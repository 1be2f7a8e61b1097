// The system's log. Wine has none to subscribe to: here an event is in it each time the machine comes back from
// hibernation.
#include <windows.h>

#include <winevt.h>

#include <atomic>
#include <thread>

#include "kit/system_events.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

const EVT_HANDLE kSubscription = reinterpret_cast<EVT_HANDLE>(1);
const EVT_HANDLE kEvent = reinterpret_cast<EVT_HANDLE>(2);

std::atomic<int> waiting = 0;  // events that nobody has taken yet

EVT_HANDLE WINAPI Subscribe(EVT_HANDLE /*session*/, HANDLE signal, LPCWSTR channel, LPCWSTR query,
                            EVT_HANDLE /*bookmark*/, PVOID /*context*/, EVT_SUBSCRIBE_CALLBACK /*callback*/,
                            DWORD flags) {
  if (signal == nullptr || flags != EvtSubscribeToFutureEvents) return nullptr;
  std::thread([signal] {
    for (;;) {
      Await(SystemEvent::Resumed);
      ++waiting;
      SetEvent(signal);
    }
  }).detach();
  Report(L"patch log " + std::wstring(channel) + L" is watched for " + query);
  return kSubscription;
}

BOOL WINAPI Next(EVT_HANDLE results, DWORD size, EVT_HANDLE* events, DWORD /*timeoutMs*/, DWORD /*flags*/,
                 PDWORD count) {
  if (results != kSubscription || size == 0 || waiting == 0) {
    SetLastError(ERROR_NO_MORE_ITEMS);
    return FALSE;
  }
  --waiting;
  events[0] = kEvent;
  *count = 1;
  return TRUE;
}

BOOL WINAPI Close(EVT_HANDLE /*handle*/) {
  return TRUE;
}

}  // namespace

std::array<Redirection, 3> EventLogCalls() {
  return {{{"EvtSubscribe", reinterpret_cast<void*>(Subscribe)},
           {"EvtNext", reinterpret_cast<void*>(Next)},
           {"EvtClose", reinterpret_cast<void*>(Close)}}};
}

}  // namespace lab::patch
