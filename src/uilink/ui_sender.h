#pragma once

#include "uilink/ui_record.h"

// Texts for the UI from threads that must not wait for it.
namespace tessaview {

/// How a posted text is sent: until the UI has taken it (SendUiText), or for 100 ms (SendUiTextTimeout).
enum class Delivery { Patient, Timeout };

/// What becomes of a text that waits behind a UI that hangs. A later update makes an earlier one stale.
enum class Keep { Always, UntilStale };

struct PostedText {
  UiMessage message;
  Delivery delivery = Delivery::Patient;
  Keep keep = Keep::Always;
};

/// Starts the thread that sends what is posted, in the order it was posted.
void StartUiSender();

/// Hands a text to the sender. When 64 texts wait already, the oldest update among them is dropped; texts to be kept
/// are always taken, and come at the pace of a hand. Lost before the sender was started. Any thread; microseconds.
void PostUiText(PostedText text);

}  // namespace tessaview
