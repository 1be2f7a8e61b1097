#pragma once

#include <memory>

#include "os/kernel_objects.h"
#include "uilink/channel/ui_record.h"
#include "uilink/channel/ui_texts.h"

// Texts for the UI from threads that must not wait for it.
namespace tessaview {

/// A text and its fields, as TellUi takes them.
struct PostedText {
  UiText text;
  UiMessage fields = {};
  std::shared_ptr<const os::Event> isTold = {};  // if given, signalled once the UI took the text, or its time was up
};

/// Starts the thread that sends what is posted, in the order it was posted.
void StartUiSender();

/// Hands a text to the sender. When more than 64 texts wait, the oldest of them that may go stale is dropped. Texts to
/// be kept are never dropped: they come no faster than a hand moves. A text is lost before the sender was started. Any
/// thread; microseconds.
void PostUiText(PostedText text);

}  // namespace tessaview
