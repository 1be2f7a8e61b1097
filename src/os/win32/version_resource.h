#pragma once

#include <span>
#include <string>

#include "os/types.h"

namespace os::win32 {

/// A file's version resource, read whole (GetFileVersionInfoSizeW, GetFileVersionInfoW). One without any block when the
/// file has none or cannot be read.
class VersionResource {
 public:
  explicit VersionResource(const std::wstring& path);

  /// The bytes of a block such as "\" or "\VarFileInfo\Translation", valid as long as this lives; empty when there is
  /// no such block (VerQueryValueW).
  [[nodiscard]] BytesView Data(const wchar_t* block) const;

  /// The characters of a block that holds a text, its NUL included; else as Data.
  [[nodiscard]] std::span<const wchar_t> Text(const std::wstring& block) const;

 private:
  Bytes resource_;
};

}  // namespace os::win32
