#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sim {

/// The text of an INI file, read and changed as the private-profile functions do it: names without regard to case,
/// the first of equal names counts, lines that say nothing are kept as they are.
class IniFile {
 public:
  explicit IniFile(const std::wstring& text);

  /// A value without the blanks and the one pair of quotes around it; empty optional when it is missing.
  [[nodiscard]] std::optional<std::wstring> Value(const std::wstring& section, const std::wstring& key) const;

  /// Replaces the value where it stands, or adds it at the end of its section, or adds the section.
  void Set(const std::wstring& section, const std::wstring& key, const std::wstring& value);

  void Remove(const std::wstring& section, const std::wstring& key);

  /// The whole text, each line closed with CR LF.
  [[nodiscard]] std::wstring Text() const;

 private:
  struct Place {
    std::size_t begin, end;  // the lines after the section's heading; `end` leaves out its trailing blank lines
  };
  [[nodiscard]] std::optional<Place> FindSection(const std::wstring& section) const;
  [[nodiscard]] std::optional<std::size_t> FindKey(const std::wstring& section, const std::wstring& key) const;

  std::vector<std::wstring> lines_;
};

/// The number a text begins with, in 32 bits; 0 when it has none. Blanks and a sign may come first; the digits are
/// decimal, or hexadecimal after 0x, octal after 0o, binary after 0b.
[[nodiscard]] std::uint32_t LeadingNumber(const std::wstring& text);

}  // namespace sim
