#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace lab {

/// How long a test waits for something that the controller should do. Generous: a busy machine is no
/// failure.
inline constexpr std::chrono::milliseconds kPatience{10000};

/// What one party of the laptop said or was told, line by line, in order. Any thread.
///
/// What is looked for is a whole line, blanks at the line's end apart; or, with a `*` behind it, how a line begins.
class Journal {
 public:
  /// `onLine` is called for each line as it comes, on the thread that adds it; may be empty.
  explicit Journal(std::function<void(const std::wstring&)> onLine = {}) : onLine_(std::move(onLine)) {}

  void Add(std::wstring line);

  /// The number of lines so far: where a later search may begin.
  [[nodiscard]] std::size_t Mark() const;

  [[nodiscard]] std::vector<std::wstring> Since(std::size_t mark) const;

  void Clear();

  /// Whether a line from `mark` on is `wanted`.
  [[nodiscard]] bool Contains(const std::wstring& wanted, std::size_t mark = 0) const;

  /// Waits until a line from `mark` on is `wanted`; false when none came in time.
  [[nodiscard]] bool WaitFor(const std::wstring& wanted, std::size_t mark = 0,
                             std::chrono::milliseconds patience = kPatience) const;

  /// Waits until no line has come for `pause`, at most kPatience.
  void WaitUntilQuiet(std::chrono::milliseconds pause) const;

 private:
  [[nodiscard]] bool HasLine(const std::wstring& wanted, std::size_t mark) const;

  std::function<void(const std::wstring&)> onLine_;
  mutable std::mutex mutex_;
  mutable std::condition_variable added_;
  std::vector<std::wstring> lines_;
};

/// Looks every few milliseconds until `condition` holds; false when it did not in time.
[[nodiscard]] bool Eventually(const std::function<bool()>& condition, std::chrono::milliseconds patience = kPatience);

}  // namespace lab
