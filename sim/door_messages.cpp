#include <map>
#include <string>

#include "os/messages.h"
#include "sim/parts.h"
#include "sim/text.h"

namespace os {
namespace {

using sim::Machine;

constexpr std::uint32_t kFirstRegistered = 0xC000;

}  // namespace

std::uint32_t RegisterMessage(const wchar_t* name) {
  // The session's table: there before any laptop, and the same for all.
  static std::map<std::wstring, std::uint32_t> ids;
  return ids.try_emplace(sim::Lower(name), kFirstRegistered + static_cast<std::uint32_t>(ids.size())).first->second;
}

bool PostToWindow(WindowHandle window, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  if (sim::Enter<&PostToWindow>().failed()) return false;
  if (window == WindowHandle::None) return true;  // a message to the calling thread itself, which nobody hears
  auto* target = Machine().desktop.Find(window);
  if (target == nullptr) return false;
  if (window == Machine().window.Handle()) return Machine().window.PostRaw(message, wParam, lParam);
  target->posted.push_back({message, wParam, lParam});
  return true;
}

void SendCopyData(WindowHandle window, std::uint64_t kind, BytesView record) {
  if (sim::Enter<&SendCopyData>().failed()) return;
  auto& laptop = Machine();
  if (window != WindowHandle::None && window == laptop.window.Handle()) {
    laptop.window.SendCopyData(kind, record);
  } else {
    laptop.desktop.DeliverCopyData(window, kind, record);
  }
}

bool SendCopyDataTimeout(WindowHandle window, std::uint64_t kind, BytesView record, std::uint32_t timeoutMs) {
  if (sim::Enter<&SendCopyDataTimeout>().failed()) return false;
  auto& laptop = Machine();
  const auto* target = laptop.desktop.Find(window);
  if (target == nullptr || !target->responsive) return false;
  const auto deadlineMs = laptop.scheduler.NowMs() + timeoutMs;
  if (window == laptop.window.Handle()) return laptop.window.SendCopyData(kind, record, deadlineMs);
  return laptop.desktop.DeliverCopyData(window, kind, record, deadlineMs);
}

}  // namespace os
