#include "uilink/channel/ui_channel.h"

#include "os/desktop.h"
#include "os/messages.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kTimeoutMs = 100;
constexpr auto kUiMessage = static_cast<std::uint64_t>(RecordKind::UiMessage);

void SendUiText(os::WindowHandle window, const UiRecord& record) {
  os::SendCopyData(window, kUiMessage, record);
}

/// Gives up after 100 ms, and at once when the UI is hung.
void SendUiTextTimeout(os::WindowHandle window, const UiRecord& record) {
  os::SendCopyDataTimeout(window, kUiMessage, record, kTimeoutMs);
}

}  // namespace

std::uint32_t TellUi(const UiText& text, UiMessage fields) {
  const auto main = os::FindTopWindow(kUiMainClass);
  const auto guide = os::FindTopWindow(kUiGuideClass);
  const bool hasMain = main != os::WindowHandle::None, hasGuide = guide != os::WindowHandle::None;
  if (hasMain == hasGuide) return 0;  // no UI at all, or the guide runs and the main window gets no notices
  if (hasGuide && text.guide == Guide::Misses) return 1;
  fields.text.insert(0, text.name);
  const auto send = text.wait == Wait::Patient ? SendUiText : SendUiTextTimeout;
  send(hasMain ? main : guide, EncodeUiMessage(fields));
  return 1;
}

void SendTouchReport(os::BytesView report) {
  const auto window = os::FindTopWindow(kUiMainClass);
  if (window == os::WindowHandle::None) return;
  os::SendCopyData(window, static_cast<std::uint64_t>(RecordKind::TouchReport), report);
}

}  // namespace tessaview
