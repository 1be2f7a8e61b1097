#include "os/registry.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {
namespace {

using sim::Machine;

/// The bytes of a value: stored by a program, or kept by the system for a monitor it has seen.
std::optional<Bytes> FindBytes(const std::wstring& key, const wchar_t* value) {
  const auto* stored = Machine().registry.Find(key, value);
  if (stored == nullptr) return Machine().displays.DeviceParameter(key, value);
  if (stored->type != sim::RegistryValue::Type::Binary) return std::nullopt;
  return stored->bytes;
}

template <class Write>
Status WriteToExistingKey(const sim::DoorCall& call, const std::wstring& key, Write write) {
  if (call.failed()) return Error{call.error()};
  auto& registry = Machine().registry;
  if (!registry.Has(key)) return Error{sim::kFileNotFound};
  write(registry);
  return Done{};
}

}  // namespace

std::optional<std::wstring> ReadRegistryText(const std::wstring& key, const wchar_t* value, std::size_t bufferBytes) {
  if (sim::Enter<&ReadRegistryText>().failed()) return std::nullopt;
  const auto* stored = Machine().registry.Find(key, value);
  if (stored == nullptr || stored->bytes.size() > bufferBytes) return std::nullopt;
  return Machine().registry.Text(key, value);
}

std::optional<Bytes> ReadRegistryBytes(const std::wstring& key, const wchar_t* value) {
  const auto call = sim::Enter<&ReadRegistryBytes>();
  if (call.failed()) return std::nullopt;
  auto bytes = FindBytes(key, value);
  if (bytes) bytes->resize(call.Shortened(bytes->size()));
  return bytes;
}

Status WriteRegistryText(const std::wstring& key, const wchar_t* value, const std::wstring& text) {
  if (const auto call = sim::Enter<&WriteRegistryText>(); call.failed()) return Error{call.error()};
  Machine().registry.SetText(key, value, text);
  return Done{};
}

std::vector<std::wstring> RegistrySubkeys(const std::wstring& key) {
  const auto call = sim::Enter<&RegistrySubkeys>();
  if (call.failed()) return {};
  auto names = Machine().registry.Subkeys(key);
  names.resize(call.Shortened(names.size()));
  return names;
}

std::optional<std::uint32_t> ReadRegistryNumber(const std::wstring& key, const wchar_t* value) {
  if (sim::Enter<&ReadRegistryNumber>().failed()) return std::nullopt;
  return Machine().registry.Dword(key, value);
}

Status WriteRegistryNumber(const std::wstring& key, const wchar_t* value, std::uint32_t number) {
  return WriteToExistingKey(sim::Enter<&WriteRegistryNumber>(), key,
                            [&](sim::Registry& registry) { registry.SetDword(key, value, number); });
}

Status WriteRegistryLongNumber(const std::wstring& key, const wchar_t* value, std::uint64_t number) {
  return WriteToExistingKey(sim::Enter<&WriteRegistryLongNumber>(), key,
                            [&](sim::Registry& registry) { registry.SetQword(key, value, number); });
}

}  // namespace os
