#include "display/stored_name.h"

#include <algorithm>

namespace tessaview {
namespace {

std::wstring TwoDigits(std::size_t number) {
  return {static_cast<wchar_t>(L'0' + number / 10 % 10), static_cast<wchar_t>(L'0' + number % 10)};
}

}  // namespace

std::vector<StoredMonitor> MonitorsOf(const std::wstring& name) {
  std::vector<StoredMonitor> stored;
  const auto monitors = name.substr(0, name.find(L'^'));
  std::size_t picture = 0, within = 0, start = 0;
  while (start <= monitors.size()) {
    const auto end = std::min(monitors.find_first_of(L"+*", start), monitors.size());
    stored.push_back({monitors.substr(start, end - start), L"\\" + TwoDigits(picture) + L"\\" + TwoDigits(within)});
    const bool samePicture = end < monitors.size() && monitors[end] == L'*';
    within = samePicture ? within + 1 : 0;
    picture += samePicture ? 0 : 1;
    start = end + 1;
  }
  return stored;
}

}  // namespace tessaview
