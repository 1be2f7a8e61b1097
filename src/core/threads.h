#pragma once

#include <functional>

namespace tessaview {

/// Starts a thread as os::StartThread does. When none can be made, the log says which. Any thread.
bool StartThread(const wchar_t* name, std::function<void()> body);

}  // namespace tessaview
