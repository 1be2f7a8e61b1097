#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "os/types.h"
#include "sim/watches.h"

namespace sim {

/// A stored value as the registry keeps it: a type and bytes.
struct RegistryValue {
  enum class Type : std::uint32_t { Text = 1, Binary = 3, Dword = 4, Qword = 11 };
  Type type = Type::Binary;
  os::Bytes bytes;
};

/// Orders names as Windows does: without regard to case.
struct IgnoreCase {
  bool operator()(const std::wstring& a, const std::wstring& b) const;
};

/// The part of the registry under HKEY_LOCAL_MACHINE. A new one holds what the factory wrote.
class Registry {
 public:
  static constexpr wchar_t kFactoryConfig[] = L"SOFTWARE\\NORV\\FactoryConfig";
  /// Below it stands a key for each installed package.
  static constexpr wchar_t kPackages[] =
      L"SOFTWARE\\Classes\\Local Settings\\Software\\Microsoft\\Windows\\CurrentVersion\\AppModel\\"
      L"PackageRepository\\Packages";

  using Values = std::map<std::wstring, RegistryValue, IgnoreCase>;

  explicit Registry(Watches& watches);

  /// Each creates the key when it is missing. A text is stored with its NUL; an unterminated one is not.
  void SetText(const std::wstring& key, const std::wstring& value, const std::wstring& text);
  void SetUnterminatedText(const std::wstring& key, const std::wstring& value, const std::wstring& text);
  void SetBytes(const std::wstring& key, const std::wstring& value, os::Bytes bytes);
  void SetDword(const std::wstring& key, const std::wstring& value, std::uint32_t number);
  void SetQword(const std::wstring& key, const std::wstring& value, std::uint64_t number);

  void Remove(const std::wstring& key, const std::wstring& value);
  void RemoveKey(const std::wstring& key);

  /// The value as it is stored; null when key or value is missing.
  [[nodiscard]] const RegistryValue* Find(const std::wstring& key, const std::wstring& value) const;

  /// A text value; empty when it is missing or of another type.
  [[nodiscard]] std::optional<std::wstring> Text(const std::wstring& key, const std::wstring& value) const;

  /// The names of the keys right below a key, in alphabetical order.
  [[nodiscard]] std::vector<std::wstring> Subkeys(const std::wstring& key) const;

  /// A 32-bit number; empty when it is missing or of another type.
  [[nodiscard]] std::optional<std::uint32_t> Dword(const std::wstring& key, const std::wstring& value) const;

  /// A 64-bit number; empty when it is missing or of another type.
  [[nodiscard]] std::optional<std::uint64_t> Qword(const std::wstring& key, const std::wstring& value) const;

  /// Makes a key without values.
  void AddKey(const std::wstring& key);

  /// A key above another is there too.
  [[nodiscard]] bool Has(const std::wstring& key) const { return keys_.contains(key) || !Subkeys(key).empty(); }

 private:
  void Set(const std::wstring& key, const std::wstring& value, RegistryValue stored);

  Watches& watches_;
  std::map<std::wstring, Values, IgnoreCase> keys_;
};

}  // namespace sim
