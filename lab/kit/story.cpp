#include "kit/story.h"

#include <windows.h>

#include <cstdio>
#include <cwctype>

#include "kit/desktop.h"

namespace lab {
namespace {

constexpr std::size_t kNameWidth = 12;

std::string Utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

}  // namespace

void Story::Chapter(const std::wstring& title) {
  Print({});
  Print(title);
}

void Story::Tell(const std::wstring& who, const std::wstring& what) {
  std::wstring name = who;
  if (name.size() < kNameWidth) name.resize(kNameWidth, L' ');
  std::wstring text = what;
  while (!text.empty() && iswspace(text.back())) text.pop_back();
  Print(L"  " + name + text);
}

bool Story::Check(bool holds, const std::wstring& what) {
  {
    const std::lock_guard lock(mutex_);
    checks_++;
    if (!holds) failures_++;
  }
  Tell(holds ? L"ok" : L"NOT SO", what);
  return holds;
}

void Story::Print(const std::wstring& line) {
  {
    const std::lock_guard lock(mutex_);
    std::printf("%s\n", Utf8(line).c_str());
    std::fflush(stdout);
  }
  ShowOnDesktop(line);
}

}  // namespace lab
