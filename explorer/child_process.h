#pragma once

#include <functional>
#include <string>

namespace explorer {

/// Does `work` in a copy of this process, as it is now, and returns what that returned, or how the copy died; it is
/// ended after so many seconds. Only while this process has no other threads.
[[nodiscard]] std::string InChildProcess(unsigned seconds, const std::function<std::string()>& work);

}  // namespace explorer
