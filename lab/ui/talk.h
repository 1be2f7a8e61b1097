#pragma once

#include <deque>
#include <optional>
#include <string>

#include "ui/ui_message.h"

namespace lab {

inline constexpr LONG kTouchRange = 4096;

/// What the stand-in UI knows: the last texts both ways, and whether the C panel is meant to be on.
class Talk {
 public:
  /// A record came from the controller, or goes to it. Returns its line: "POWERON", "BLSET 45" or, with a window's
  /// number, a rectangle and a point, "TEXT 65642 [0, 0, 800, 600] (20, 30)".
  std::wstring Received(const UiMessage& message);
  std::wstring Sent(const UiMessage& message);

  /// A touch report came from the controller. Returns its line, "touch 01 01 …".
  std::wstring Touched(const unsigned char* report, std::size_t size);

  /// Whether the panel is on; empty until the controller has told.
  [[nodiscard]] std::optional<bool> panelOn() const { return panelOn_; }
  [[nodiscard]] const std::wstring& lastReceived() const { return lastReceived_; }
  /// The window mover's overlay as it was asked for last, "WSHOVER at (20, 30)"; empty while none is wanted.
  [[nodiscard]] const std::wstring& overlay() const { return overlay_; }
  [[nodiscard]] const std::deque<std::wstring>& lines() const { return lines_; }

  /// Where the finger has been, in the touch controller's units, 0 to kTouchRange; a finger that comes down anew leaves
  /// a new trail.
  [[nodiscard]] const std::deque<POINT>& trail() const { return trail_; }

 private:
  void Keep(std::wstring line);
  void NoteOverlay(const UiMessage& message);
  void Follow(const unsigned char* contact);

  std::optional<bool> panelOn_;
  std::wstring lastReceived_, overlay_;
  std::deque<std::wstring> lines_;  // newest last
  std::deque<POINT> trail_;
  bool fingerDown_ = false;
};

}  // namespace lab
