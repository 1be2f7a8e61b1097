#include "uilink/channel/ui_session.h"

#include <algorithm>

#include "core/state.h"

namespace tessaview {
namespace {

Shared<bool> gIsAlive, gIsVersionReported, gIsMenuBlocked;
Shared<std::uint64_t> gLastUpCommandTime, gLastDownCommandTime;  // 0 = never

}  // namespace

bool isTessaviewAlive() {
  return gIsAlive.get();
}
void SetTessaviewAlive(bool alive) {
  gIsAlive.set(alive);
}

bool gUIVersionReported() {
  return gIsVersionReported.get();
}
void NoteUIVersionReported() {
  gIsVersionReported.set(true);
}

bool isActionMenuBlocked() {
  return gIsMenuBlocked.get();
}
void SetActionMenuBlocked() {
  gIsMenuBlocked.set(true);
}

std::uint64_t SinceLastMoveCommand(std::uint64_t nowMs) {
  const auto last = std::max(gLastUpCommandTime.get(), gLastDownCommandTime.get());
  return nowMs > last ? nowMs - last : 0;
}
void NoteUpCommand(std::uint64_t nowMs) {
  gLastUpCommandTime.set(nowMs);
}
void NoteDownCommand(std::uint64_t nowMs) {
  gLastDownCommandTime.set(nowMs);
}

}  // namespace tessaview
