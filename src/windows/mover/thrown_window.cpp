#include "windows/mover/thrown_window.h"

#include <utility>

#include "appid/window_program.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "windows/panel_moves.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kMostToldMs = 200;  // what a UI that is slow to take its texts gets

void MoveDown(os::WindowHandle window, Pause pause) {
  Log(L"[Window Mover] Move Window to C Panel \n");
  MoveWindowtoCPanel(window, pause);
}

void MoveUp(os::WindowHandle window) {
  Log(L"[Window Mover] Move Window to B Panel \n");
  MoveWindowtoBPanel(window, false);
}

void Move(const ThrownWindow& thrown) {
  switch (thrown.area) {
    case MoverArea::Down:
      RecordUsage(L"DRAGMOVE_WINDOWMOVER_DOWN_" + ApplicationLabel(thrown.window));
      return MoveDown(thrown.window, Pause::Short);
    case MoverArea::Pin:
      return MoveDown(thrown.window, Pause::Long);
    case MoverArea::WinUp:
      RecordUsage(L"DRAGMOVE_WINDOWMOVER_UP_" + ApplicationLabel(thrown.window));
      return MoveUp(thrown.window);
    case MoverArea::None:
      return;
  }
}

}  // namespace

void MoveThrownWindow(const ThrownWindow& thrown, std::shared_ptr<const os::Event> isTold) {
  StartThread(L"window move", [thrown, isTold = std::move(isTold)] {
    os::AwaitEvent(*isTold, kMostToldMs);
    Move(thrown);
  });
}

}  // namespace tessaview
