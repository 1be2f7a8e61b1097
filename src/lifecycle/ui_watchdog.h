#pragma once

#include <string>

namespace tessaview {

/// A process ended (its file name, as the system tells it). If it was the UI's, brings the UI back: after 5 minutes, or
/// 3 seconds on a machine in a shop; when its package is still installed; in at most three rounds of a minute, and only
/// while the panel is shown and the UI had not said that it is going. Blocks for all that time; on the system's thread
/// that tells of ended processes, one after the other.
void EndProcess(const std::string& processName);

}  // namespace tessaview
