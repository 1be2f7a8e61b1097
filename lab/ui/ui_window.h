#pragma once

namespace lab {

/// Shows the stand-in UI on the C panel and serves it until its window is closed. What it receives and sends goes to
/// the lab's UI pipe as well, when somebody listens: "received …", "sent …".
int RunUiWindow();

}  // namespace lab
