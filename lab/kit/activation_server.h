#pragma once

#include <functional>
#include <string>

namespace lab {

/// Serves the application activation manager, which Wine lacks, for the rest of this process's life, on a thread of its
/// own: each activation's application id and argument go to `onActivate`, on that thread. False when COM refuses.
bool ServeActivations(std::function<void(const std::wstring& application, const std::wstring& argument)> onActivate);

}  // namespace lab
