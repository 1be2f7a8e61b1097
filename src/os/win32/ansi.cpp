#include "os/ansi.h"

#include "os/win32/win32_support.h"

namespace os {

std::wstring FromAnsi(BytesView text) {
  const auto* const narrow = reinterpret_cast<const char*>(text.data());
  const auto length = static_cast<int>(text.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, narrow, length, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_ACP, 0, narrow, length, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

}  // namespace os
