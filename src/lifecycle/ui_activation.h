#pragma once

#include <string>

namespace tessaview {

inline constexpr const wchar_t* kUiAppUserModelId = L"7C31A0D4.TessaviewMaster_h2kq9vx81tmwe!7C31A0D4.TessaviewMaster";

/// Activates a packaged application; an empty `argument` passes none. An empty id activates nothing. Joins the calling
/// thread to COM and leaves it so: to be called on a thread of its own. Blocks for seconds at worst.
void LaunchByAumid(const std::wstring& appUserModelId, const std::wstring& argument);

/// Activates the UI on a thread of its own, telling it that the service started it. Any thread; returns at once.
void StartUiLaunchThread();

/// The same for a UI that ended and is brought back: it is told nothing.
void StartUiRelaunchThread();

}  // namespace tessaview
