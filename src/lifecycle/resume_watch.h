#pragma once

namespace tessaview {

/// Watches for the machine's return from hibernation, on a thread of its own: panels and touch controller were without
/// power. Refreshes what is known of them, resets the touch controller, tells the firmware again what closing the lid
/// does, and then the UI ("IAMBACK").
void StartResumeWatch();

}  // namespace tessaview
