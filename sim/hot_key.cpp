#include "sim/hot_key.h"

#include "os/messages.h"

namespace sim {
namespace {

constexpr auto kClass = L"HCONTROL";
constexpr auto kTitle = L"HControl";

}  // namespace

void HotKey::PressF6(int times) {
  for (int i = 0; i < times; ++i) Notify(0x6B, 0);
}

void HotKey::Post(const wchar_t* message, std::uint64_t wParam, std::int64_t lParam) {
  const auto id = os::RegisterMessage(message);
  if (window_.LetsThrough(id)) window_.PostRaw(id, wParam, lParam);
  scheduler_.SettleStory();
}

std::vector<PostedMessage> HotKey::Received() const {
  const auto* window = desktop_.Find(desktop_.Find(kClass, kTitle));
  return window == nullptr ? std::vector<PostedMessage>() : window->posted;
}

void HotKey::Remove() {
  desktop_.CloseAll(kClass);
}

}  // namespace sim
