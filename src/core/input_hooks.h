#pragma once

#include <optional>

#include "os/hooks.h"

// The hooks of keyboard and mouse, which Windows removes without a word: when a call came to an answer too late, were
// it only that the machine was busy, and when it wakes or is unlocked. So whoever sees that a hook should have been
// called has it hooked again.
namespace tessaview {

/// The hook was called. On its thread; nanoseconds.
void NoteHookCalled(os::InputHook hook);

/// Nothing was heard of the hook for half a second. Any thread.
[[nodiscard]] bool IsHookSilent(os::InputHook hook);

/// Hooks again what may be gone: the hook that has `missed` something, and each that is silent. One line in the log for
/// each. Any thread; returns at once.
void ReviveHooks(std::optional<os::InputHook> missed = {});

/// The user touched the C panel. If that moved the pointer and the mouse's hook was not called, it is hooked again. On
/// the main thread; microseconds.
void ComparePointerWithHook();

}  // namespace tessaview
