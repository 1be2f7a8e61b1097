#pragma once

#include <windows.h>

/// What the contracts need of a program that is not theirs. It is this same program, started with other arguments.
namespace contract {

/// What its window is asked, by the message registered by this name, the Request in wParam.
[[nodiscard]] UINT RequestMessage();
enum class Request : WPARAM {
  Hang,        // until the event kWake is signalled
  OpenChild,   // inside the window, of class world::kChildClass; answered with its handle
  OpenDialog,  // owned by the window, beside it; answered with its handle
  Raise,       // the WinEvent in the low word of lParam, of the object in its high word
};
inline constexpr wchar_t kWake[] = L"TessaviewContractWake";

}  // namespace contract
