#pragma once

#include <deque>
#include <optional>
#include <string>

#include "ui/ui_message.h"

namespace lab {

/// What the stand-in UI knows: the last texts both ways, and whether the C panel is meant to be on.
class Talk {
 public:
  /// A record came from the controller, or goes to it. Returns its line, "POWERON" or "BLSET 45".
  std::wstring Received(const UiMessage& message);
  std::wstring Sent(const UiMessage& message);

  /// A touch report came from the controller.
  std::wstring Touched(const unsigned char* report, std::size_t size);

  /// Whether the panel is on; empty until the controller has told.
  [[nodiscard]] std::optional<bool> panelOn() const { return panelOn_; }
  [[nodiscard]] const std::wstring& lastReceived() const { return lastReceived_; }
  [[nodiscard]] const std::deque<std::wstring>& lines() const { return lines_; }

 private:
  void Keep(std::wstring line);

  std::optional<bool> panelOn_;
  std::wstring lastReceived_;
  std::deque<std::wstring> lines_;  // newest last
};

}  // namespace lab
