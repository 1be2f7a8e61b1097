#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace sim {

/// The system services by name and their states, SERVICE_STOPPED (1) to SERVICE_PAUSED (7).
class Services {
 public:
  static constexpr std::uint32_t kStopped = 1, kRunning = 4;

  void Set(const std::wstring& name, std::uint32_t state) { states_[name] = state; }

  [[nodiscard]] std::optional<std::uint32_t> State(const std::wstring& name) const {
    const auto found = states_.find(name);
    return found == states_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::map<std::wstring, std::uint32_t> states_ = {{L"RetailDemo", kStopped}};
};

}  // namespace sim
