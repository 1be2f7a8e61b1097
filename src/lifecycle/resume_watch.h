#pragma once

namespace tessaview {

/// Watches for the machine's return from hibernation, on a thread of its own: panels and touch controller were without
/// power. Then refreshes what is known of the panels, resets the touch controller, tells a second-generation machine's
/// firmware again what closing the lid does, and tells the UI "IAMBACK".
void StartResumeWatch();

}  // namespace tessaview
