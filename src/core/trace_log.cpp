#include "core/trace_log.h"

#include "core/state.h"
#include "core/trace_events.h"
#include "os/trace.h"

namespace tessaview {
namespace {

// {D7E3B1C4-52A9-4F06-9C58-3E0B7A64F215}, fixed for the life of the product: trace sessions name it.
constexpr os::Guid kProviderId{0xD7E3B1C4, 0x52A9, 0x4F06, {0x9C, 0x58, 0x3E, 0x0B, 0x7A, 0x64, 0xF2, 0x15}};
constexpr std::uint8_t kTraceLoggingChannel = 11;

constexpr std::uint8_t kEveryLevel = 255;
constexpr std::uint8_t kNotRegisteredYet = 255;  // above every level, so that the first text finds its way here

Shared<os::TraceProvider> gProvider;
Shared<bool> gRegistrationAttempted;

std::uint32_t WriteTextEvent(const os::Bytes& eventMetadata, std::wstring_view text) {
  TraceLevel::RegisterProviderOnce();
  if (!TraceLevel::IsVerbose()) return 0;
  const os::TraceEventDescriptor descriptor{.channel = kTraceLoggingChannel, .level = kTraceVerbose};
  return os::WriteTraceEvent(gProvider.get(), descriptor, ProviderTraits(), eventMetadata, EventText(text));
}

}  // namespace

Shared<std::uint8_t> TraceLevel::level_{kNotRegisteredYet};

void TraceLevel::OnTraceEnabled(bool enabled, std::uint8_t level) {
  // A session that names no level (0) wants every event.
  const std::uint8_t wanted = level == 0 ? kEveryLevel : level;
  level_.set(enabled ? wanted : 0);
}

void TraceLevel::RegisterProviderOnce() {
  if (gRegistrationAttempted.exchange(true)) return;
  level_.set(0);
  // A session that listens already is told of during the registration itself.
  const auto provider = os::RegisterTraceProvider(kProviderId, OnTraceEnabled);
  if (!provider) return;
  gProvider.set(*provider);
  (void)os::SetTraceProviderTraits(*provider, ProviderTraits());  // each event carries them as well
}

std::uint32_t WriteTraceLog(const wchar_t* text) {
  static const os::Bytes metadata = TextEventMetadata("TessaviewService", "String (wide char)");
  return WriteTextEvent(metadata, text == nullptr ? std::wstring_view() : text);
}

void RecordUsage(std::wstring_view name) {
  static const os::Bytes metadata = TextEventMetadata("TessaviewUsage", "Name");
  WriteTextEvent(metadata, name);
}

}  // namespace tessaview
