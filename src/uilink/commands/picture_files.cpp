#include "uilink/commands/picture_files.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "core/text.h"

namespace tessaview {
namespace {

using namespace std::string_view_literals;

/// What pictures begin with; '?' stands for any byte.
constexpr std::string_view kStarts[] = {
    "\xFF\xD8\xFF",       // JPEG
    "\x89PNG\r\n\x1A\n",  // PNG
    "BM????\0\0\0\0"sv,   // BMP: its size, then four bytes without a use
    "GIF87a",             // GIF
    "GIF89a",             //
    "II*\0"sv,            // TIFF
    "MM\0*"sv,            //
    "RIFF????WEBP",       // WebP
    "????ftyphei",        // HEIF
    "????ftypmif1",       //
    "????ftypavi",        // AVIF
};
constexpr char kAnyByte = '?';

constexpr std::wstring_view kExtensions[] = {L"JPG", L"JPEG", L"JPE",  L"JFIF", L"PNG",  L"BMP",  L"DIB",
                                             L"GIF", L"TIF",  L"TIFF", L"WEBP", L"HEIC", L"HEIF", L"AVIF"};

/// Names that are devices in every folder, with any extension.
constexpr std::wstring_view kDevices[] = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
constexpr std::wstring_view kNumberedDevices[] = {L"COM", L"LPT"};
constexpr std::wstring_view kDeviceNumbers = L"0123456789\xB9\xB2\xB3";  // superscripts count as well

bool BeginsWith(os::BytesView bytes, std::string_view pattern) {
  const auto isSame = [](char expected, std::uint8_t byte) {
    return expected == kAnyByte || static_cast<std::uint8_t>(expected) == byte;
  };
  return bytes.size() >= pattern.size() && std::equal(pattern.begin(), pattern.end(), bytes.begin(), isSame);
}

template <std::size_t size>
bool IsOneOfNames(const std::wstring_view (&names)[size], std::wstring_view name) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

std::wstring_view FileNameOf(std::wstring_view path) {
  return path.substr(path.find_last_of(L"\\/:") + 1);
}

bool IsDevice(std::wstring_view fileName) {
  auto name = UpperCased(std::wstring(fileName.substr(0, fileName.find(L'.'))));
  name.resize(name.find_last_not_of(L' ') + 1);
  if (IsOneOfNames(kDevices, name)) return true;
  const auto series = name.substr(0, name.find_last_not_of(kDeviceNumbers) + 1);
  return series.size() + 1 == name.size() && IsOneOfNames(kNumberedDevices, series);
}

bool IsDriveLetter(wchar_t character) {
  return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
}

bool IsSeparator(wchar_t character) {
  return character == L'\\' || character == L'/';
}

}  // namespace

bool IsPicture(os::BytesView start) {
  return std::any_of(std::begin(kStarts), std::end(kStarts), [&](auto pattern) { return BeginsWith(start, pattern); });
}

bool IsPlainLocalPath(std::wstring_view path) {
  constexpr std::size_t kRoot = 3;  // "C:\"
  if (path.size() <= kRoot || !IsDriveLetter(path[0]) || path[1] != L':' || !IsSeparator(path[2])) return false;
  if (path.find(L':', kRoot) != std::wstring_view::npos) return false;
  const auto name = FileNameOf(path);
  return !name.empty() && name.back() != L'.' && name.back() != L' ' && !IsDevice(name);
}

bool HasPictureName(std::wstring_view path) {
  const auto name = FileNameOf(path);
  const auto dot = name.rfind(L'.');
  return dot == std::wstring_view::npos || IsOneOfNames(kExtensions, UpperCased(std::wstring(name.substr(dot + 1))));
}

}  // namespace tessaview
