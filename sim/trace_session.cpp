#include "sim/trace_session.h"

#include <algorithm>

#include "sim/scheduler.h"
#include "sim/system_errors.h"

namespace sim {
namespace {

// A session names the provider by it.
constexpr os::Guid kProviderId{0xD7E3B1C4, 0x52A9, 0x4F06, {0x9C, 0x58, 0x3E, 0x0B, 0x7A, 0x64, 0xF2, 0x15}};
constexpr std::uint8_t kSelfDescribingChannel = 11;

bool IsAsAnnounced(const os::TraceEventDescriptor& descriptor) {
  return descriptor.id == 0 && descriptor.version == 0 && descriptor.channel == kSelfDescribingChannel &&
         descriptor.level == TraceSession::kVerbose && descriptor.opcode == 0 && descriptor.task == 0 &&
         descriptor.keyword == 0;
}

}  // namespace

void TraceSession::Listen(bool listens, std::uint8_t level) {
  listens_ = listens;
  level_ = level;
  for (const auto& [handle, provider] : providers_) provider.onEnable(listens, level);
}

std::size_t TraceSession::Count(const std::wstring& line) const {
  return static_cast<std::size_t>(std::count(lines_.begin(), lines_.end(), line));
}

std::optional<std::size_t> TraceSession::IndexOf(const std::wstring& line, std::size_t from) const {
  for (auto at = from; at < lines_.size(); ++at) {
    if (lines_[at] == line) return at;
  }
  return std::nullopt;
}

void TraceSession::Clear() {
  lines_.clear();
  writers_.clear();
  usage_.clear();
  debugTexts_.clear();
  malformed_.clear();
}

/// A session that listens already is told of during the registration itself.
os::TraceProvider TraceSession::Door::Register(const os::Guid& id, os::TraceEnableCallback onEnable) {
  if (id != kProviderId) malformed_.emplace_back("a provider that no session names");
  const auto handle = static_cast<os::TraceProvider>(++registrations_);
  providers_[handle] = {onEnable, {}};
  if (listens_) onEnable(true, level_);
  return handle;
}

bool TraceSession::Door::SetTraits(os::TraceProvider provider, os::BytesView traits) {
  const auto found = providers_.find(provider);
  if (found == providers_.end()) return false;
  if (!DecodeProviderTraits(traits)) malformed_.emplace_back("the provider's traits");
  found->second.traits.assign(traits.begin(), traits.end());
  return true;
}

std::uint32_t TraceSession::Door::Write(os::TraceProvider provider, const os::TraceEventDescriptor& descriptor,
                                        os::BytesView providerTraits, os::BytesView eventMetadata, os::BytesView data) {
  const auto found = providers_.find(provider);
  if (found == providers_.end()) return kInvalidHandle;
  if (!Wants(descriptor.level)) return 0;
  const auto& known = found->second.traits;
  const bool sameTraits = std::equal(known.begin(), known.end(), providerTraits.begin(), providerTraits.end());
  if (!known.empty() && !sameTraits) malformed_.emplace_back("an event with other traits than its provider's");
  if (const auto event = DecodeTraceEvent(providerTraits, eventMetadata, data)) {
    Collect(*event, descriptor);
  } else {
    malformed_.emplace_back("an event that does not hold to the form");
  }
  return 0;
}

void TraceSession::Collect(const TraceEvent& event, const os::TraceEventDescriptor& descriptor) {
  if (!IsAsAnnounced(descriptor)) malformed_.emplace_back("an event with an odd descriptor: " + event.name);
  if (event.provider != "TessaviewServiceLogger") malformed_.emplace_back("an event of provider " + event.provider);
  if (event.name == "TessaviewService" && event.field == "String (wide char)") {
    lines_.push_back(event.text);
    writers_.push_back(Scheduler::ThreadName());
  } else if (event.name == "TessaviewUsage") {
    usage_.push_back(event.text);
  } else {
    malformed_.emplace_back("an event " + event.name + " with the field " + event.field);
  }
}

}  // namespace sim
