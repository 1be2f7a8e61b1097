// The stored display configurations: one registry key for each arrangement that was ever in force, named after its
// monitors. When the set of monitors changes, the system takes up the newest one that fits those that are there.

#include <algorithm>
#include <cwctype>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "sim/bytes.h"
#include "sim/displays.h"
#include "sim/text.h"

namespace sim {
namespace {

const std::wstring kDatabase = L"SYSTEM\\CurrentControlSet\\Control\\GraphicsDrivers\\Configuration",
                   kBelow = kDatabase + L"\\";

/// The serial in a descriptor of its own, at most 12 characters of it; without one the 32-bit serial number.
std::wstring SerialOf(os::BytesView edid) {
  for (std::size_t at = 54; at < 126; at += 18) {
    if (edid[at + 3] != 0xFF) continue;
    const auto text = FromCodePage1252(edid.subspan(at + 5, 12));
    return text.substr(0, text.find_first_of(std::wstring(L"\0\n", 2)));
  }
  return std::to_wstring(GetWord(edid, 12));
}

/// How a name tells a monitor: by model, serial, week and year of manufacture and checksum, such as
/// "TSB88882290649088_1C_07DB_26". Without an EDID all but the model is zero, and there is no serial.
std::wstring KeyOf(const Screen& screen) {
  const auto& id = screen.instanceId;
  const auto begin = id.find(L'\\') + 1;
  const bool isRead = screen.edid.size() >= 128;
  const auto byte = [&](std::size_t at) { return isRead ? screen.edid[at] + 0U : 0U; };
  std::wostringstream key;
  key << id.substr(begin, id.find(L'\\', begin) - begin) << (isRead ? SerialOf(screen.edid) : L"") << std::hex
      << std::setfill(L'0') << L'_' << std::setw(2) << byte(16) << L'_' << std::setw(4)
      << (isRead ? 1990 + byte(17) : 0) << L'_' << std::setw(2) << byte(127);
  auto name = key.str();
  std::transform(name.begin(), name.end(), name.begin(),
                 [](wchar_t c) { return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c))); });
  return name;
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
  for (const auto& name : registry_.Subkeys(kDatabase)) {
    const auto projection = StoredProjection(name);
    const auto time = registry_.Qword(kBelow + name, L"Timestamp").value_or(0);
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
  if (!name.empty()) registry_.SetQword(kBelow + name + L"^0", L"Timestamp", fileTime);
}

}  // namespace sim
