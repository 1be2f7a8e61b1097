#include "core/trace_log.h"
#include "power/flip_state.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/events/events.h"
#include "uilink/events/f6_sequence.h"

namespace tessaview {
namespace {

// `wParam` of the hot-key message.
constexpr std::uint64_t kF6Press = 0x6B, kF6SequenceEnd = 0xF9, kFlipChanged = 0xFA;

// The touch-pad status message: what `wParam` marks as a report, and the reported states.
constexpr std::uint64_t kStatusReport = 3;
constexpr std::int64_t kDisabled = 0, kEnabled = 1, kUnknown = 2;

}  // namespace

void OnHotKey(std::uint64_t wParam, std::int64_t lParam) {
  Log(L"----------------- WM_ACPINOTIFICATION_MESSAGE --------------------- \n");
  Log(L"wParam = 0X%X , lParam = 0X%X \n", wParam, lParam);
  switch (wParam) {
    case kF6Press:
      return OnF6Press();
    case kFlipChanged:
      return OnFlipStateChanged();
    case kF6SequenceEnd:
      return OnF6SequenceEnd(lParam);
    default:
      return;
  }
}

void OnTouchPadStatus(std::uint64_t wParam, std::int64_t lParam) {
  if (wParam != kStatusReport) return;
  if (lParam == kDisabled) {
    Log(L"[WM_CONTROLPANEL_APPNOTIFICATION]Touchpad is disabled. \n");
    NoteTouchPadEnabled(false);
  } else if (lParam == kEnabled) {
    Log(L"[WM_CONTROLPANEL_APPNOTIFICATION]Touchpad is enabled. \n");
    NoteTouchPadEnabled(true);
  } else if (lParam == kUnknown) {
    Log(L"[WM_CONTROLPANEL_APPNOTIFICATION]Status unknown. \n");
  }
  Log(L"Touchpad status is changed. \n");
  TellUi(texts::kGetTouchPad);
}

}  // namespace tessaview
