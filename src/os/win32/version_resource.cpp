#include "os/win32/version_resource.h"

#include <windows.h>

#include <winver.h>

namespace os::win32 {
namespace {

/// The length of a value is told in characters for a text, else in bytes.
template <class Element>
std::span<const Element> ValueOf(const Bytes& resource, const wchar_t* block) {
  void* value = nullptr;
  UINT length = 0;
  if (resource.empty() || VerQueryValueW(resource.data(), block, &value, &length) == FALSE || value == nullptr) {
    return {};
  }
  return {static_cast<const Element*>(value), length};
}

}  // namespace

VersionResource::VersionResource(const std::wstring& path) {
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), nullptr);
  resource_.resize(size);
  if (size != 0 && GetFileVersionInfoW(path.c_str(), 0, size, resource_.data()) == FALSE) resource_.clear();
}

BytesView VersionResource::Data(const wchar_t* block) const {
  return ValueOf<std::uint8_t>(resource_, block);
}

std::span<const wchar_t> VersionResource::Text(const std::wstring& block) const {
  return ValueOf<wchar_t>(resource_, block.c_str());
}

}  // namespace os::win32
