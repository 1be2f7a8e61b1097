#pragma once

#include <string>
#include <vector>

namespace tessaview {

/// One monitor of a stored display configuration.
struct StoredMonitor {
  std::wstring key;     // the monitor's short or long key
  std::wstring subkey;  // where its values lie below the configuration: the picture's number, then its own within it
};

/// The monitors that a configuration's name in the display-configuration database tells, in its order: "A*B+C^…" has A
/// and B showing the same picture and C its own. Any text is a name; one that says nothing has one monitor without a
/// key.
[[nodiscard]] std::vector<StoredMonitor> MonitorsOf(const std::wstring& name);

}  // namespace tessaview
