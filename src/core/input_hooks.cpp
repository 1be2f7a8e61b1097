#include "core/input_hooks.h"

#include <array>
#include <cstdint>
#include <utility>

#include "core/state.h"
#include "core/trace_log.h"
#include "os/clock.h"
#include "os/input.h"

namespace tessaview {
namespace {

using os::InputHook;

constexpr std::uint64_t kSilenceMs = 500;  // more than a call may take

struct WatchedHook {
  InputHook hook;
  const wchar_t* name;
};
constexpr std::array kHooks{WatchedHook{InputHook::Keyboard, L"keyboard"}, WatchedHook{InputHook::Mouse, L"mouse"}};

// When each was called last, or was hooked again.
Shared<std::uint64_t> gKeyboardCalledMs, gMouseCalledMs;

Shared<std::uint64_t>& CalledMs(InputHook hook) {
  return hook == InputHook::Mouse ? gMouseCalledMs : gKeyboardCalledMs;
}

/// The pointer, and when the mouse's hook had been called last.
struct PointerSeen {
  os::Point at;
  std::uint64_t calledMs = 0;
};
MainThreadOnly<PointerSeen> gPointerSeen;

}  // namespace

void NoteHookCalled(InputHook hook) {
  CalledMs(hook).set(os::NowMs());
}

bool IsHookSilent(InputHook hook) {
  const auto calledMs = CalledMs(hook).get();  // first: the hook may be called right now
  return os::NowMs() - calledMs >= kSilenceMs;
}

void ReviveHooks(std::optional<InputHook> missed) {
  for (const auto& [hook, name] : kHooks) {
    if (hook != missed && !IsHookSilent(hook)) continue;
    NoteHookCalled(hook);
    if (os::HookAgain(hook)) Log(L"[Hooks] The %ls was not heard of, it is hooked again \n", name);
  }
}

void ComparePointerWithHook() {
  const PointerSeen now{os::CursorPosition(), gMouseCalledMs.get()};
  const auto before = std::exchange(*gPointerSeen, now);
  const bool isUnheard = now.at != before.at && now.calledMs == before.calledMs;
  if (isUnheard && IsHookSilent(InputHook::Mouse)) ReviveHooks(InputHook::Mouse);
}

}  // namespace tessaview
