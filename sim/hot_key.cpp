#include "sim/hot_key.h"

#include "os/messages.h"
#include "sim/laptop.h"

namespace sim {
namespace {

constexpr auto kClass = L"HCONTROL";
constexpr auto kTitle = L"HControl";

}  // namespace

void HotKey::PressF6(int times) {
  for (int i = 0; i < times; ++i) Notify(0x6B, 0);
}

void HotKey::Post(const wchar_t* message, std::uint64_t wParam, std::int64_t lParam) {
  auto& laptop = Machine();
  const auto id = os::RegisterMessage(message);
  if (laptop.window.LetsThrough(id)) laptop.window.PostRaw(id, wParam, lParam);
  laptop.Settle();
}

std::vector<PostedMessage> HotKey::Received() const {
  auto& desktop = Machine().desktop;
  const auto* window = desktop.Find(desktop.Find(kClass, kTitle));
  return window == nullptr ? std::vector<PostedMessage>() : window->posted;
}

void HotKey::Remove() {
  Machine().desktop.CloseAll(kClass);
}

}  // namespace sim
