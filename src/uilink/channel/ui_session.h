#pragma once

#include <cstdint>

// What the UI has told of itself since the controller started. Any thread may ask; the commands note it.
namespace tessaview {

/// The UI said that it is ready.
[[nodiscard]] bool isTessaviewAlive();
void SetTessaviewAlive(bool alive);

/// The UI told its version, so it is one of the newer ones.
[[nodiscard]] bool gUIVersionReported();
void NoteUIVersionReported();

/// The UI does without the window mover; never taken back.
[[nodiscard]] bool isActionMenuBlocked();
void SetActionMenuBlocked();

/// How long ago the UI asked for UP or DOWN, whichever came last; ms, on the clock of os::NowMs.
[[nodiscard]] std::uint64_t SinceLastMoveCommand(std::uint64_t nowMs);
void NoteUpCommand(std::uint64_t nowMs);
void NoteDownCommand(std::uint64_t nowMs);

}  // namespace tessaview
