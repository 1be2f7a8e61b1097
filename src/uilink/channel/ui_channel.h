#pragma once

#include <cstdint>

#include "os/types.h"
#include "uilink/channel/ui_record.h"
#include "uilink/channel/ui_texts.h"

namespace tessaview {

// Window classes of the UI application.
inline constexpr const wchar_t* kUiMainClass = L"Tessaview";
inline constexpr const wchar_t* kUiGuideClass = L"TessaviewQuickGuide";  // the first-run setup guide
inline constexpr const wchar_t* kUiVideoClass = L"TessaviewVideoClass";

/// Sends a text to the UI, waiting for it as the text's row says; `fields.text` is what follows the text's name. The
/// windows are looked up afresh:
/// - the main window alone gets every text;
/// - while the setup guide runs beside it, nothing is sent;
/// - the guide alone gets the texts whose rows say so, others are dropped.
/// Returns 0 when there is no UI or nothing may be sent, else 1, also for a text that was dropped for the guide.
/// Any thread. A hung UI blocks the caller until it answers; where the row says briefly, for 100 ms at most.
std::uint32_t TellUi(const UiText& text, UiMessage fields = {});

/// Forwards a raw touch report to the UI's main window, if it is there. Blocks until the UI has taken it.
void SendTouchReport(os::BytesView report);

}  // namespace tessaview
