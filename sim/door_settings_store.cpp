#include "os/settings_store.h"
#include "sim/ini_file.h"
#include "sim/parts.h"

namespace os {
namespace {

using sim::Machine;

constexpr std::size_t kLongestText = 259;

std::optional<std::wstring> Find(const std::wstring& path, const wchar_t* section, const wchar_t* key) {
  const auto text = Machine().files.Text(path);
  if (!text) return std::nullopt;
  return sim::IniFile(*text).Value(section, key);
}

}  // namespace

std::wstring ReadProfileText(const std::wstring& path, const wchar_t* section, const wchar_t* key,
                             const wchar_t* fallback) {
  const auto call = sim::Enter<&ReadProfileText>();
  if (call.failed()) return fallback;
  const auto value = Find(path, section, key).value_or(fallback);
  return value.substr(0, call.Shortened(kLongestText));
}

std::uint32_t ReadProfileNumber(const std::wstring& path, const wchar_t* section, const wchar_t* key,
                                std::uint32_t fallback) {
  if (sim::Enter<&ReadProfileNumber>().failed()) return fallback;
  const auto value = Find(path, section, key).value_or(L"");
  return value.empty() ? fallback : sim::LeadingNumber(value);
}

bool WriteProfileText(const std::wstring& path, const wchar_t* section, const wchar_t* key, const wchar_t* text) {
  if (sim::Enter<&WriteProfileText>().failed()) return false;
  sim::IniFile ini(Machine().files.Text(path).value_or(L""));
  ini.Set(section, key, text);
  return Machine().files.WriteText(path, ini.Text()) == 0;
}

}  // namespace os
