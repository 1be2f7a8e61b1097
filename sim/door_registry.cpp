#include "os/registry.h"
#include "sim/door_call.h"
#include "sim/laptop.h"

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

}  // namespace

std::optional<std::wstring> ReadRegistryText(const std::wstring& key, const wchar_t* value, std::size_t bufferBytes) {
  const auto call = sim::Enter<&ReadRegistryText>();
  if (call.failed()) return std::nullopt;
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
  const auto call = sim::Enter<&WriteRegistryText>();
  if (call.failed()) return Error{call.error()};
  Machine().registry.SetText(key, value, text);
  return Done{};
}

}  // namespace os
