#pragma once

#include <string>

namespace tessaview {

/// A process ended (its file name, as the system tells it). If it was the UI's and its package is still installed,
/// brings the UI back: waits 5 minutes, on a machine in a shop 3 seconds, then launches it in at most three rounds of a
/// minute. A round launches nothing unless the panel is shown and the UI has said that it is ready, and not that it is
/// going. Blocks for all that time, on the system's thread that tells of ended processes one after the other.
void EndProcess(const std::string& processName);

}  // namespace tessaview
