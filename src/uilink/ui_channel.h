#pragma once

#include <cstdint>

#include "os/types.h"
#include "uilink/ui_record.h"

namespace tessaview {

// Window classes of the UI application.
inline constexpr const wchar_t* kUiMainClass = L"Tessaview";
inline constexpr const wchar_t* kUiGuideClass = L"TessaviewQuickGuide";  // the first-run setup guide
inline constexpr const wchar_t* kUiVideoClass = L"TessaviewVideoClass";

/// Sends a text message to the UI and waits until the UI has taken it. The windows are looked up afresh:
/// - the main window alone gets every text;
/// - while the setup guide runs beside it, nothing is sent;
/// - the guide alone gets the texts it understands ("POWERON", "POWEROFF"), others are dropped.
/// Returns 0 when there is no UI or nothing may be sent, else 1, also for a text that was dropped for the guide.
/// Any thread; a hung UI blocks the caller until it answers.
std::uint32_t SendUiText(const UiMessage& message);

/// The same, but gives up after 100 ms, and at once when the UI is hung. The guide also gets "UACENTRY" and "UACEXIT".
std::uint32_t SendUiTextTimeout(const UiMessage& message);

/// Forwards a raw touch report to the UI's main window, if it is there. Blocks like SendUiText.
void SendTouchReport(os::BytesView report);

}  // namespace tessaview
