#pragma once

#include <cstdint>

namespace tessaview {

/// Follows a notification of the hot-key component; `wParam` says which (an F6 press, the end of an F6 sequence, a
/// flip), `lParam` more of it. Main thread; can take seconds.
void OnHotKey(std::uint64_t wParam, std::int64_t lParam);

/// Follows a report of the touch pad's status (`wParam` 3; other messages are not reports): `lParam` 0 disabled,
/// 1 enabled, 2 unknown. The UI is told to ask for it. Main thread.
void OnTouchPadStatus(std::uint64_t wParam, std::int64_t lParam);

}  // namespace tessaview
