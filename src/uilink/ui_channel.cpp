#include "uilink/ui_channel.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "os/desktop.h"
#include "os/messages.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kTimeoutMs = 100;
constexpr auto kUiMessage = static_cast<std::uint64_t>(RecordKind::UiMessage);

constexpr std::wstring_view kGuideTexts[] = {L"POWERON", L"POWEROFF"};
constexpr std::wstring_view kGuideTextsTimeout[] = {L"POWERON", L"POWEROFF", L"UACENTRY", L"UACEXIT"};

bool IsOneOf(std::span<const std::wstring_view> texts, std::wstring_view text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Chooses the window that may get the message and hands both to `send`.
template <class Send>
std::uint32_t Route(const UiMessage& message, std::span<const std::wstring_view> guideTexts, Send send) {
  const auto main = os::FindTopWindow(kUiMainClass);
  const auto guide = os::FindTopWindow(kUiGuideClass);
  const bool hasMain = main != os::WindowHandle::None, hasGuide = guide != os::WindowHandle::None;
  if (hasMain == hasGuide) return 0;  // no UI at all, or the guide runs and the main window gets no notices
  if (hasMain) {
    send(main, EncodeUiMessage(message));
  } else if (IsOneOf(guideTexts, message.text)) {
    send(guide, EncodeUiMessage(message));
  }
  return 1;
}

}  // namespace

std::uint32_t SendUiText(const UiMessage& message) {
  return Route(message, kGuideTexts,
               [](os::WindowHandle window, const UiRecord& record) { os::SendCopyData(window, kUiMessage, record); });
}

std::uint32_t SendUiTextTimeout(const UiMessage& message) {
  return Route(message, kGuideTextsTimeout, [](os::WindowHandle window, const UiRecord& record) {
    os::SendCopyDataTimeout(window, kUiMessage, record, kTimeoutMs);
  });
}

void SendTouchReport(os::BytesView report) {
  const auto window = os::FindTopWindow(kUiMainClass);
  if (window == os::WindowHandle::None) return;
  os::SendCopyData(window, static_cast<std::uint64_t>(RecordKind::TouchReport), report);
}

}  // namespace tessaview
