#include "apps/app_options.h"

#include <array>
#include <cwchar>

namespace lab {
namespace {

struct TextOption {
  const wchar_t* word;
  std::wstring AppOptions::*text;
};
constexpr std::array kTexts{TextOption{L"--title=", &AppOptions::title},
                            TextOption{L"--class=", &AppOptions::className}};

struct SwitchOption {
  const wchar_t* word;
  bool AppOptions::*value;
  bool means;
};
constexpr std::array kSwitches{SwitchOption{L"--no-maximize-box", &AppOptions::maximizeBox, false},
                               SwitchOption{L"--bare", &AppOptions::bare, true},
                               SwitchOption{L"--ignores-close", &AppOptions::ignoresClose, true}};

constexpr wchar_t kArea[] = L"--area=%d,%d,%d,%d";

bool Take(const std::wstring& word, AppOptions& options) {
  for (const auto& [prefix, text] : kTexts) {
    if (!word.starts_with(prefix)) continue;
    options.*text = word.substr(wcslen(prefix));
    return true;
  }
  for (const auto& [whole, value, means] : kSwitches) {
    if (word != whole) continue;
    options.*value = means;
    return true;
  }
  auto& area = options.area;
  return std::swscanf(word.c_str(), kArea, &area.left, &area.top, &area.right, &area.bottom) == 4;
}

}  // namespace

std::wstring CommandLineOf(const AppOptions& options) {
  std::wstring line;
  for (const auto& [word, text] : kTexts) {
    if (!(options.*text).empty()) line += L"\"" + (word + options.*text) + L"\" ";
  }
  for (const auto& [word, value, means] : kSwitches) {
    if (options.*value == means) line += std::wstring(word) + L" ";
  }
  std::array<wchar_t, 80> area{};
  const auto& [left, top, right, bottom] = options.area;
  std::swprintf(area.data(), area.size(), kArea, left, top, right, bottom);
  return line + area.data();
}

std::optional<AppOptions> ReadCommandLine(std::span<wchar_t*> words) {
  AppOptions options;
  for (const wchar_t* const word : words) {
    if (!Take(word, options)) return {};
  }
  return options;
}

}  // namespace lab
