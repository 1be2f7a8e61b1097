#include "kit/journal.h"

#include <algorithm>
#include <string_view>
#include <thread>

namespace lab {
namespace {

bool Is(std::wstring_view line, std::wstring_view wanted) {
  if (wanted.ends_with(L'*')) return line.starts_with(wanted.substr(0, wanted.size() - 1));
  return line.substr(0, line.find_last_not_of(L" \n") + 1) == wanted;
}

}  // namespace

void Journal::Add(std::wstring line) {
  if (onLine_) onLine_(line);
  const std::lock_guard lock(mutex_);
  lines_.push_back(std::move(line));
  added_.notify_all();
}

std::size_t Journal::Mark() const {
  const std::lock_guard lock(mutex_);
  return lines_.size();
}

std::vector<std::wstring> Journal::Since(std::size_t mark) const {
  const std::lock_guard lock(mutex_);
  return {lines_.begin() + static_cast<std::ptrdiff_t>(std::min(mark, lines_.size())), lines_.end()};
}

bool Journal::HasLine(const std::wstring& wanted, std::size_t mark) const {
  const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(std::min(mark, lines_.size()));
  return std::any_of(first, lines_.end(), [&](const std::wstring& line) { return Is(line, wanted); });
}

bool Journal::Contains(const std::wstring& wanted, std::size_t mark) const {
  const std::lock_guard lock(mutex_);
  return HasLine(wanted, mark);
}

void Journal::Clear() {
  const std::lock_guard lock(mutex_);
  lines_.clear();
}

bool Journal::WaitFor(const std::wstring& wanted, std::size_t mark, std::chrono::milliseconds patience) const {
  std::unique_lock lock(mutex_);
  return added_.wait_for(lock, patience, [&] { return HasLine(wanted, mark); });
}

void Journal::WaitUntilQuiet(std::chrono::milliseconds pause) const {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  std::unique_lock lock(mutex_);
  std::size_t before = lines_.size();
  while (added_.wait_for(lock, pause, [&] { return lines_.size() != before; })) {
    if (std::chrono::steady_clock::now() >= end) return;
    before = lines_.size();
  }
}

bool Eventually(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

}  // namespace lab
