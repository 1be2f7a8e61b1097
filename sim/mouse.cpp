#include "sim/mouse.h"

#include <algorithm>
#include <utility>

namespace sim {

using os::MouseEvent;
using os::Point;
using os::WindowEvent;
using os::WindowHandle;

// ---- Events on their way ----

/// Steps play one after the other, also those of gestures that are asked for while another is under way.
void Mouse::Later(std::uint32_t ms, std::function<void()> step) {
  nextStepMs_ = std::max(nextStepMs_, scheduler_.NowMs()) + ms;
  if (nextStepMs_ <= scheduler_.NowMs() && stepsUnderWay_ == 0) return step();
  ++stepsUnderWay_;
  scheduler_.After(nextStepMs_ - scheduler_.NowMs(), [this, step = std::move(step)] {
    --stepsUnderWay_;
    step();
  });
}

void Mouse::Add(std::optional<MouseEvent> kind, Point point, std::function<void()> effect) {
  if (!desktop_.userIsHere) return;
  std::function<void()> call;
  if (kind) call = [=, this] { (*watcher_)(*kind, point); };
  hook_.Offer(std::move(call), std::move(effect));
}

void Mouse::Door::Watch(const Watcher& onMouse) {
  watcher_ = &onMouse;
  hook_.Watch();
}

// ---- What the events do ----

void Mouse::TakeMove(Point to) {
  if (std::exchange(cursor_, desktop_.Onto(to)) == cursor_) return;
  desktop_.Raise(WindowEvent::LocationChange, WindowHandle::None, os::kObjectCursor);
  Follow();
}

void Mouse::SetPosition(Point point) {
  TakeMove(point);
  hand_ = cursor_;
}

/// A press brings the window to the user, except for one that does not want that.
void Mouse::TakePress(WindowHandle window) {
  pressed_ = true;
  const auto root = desktop_.Root(window);
  const auto* found = desktop_.Find(root);
  if (found != nullptr && (found->extendedStyle & os::kWsExNoActivate) == 0) desktop_.SetForeground(root);
}

void Mouse::TakeGrab(WindowHandle window, Grip grip) {
  TakePress(window);
  const auto* found = desktop_.Find(window);
  // One that hangs cannot be moved, and of one that was minimised meanwhile there is nothing to hold.
  if (found == nullptr || !found->responsive || !found->IsUp()) return;
  drag_ = {window, grip, cursor_, found->area};
  desktop_.Raise(WindowEvent::MoveSizeStart, window);
}

void Mouse::Follow() {
  if (!drag_) return;
  const auto* window = desktop_.Find(drag_->window);
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
  desktop_.Drag(handle, {from.left + (whole ? dx : 0), from.top + (whole ? dy : 0), from.right + dx, from.bottom + dy});
}

void Mouse::EndDrag() {
  const auto drag = std::exchange(drag_, {});
  if (drag && whenDropped) whenDropped(drag->window);
  if (drag && desktop_.Find(drag->window) != nullptr) {
    desktop_.Raise(WindowEvent::MoveSizeEnd, drag->window);
  }
}

// ---- Gestures ----

void Mouse::QueueMove(std::uint32_t afterMs, Point to) {
  hand_ = desktop_.Onto(to);
  Later(afterMs, [this, to] { Add(MouseEvent::Move, to, [this, to] { TakeMove(to); }); });
}

void Mouse::QueuePress(std::function<void()> effect) {
  Later(0, [this, at = hand_, effect = std::move(effect)] { Add(MouseEvent::LeftDown, at, effect); });
}

void Mouse::Hold(WindowHandle window, Point at, Grip grip) {
  QueueMove(0, at);
  QueuePress([=, this] { TakeGrab(window, grip); });
  scheduler_.SettleStory();
}

void Mouse::MoveTo(Point to) {
  QueueMove(0, to);
  scheduler_.SettleStory();
}

void Mouse::Glide(Point to) {
  constexpr std::uint32_t kStepMs = 8;
  constexpr std::int32_t kSteps = 12;
  const auto from = hand_;
  for (std::int32_t i = 1; i <= kSteps; ++i) {
    QueueMove(kStepMs, {from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
  }
  scheduler_.SettleStory();
}

void Mouse::Press() {
  QueuePress([this] { TakePress(desktop_.At(cursor_)); });
  scheduler_.SettleStory();
}

void Mouse::Release() {
  Later(0, [this, at = hand_] {
    Add(MouseEvent::LeftUp, at, [this] {
      pressed_ = false;
      EndDrag();
    });
  });
  scheduler_.SettleStory();
}

void Mouse::CancelDrag() {
  Later(0, [this] {
    Add({}, hand_, [this] {
      if (drag_) desktop_.Drag(drag_->window, drag_->from);
      EndDrag();
    });
  });
  scheduler_.SettleStory();
}

void Mouse::DragTitleBar(WindowHandle window, Point from, Point to) {
  {
    const Scheduler::Quiet quiet(scheduler_);
    Grab(window, from);
    Glide(to);
    Drop();
  }
  scheduler_.SettleStory();
}

}  // namespace sim
