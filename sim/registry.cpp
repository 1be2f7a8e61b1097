#include "sim/registry.h"

#include <algorithm>
#include <cwctype>
#include <utility>

#include "sim/bytes.h"
#include "sim/text.h"

namespace sim {
namespace {

template <class Number>
os::Bytes LittleEndian(Number number) {
  os::Bytes bytes(sizeof(Number));
  PutNumber(bytes, 0, number, sizeof(Number));
  return bytes;
}

template <class Number>
std::optional<Number> NumberOf(const RegistryValue* stored, RegistryValue::Type type) {
  if (stored == nullptr || stored->type != type || stored->bytes.size() != sizeof(Number)) return std::nullopt;
  return static_cast<Number>(GetNumber(stored->bytes, 0, sizeof(Number)));
}

}  // namespace

bool IgnoreCase::operator()(const std::wstring& a, const std::wstring& b) const {
  const auto upper = [](wchar_t letter) { return std::towupper(static_cast<std::wint_t>(letter)); };
  const auto before = [&](wchar_t x, wchar_t y) { return x != y && upper(x) < upper(y); };
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), before);
}

// The ids name single devices; only the model in front of the last backslash is the same on every laptop.
Registry::Registry(Watches& watches) : watches_(watches) {
  SetText(kFactoryConfig, L"BPanelHardwareID", L"DISPLAY\\BOE0D53\\4&1B1F3FD7&0&UID8388688");
  SetText(kFactoryConfig, L"CPanelHardwareID", L"DISPLAY\\TSB8888\\4&1B1F3FD7&0&UID8392784");
  AddKey(kPackages);
}

void Registry::SetText(const std::wstring& key, const std::wstring& value, const std::wstring& text) {
  SetUnterminatedText(key, value, text + L'\0');
}

void Registry::SetUnterminatedText(const std::wstring& key, const std::wstring& value, const std::wstring& text) {
  Set(key, value, {RegistryValue::Type::Text, ToUtf16(text)});
}

void Registry::SetBytes(const std::wstring& key, const std::wstring& value, os::Bytes bytes) {
  Set(key, value, {RegistryValue::Type::Binary, std::move(bytes)});
}

void Registry::SetDword(const std::wstring& key, const std::wstring& value, std::uint32_t number) {
  Set(key, value, {RegistryValue::Type::Dword, LittleEndian(number)});
}

void Registry::SetQword(const std::wstring& key, const std::wstring& value, std::uint64_t number) {
  Set(key, value, {RegistryValue::Type::Qword, LittleEndian(number)});
}

void Registry::Remove(const std::wstring& key, const std::wstring& value) {
  if (const auto values = keys_.find(key); values != keys_.end()) values->second.erase(value);
  watches_.RegistryChanged(key);
}

void Registry::AddKey(const std::wstring& key) {
  keys_[key];
  watches_.RegistryChanged(key);
}

void Registry::RemoveKey(const std::wstring& key) {
  keys_.erase(key);
  watches_.RegistryChanged(key);
}

const RegistryValue* Registry::Find(const std::wstring& key, const std::wstring& value) const {
  const auto values = keys_.find(key);
  if (values == keys_.end()) return nullptr;
  const auto stored = values->second.find(value);
  return stored == values->second.end() ? nullptr : &stored->second;
}

std::optional<std::wstring> Registry::Text(const std::wstring& key, const std::wstring& value) const {
  const auto* stored = Find(key, value);
  if (stored == nullptr || stored->type != RegistryValue::Type::Text) return std::nullopt;
  return FromUtf16(stored->bytes);
}

std::vector<std::wstring> Registry::Subkeys(const std::wstring& key) const {
  std::vector<std::wstring> names;
  const auto isNew = [&](const std::wstring& name) {
    return names.empty() || IgnoreCase()(names.back(), name) || IgnoreCase()(name, names.back());
  };
  const auto parent = Lower(key + L"\\");
  for (const auto& [path, values] : keys_) {
    if (Lower(path).rfind(parent, 0) != 0) continue;
    const auto name = path.substr(parent.size(), path.find(L'\\', parent.size()) - parent.size());
    if (isNew(name)) names.push_back(name);
  }
  return names;
}

std::optional<std::uint32_t> Registry::Dword(const std::wstring& key, const std::wstring& value) const {
  return NumberOf<std::uint32_t>(Find(key, value), RegistryValue::Type::Dword);
}

std::optional<std::uint64_t> Registry::Qword(const std::wstring& key, const std::wstring& value) const {
  return NumberOf<std::uint64_t>(Find(key, value), RegistryValue::Type::Qword);
}

void Registry::Set(const std::wstring& key, const std::wstring& value, RegistryValue stored) {
  keys_[key][value] = std::move(stored);
  watches_.RegistryChanged(key);
}

}  // namespace sim
