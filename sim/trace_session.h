#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "os/trace.h"
#include "sim/trace_event.h"

namespace sim {

/// A trace session that collects the controller's events, and a debugger that collects its debug texts. It listens
/// from the start, at level verbose.
class TraceSession {
 public:
  class Door;

  static constexpr std::uint8_t kVerbose = 5;

  /// Starts or stops listening, to events up to `level`; 0 is every level.
  void Listen(bool listens, std::uint8_t level = kVerbose);

  /// The log texts, as they stand.
  [[nodiscard]] const std::vector<std::wstring>& Lines() const { return lines_; }
  /// The name of the thread that wrote each of them.
  [[nodiscard]] const std::vector<std::wstring>& Writers() const { return writers_; }
  /// The names of the usage events.
  [[nodiscard]] const std::vector<std::wstring>& Usage() const { return usage_; }
  [[nodiscard]] const std::vector<std::wstring>& DebugTexts() const { return debugTexts_; }
  /// What was not a well-formed event of a known name. Empty in a healthy run.
  [[nodiscard]] const std::vector<std::string>& Malformed() const { return malformed_; }

  /// Searches of the log lines, whole lines and exact.
  [[nodiscard]] bool Contains(const std::wstring& line) const { return Count(line) != 0; }
  [[nodiscard]] std::size_t Count(const std::wstring& line) const;
  /// Where the line stands first at or after `from`; empty when it does not.
  [[nodiscard]] std::optional<std::size_t> IndexOf(const std::wstring& line, std::size_t from = 0) const;

  /// Forgets all that was collected.
  void Clear();

  [[nodiscard]] std::size_t Registrations() const { return registrations_; }

 private:
  struct Provider {
    os::TraceEnableCallback onEnable = nullptr;
    os::Bytes traits;
  };
  [[nodiscard]] bool Wants(std::uint8_t level) const { return listens_ && (level_ == 0 || level <= level_); }
  void Collect(const TraceEvent& event, const os::TraceEventDescriptor& descriptor);

  bool listens_ = true;
  std::uint8_t level_ = kVerbose;
  std::size_t registrations_ = 0;
  std::map<os::TraceProvider, Provider> providers_;
  std::vector<std::wstring> lines_, writers_, usage_, debugTexts_;
  std::vector<std::string> malformed_;
};

class TraceSession::Door : public TraceSession {
 public:
  os::TraceProvider Register(const os::Guid& id, os::TraceEnableCallback onEnable);
  bool SetTraits(os::TraceProvider provider, os::BytesView traits);
  std::uint32_t Write(os::TraceProvider provider, const os::TraceEventDescriptor& descriptor,
                      os::BytesView providerTraits, os::BytesView eventMetadata, os::BytesView data);
  void WriteDebugText(std::wstring text) { debugTexts_.push_back(std::move(text)); }
  /// The process is gone with its providers; what was collected stays.
  void EndProcess() { providers_.clear(); }
};

}  // namespace sim
