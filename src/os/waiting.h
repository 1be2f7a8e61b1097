#pragma once

namespace os {

/// What the system hands a thread while a door function that it called has not returned. There are four classes of
/// deliveries: what is sent (messages, calls of low-level hooks, window events), what is posted, input, and timers.
/// Posted messages and timers wait for the thread's message loop, whatever it is doing.
enum class Waiting {
  Instant,       // the function waits for nobody
  Deaf,          // it waits in the kernel: nothing is delivered
  Serving,       // it waits in the window manager: what is sent is delivered at once, nested inside the call
  ServingInput,  // it waits in COM: as Serving, raw input as well; refused while what is sent is being handled
  Loop,          // it is the thread's message loop: everything is handed over, one after the other
};

/// One mark stands beside the declaration of each function that can wait. `isDocumented`: by Microsoft; otherwise it is
/// the likelier of the two ways, as measured where it could be.
struct WaitingMark {
  Waiting way;
  bool isDocumented = true;
};

/// A function without a mark of its own is instant.
template <auto Function>
inline constexpr WaitingMark kWaiting{Waiting::Instant};

/// What COM answers when it is called out of the process while a sent message is being handled
/// (RPC_E_CANTCALLOUT_ININPUTSYNCCALL).
inline constexpr unsigned kComCallRefused = 0x8001'010D;

}  // namespace os
