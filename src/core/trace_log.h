#pragma once

#include <cstdint>
#include <string_view>

#include "core/log_format.h"
#include "core/state.h"

namespace tessaview {

/// Writes one text as an event of the provider "TessaviewServiceLogger" if a trace session listens at level verbose.
/// Registers the provider on first use. Returns the status of the write, 0 when nobody listens. Any thread.
std::uint32_t WriteTraceLog(const wchar_t* text);

/// Records that something noteworthy happened in how the panel is used: the event "TessaviewUsage" of the same
/// provider, with `name` as its only field. Nothing is stored and nothing leaves the machine. Any thread.
void RecordUsage(std::wstring_view name);

inline constexpr std::uint8_t kTraceVerbose = 5;

/// The highest level a trace session asked for. Above every real level until the provider is registered, so that the
/// first statement takes the slow path and registers it, and all later ones cost one load.
class TraceLevel {
 public:
  [[nodiscard]] static bool IsVerbose() { return level_.peek() >= kTraceVerbose; }

  /// Registers the provider, once, whether that succeeds or not.
  static void RegisterProviderOnce();

 private:
  static void OnTraceEnabled(bool enabled, std::uint8_t level);
  static Shared<std::uint8_t> level_;
};

/// Formats a text and writes it to the trace log, if anybody listens. The template is checked against its arguments
/// when the code is compiled. At most 1023 characters, longer texts are cut. Any thread.
template <class... Args>
void Log(LogFormat<std::type_identity_t<Args>...> format, const Args&... args) {
  if (!TraceLevel::IsVerbose()) return;
  wchar_t text[kLogTextSize];
  FormatLogText(text, format, args...);
  WriteTraceLog(text);
}

}  // namespace tessaview
