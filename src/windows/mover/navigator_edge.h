#pragma once

#include "os/types.h"

namespace tessaview {

/// Tells the UI to show its navigator ("NAVIGATORSHOW") when the pointer comes to the bottom edge of the C panel; once,
/// until the pointer has been further away. On the mouse thread; less than a microsecond.
void FollowToNavigatorEdge(os::Point pointer);

}  // namespace tessaview
