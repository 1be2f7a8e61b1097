#include "sim/ini_file.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

#include "sim/text.h"

namespace sim {
namespace {

std::wstring Trimmed(const std::wstring& text) {
  const auto isBlank = [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r'; };
  const auto begin = std::find_if_not(text.begin(), text.end(), isBlank);
  const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(begin), isBlank).base();
  return {begin, end};
}

std::wstring Unquoted(const std::wstring& text) {
  const bool quoted = text.size() >= 2 && text.front() == text.back() && (text[0] == L'"' || text[0] == L'\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

std::optional<std::wstring> SectionName(const std::wstring& line) {
  const auto text = Trimmed(line);
  if (text.empty() || text.front() != L'[') return std::nullopt;
  return Trimmed(text.substr(1, text.find(L']') - 1));
}

std::optional<std::wstring> KeyName(const std::wstring& line) {
  const auto text = Trimmed(line);
  const auto equals = text.find(L'=');
  if (equals == std::wstring::npos || text.front() == L';') return std::nullopt;
  return Trimmed(text.substr(0, equals));
}

std::uint32_t NumberBase(const std::wstring& digits) {
  const auto prefix = digits.substr(0, 2);
  return prefix == L"0x" ? 16 : prefix == L"0o" ? 8 : prefix == L"0b" ? 2 : 10;
}

/// What a digit stands for; more than any base allows when it is none.
std::uint32_t DigitValue(wchar_t digit) {
  constexpr std::wstring_view kDigits = L"0123456789abcdef";
  const auto small = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(digit)));
  return static_cast<std::uint32_t>(std::min(kDigits.find(small), kDigits.size()));
}

}  // namespace

IniFile::IniFile(const std::wstring& text) {
  for (std::size_t begin = 0; begin < text.size();) {
    const auto end = std::min(text.find(L'\n', begin), text.size());
    const bool endsInReturn = end > begin && text[end - 1] == L'\r';
    lines_.push_back(text.substr(begin, end - begin - (endsInReturn ? 1 : 0)));
    begin = end + 1;
  }
}

std::optional<std::wstring> IniFile::Value(const std::wstring& section, const std::wstring& key) const {
  const auto at = FindKey(section, key);
  if (!at) return std::nullopt;
  const auto& line = lines_[*at];
  return Unquoted(Trimmed(line.substr(line.find(L'=') + 1)));
}

void IniFile::Set(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
  const auto line = key + L'=' + value;
  if (const auto at = FindKey(section, key)) {
    lines_[*at] = line;
  } else if (const auto place = FindSection(section)) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place->end), line);
  } else {
    lines_.push_back(L'[' + section + L']');
    lines_.push_back(line);
  }
}

void IniFile::Remove(const std::wstring& section, const std::wstring& key) {
  if (const auto at = FindKey(section, key)) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*at));
}

std::wstring IniFile::Text() const {
  std::wstring text;
  for (const auto& line : lines_) text += line + L"\r\n";
  return text;
}

std::optional<IniFile::Place> IniFile::FindSection(const std::wstring& section) const {
  const auto isHeading = [&](const std::wstring& line) {
    const auto name = SectionName(line);
    return name && Lower(*name) == Lower(section);
  };
  const auto heading = std::find_if(lines_.begin(), lines_.end(), isHeading);
  if (heading == lines_.end()) return std::nullopt;
  const auto begin = heading + 1;
  auto end = std::find_if(begin, lines_.end(), [](const auto& line) { return SectionName(line).has_value(); });
  while (end != begin && Trimmed(*(end - 1)).empty()) --end;
  return Place{static_cast<std::size_t>(begin - lines_.begin()), static_cast<std::size_t>(end - lines_.begin())};
}

std::optional<std::size_t> IniFile::FindKey(const std::wstring& section, const std::wstring& key) const {
  const auto place = FindSection(section);
  if (!place) return std::nullopt;
  for (auto at = place->begin; at < place->end; ++at) {
    const auto name = KeyName(lines_[at]);
    if (name && Lower(*name) == Lower(key)) return at;
  }
  return std::nullopt;
}

std::uint32_t LeadingNumber(const std::wstring& text) {
  auto at = std::find_if(text.begin(), text.end(), [](wchar_t c) { return c > L' '; });
  const bool negative = at != text.end() && *at == L'-';
  if (at != text.end() && (*at == L'-' || *at == L'+')) ++at;
  const auto base = NumberBase({at, text.end()});
  if (base != 10) at += 2;
  std::uint32_t number = 0;
  for (; at != text.end() && DigitValue(*at) < base; ++at) number = number * base + DigitValue(*at);
  return negative ? 0U - number : number;
}

}  // namespace sim
