// The stored display configurations: one registry key for each arrangement that was ever in force, named after its
// monitors. When the set of monitors changes, the system takes up the newest one that fits those that are there. Names
// are taken apart here once more, so that the model does not share what it is there to test; how a monitor's key is
// made has tests of its own, and is.

#include <algorithm>
#include <string>
#include <vector>

#include "display/configuration_database.h"
#include "display/monitor_keys.h"
#include "sim/displays.h"
#include "sim/laptop.h"

namespace sim {
namespace {

const std::wstring kDatabase = tessaview::kConfigurationDatabase;

std::wstring KeyOf(const Screen& screen) {
  return tessaview::ShortMonitorKey(screen.instanceId, tessaview::ReadEdidIdentity(screen.edid));
}

/// "A+B^…" shows two pictures, "A*B^…" one twice, "A^…" one on A alone.
std::vector<std::wstring> MonitorsIn(const std::wstring& name) {
  const auto part = name.substr(0, name.find(L'^'));
  std::vector<std::wstring> keys;
  for (std::size_t start = 0, end = 0; end < part.size(); start = end + 1) {
    end = std::min(part.find_first_of(L"+*", start), part.size());
    keys.push_back(part.substr(start, end - start));
  }
  return keys;
}

}  // namespace

os::Topology Displays::StoredProjection(const std::wstring& name) const {
  const auto keys = MonitorsIn(name);
  std::size_t present = 0;
  bool withFirst = false;
  for (const auto& screen : screens_) {
    if (!screen.plugged) continue;
    ++present;
    if (&screen == &screens_[0]) withFirst = std::count(keys.begin(), keys.end(), KeyOf(screen)) > 0;
  }
  const auto isPresent = [&](const std::wstring& key) {
    return std::any_of(screens_.begin(), screens_.end(),
                       [&](const Screen& screen) { return screen.plugged && KeyOf(screen) == key; });
  };
  if (keys.empty() || !std::all_of(keys.begin(), keys.end(), isPresent)) return os::Topology::None;
  if (name.find(L'*') != std::wstring::npos) return os::Topology::Clone;
  if (keys.size() == present) return os::Topology::Extend;
  return withFirst ? os::Topology::Internal : os::Topology::External;
}

void Displays::TakeUpNewest() {
  auto newest = os::Topology::None;
  std::uint64_t newestTime = 0;
  for (const auto& name : Machine().registry.Subkeys(kDatabase)) {
    const auto projection = StoredProjection(name);
    const auto time = Machine().registry.Qword(kDatabase + L"\\" + name, L"Timestamp").value_or(0);
    if (projection == os::Topology::None || time <= newestTime) continue;
    newest = projection;
    newestTime = time;
  }
  if (newest != os::Topology::None) Project(newest);
}

void Displays::StoreProjection(std::uint64_t fileTime) const {
  std::wstring name;
  for (const auto& screen : screens_) {
    if (!screen.OnDesktop()) continue;
    if (!name.empty()) name += topology == os::Topology::Clone ? L"*" : L"+";
    name += KeyOf(screen);
  }
  if (!name.empty()) Machine().registry.SetQword(kDatabase + L"\\" + name + L"^0", L"Timestamp", fileTime);
}

}  // namespace sim
