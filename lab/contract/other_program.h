#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

/// What the contracts need of a program that is not theirs. It is this same program, started with other arguments.
namespace contract {

inline constexpr std::size_t kToldMost = 8;

/// What the other program's window was told, in memory that both programs share.
struct WindowJournal {
  struct Entry {
    std::uint64_t kindOrMessage, wParam;
    std::int64_t lParam;
    std::uint32_t size;
    std::array<std::uint8_t, 2048> bytes;
  };
  volatile LONG count, hangs;  // entries below `count` are complete
  std::array<Entry, kToldMost> entries;
};

/// The shared journal; null when it cannot be had.
[[nodiscard]] WindowJournal* SharedJournal();

/// What its window is asked, by the message registered by this name, the Request in wParam.
[[nodiscard]] UINT RequestMessage();
enum class Request : WPARAM {
  Hang,        // until `hangs` of the journal is 0 again; posted
  OpenChild,   // inside the window, of class world::kChildClass; answered with its handle
  OpenDialog,  // owned by the window, beside it; answered with its handle
  Raise,       // the WinEvent in the low word of lParam, of the object in its high word
};

/// The exit code of a start as the other program; nothing when the arguments say that this one is the contracts'.
///     --exit CODE · --last (2 seconds) · --window
[[nodiscard]] std::optional<int> RunAsOtherProgram(int count, wchar_t** arguments);

}  // namespace contract
