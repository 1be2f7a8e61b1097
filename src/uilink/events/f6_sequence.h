#pragma once

#include <cstdint>

namespace tessaview {

/// Where a sequence of F6 presses leaves the machine.
enum class F6Mode : std::uint32_t { Panel = 0, TouchPad = 1, AllOff = 2 };

/// Each press goes one mode on, round and round, from the mode the sequence began in: the panel, the touch pad, or
/// neither.
[[nodiscard]] F6Mode ModeAfter(F6Mode start, std::uint32_t presses);

/// The hot-key component reported the touch pad's state. Main thread, as the rest.
void NoteTouchPadEnabled(bool enabled);

/// A press of F6 (hot-key 0x6B): the first one of a sequence notes whether the panel is on.
void OnF6Press();

/// The end of an F6 sequence (hot-key 0xF9): turns the presses into a mode, and does what `action` says the component
/// wants of the panel; 2 = off, 3 = on, other numbers nothing. Blocks for seconds while displays settle, and while a
/// reset of the display mode is under way.
void OnF6SequenceEnd(std::int64_t action);

}  // namespace tessaview
