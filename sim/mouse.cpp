#include "sim/mouse.h"

#include <algorithm>
#include <utility>

#include "sim/laptop.h"

namespace sim {

using os::MouseEvent;
using os::Point;
using os::WindowEvent;
using os::WindowHandle;

// ---- Events on their way ----

/// Steps play one after the other, also those of gestures that are asked for while another is under way.
void Mouse::Later(std::uint32_t ms, std::function<void()> step) {
  auto& laptop = Machine();
  nextStepMs_ = std::max(nextStepMs_, laptop.NowMs()) + ms;
  if (nextStepMs_ <= laptop.NowMs() && stepsUnderWay_ == 0) return step();
  ++stepsUnderWay_;
  laptop.After(nextStepMs_ - laptop.NowMs(), [this, step = std::move(step)] {
    --stepsUnderWay_;
    step();
  });
}

void Mouse::Add(std::optional<MouseEvent> kind, Point point, std::function<void()> effect) {
  if (watchers_ == 0) return effect();
  pending_.push_back({kind, point, std::move(effect)});
}

void Mouse::Watch(const std::function<void(MouseEvent, Point)>& onMouse) {
  ++watchers_;
  while (Machine().window.AwaitWork([this] { return !pending_.empty(); })) {
    const auto event = std::move(pending_.front());
    pending_.pop_front();
    const auto start = Machine().NowMs();
    if (event.kind) onMouse(*event.kind, event.point);
    longestHoldUpMs_ = std::max(longestHoldUpMs_, Machine().NowMs() - start);
    event.effect();
  }
  --watchers_;
}

void Mouse::EndProcess() {
  watchers_ = 0;
  for (const auto& event : std::exchange(pending_, {})) event.effect();
}

// ---- What the events do ----

void Mouse::TakeMove(Point to) {
  if (std::exchange(cursor_, OntoDesktop(to)) == cursor_) return;
  Machine().desktop.Raise(WindowEvent::LocationChange, WindowHandle::None, os::kObjectCursor);
  Follow();
}

void Mouse::SetPosition(Point point) {
  TakeMove(point);
  hand_ = cursor_;
}

/// A press brings the window to the user, except for one that does not want that.
void Mouse::TakePress(WindowHandle window) {
  pressed_ = true;
  auto& desktop = Machine().desktop;
  const auto root = desktop.Root(window);
  const auto* found = desktop.Find(root);
  if (found != nullptr && (found->extendedStyle & os::kWsExNoActivate) == 0) desktop.SetForeground(root);
}

void Mouse::TakeGrab(WindowHandle window, Grip grip) {
  TakePress(window);
  const auto* found = Machine().desktop.Find(window);
  if (found == nullptr || !found->responsive) return;  // a window that hangs cannot be moved
  drag_ = {window, grip, cursor_, found->area};
  Machine().desktop.Raise(WindowEvent::MoveSizeStart, window);
}

void Mouse::Follow() {
  if (!drag_) return;
  auto& desktop = Machine().desktop;
  const auto* window = desktop.Find(drag_->window);
  if (window == nullptr || !window->responsive) return;
  auto& [handle, grip, grabbedAt, from] = *drag_;
  if (window->state == ShowState::Maximized) {  // torn off: its normal size, under the pointer at the same part of it
    const auto normal = window->NormalArea();
    const auto width = normal.right - normal.left, before = std::max(from.right - from.left, 1);
    const auto left = grabbedAt.x - (grabbedAt.x - from.left) * width / before;
    from = {left, from.top, left + width, from.top + normal.bottom - normal.top};
  }
  const auto dx = cursor_.x - grabbedAt.x, dy = cursor_.y - grabbedAt.y;
  const bool whole = grip == Grip::TitleBar;
  desktop.Drag(handle, {from.left + (whole ? dx : 0), from.top + (whole ? dy : 0), from.right + dx, from.bottom + dy});
}

void Mouse::EndDrag() {
  const auto drag = std::exchange(drag_, {});
  if (drag && Machine().desktop.Find(drag->window) != nullptr) {
    Machine().desktop.Raise(WindowEvent::MoveSizeEnd, drag->window);
  }
}

// ---- Gestures ----

void Mouse::QueueMove(std::uint32_t afterMs, Point to) {
  hand_ = OntoDesktop(to);
  Later(afterMs, [this, to] { Add(MouseEvent::Move, to, [this, to] { TakeMove(to); }); });
}

void Mouse::QueuePress(std::function<void()> effect) {
  Later(0, [this, at = hand_, effect = std::move(effect)] { Add(MouseEvent::LeftDown, at, effect); });
}

void Mouse::QueueGrab(WindowHandle window, Point at, Grip grip) {
  QueueMove(0, at);
  QueuePress([=, this] { TakeGrab(window, grip); });
}

void Mouse::MoveToQuietly(Point to) {
  QueueMove(0, to);
}

void Mouse::GlideQuietly(Point to) {
  constexpr std::uint32_t kStepMs = 8;
  constexpr std::int32_t kSteps = 12;
  const auto from = hand_;
  for (std::int32_t i = 1; i <= kSteps; ++i) {
    QueueMove(kStepMs, {from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
  }
}

void Mouse::PressQuietly() {
  QueuePress([this] { TakePress(Machine().desktop.At(cursor_)); });
}

void Mouse::ReleaseQuietly() {
  Later(0, [this, at = hand_] {
    Add(MouseEvent::LeftUp, at, [this] {
      pressed_ = false;
      EndDrag();
    });
  });
}

void Mouse::ClickQuietly(Point at) {
  MoveToQuietly(at);
  PressQuietly();
  ReleaseQuietly();
}

void Mouse::GrabQuietly(WindowHandle window, Point at) {
  QueueGrab(window, at, Grip::TitleBar);
}

void Mouse::GrabBorderQuietly(WindowHandle window, Point at) {
  QueueGrab(window, at, Grip::Border);
}

void Mouse::CancelDragQuietly() {
  Later(0, [this] {
    Add({}, hand_, [this] {
      if (drag_) Machine().desktop.Drag(drag_->window, drag_->from);
      EndDrag();
    });
  });
}

void Mouse::DragTitleBarQuietly(WindowHandle window, Point from, Point to) {
  GrabQuietly(window, from);
  GlideQuietly(to);
  DropQuietly();
}

void Mouse::MoveTo(Point to) {
  MoveToQuietly(to);
  Machine().Settle();
}

void Mouse::Glide(Point to) {
  GlideQuietly(to);
  Machine().Settle();
}

void Mouse::Press() {
  PressQuietly();
  Machine().Settle();
}

void Mouse::Release() {
  ReleaseQuietly();
  Machine().Settle();
}

void Mouse::Click(Point at) {
  ClickQuietly(at);
  Machine().Settle();
}

void Mouse::Grab(WindowHandle window, Point at) {
  GrabQuietly(window, at);
  Machine().Settle();
}

void Mouse::GrabBorder(WindowHandle window, Point at) {
  GrabBorderQuietly(window, at);
  Machine().Settle();
}

void Mouse::CancelDrag() {
  CancelDragQuietly();
  Machine().Settle();
}

void Mouse::DragTitleBar(WindowHandle window, Point from, Point to) {
  DragTitleBarQuietly(window, from, to);
  Machine().Settle();
}

}  // namespace sim
