#pragma once

#include <cstddef>
#include <cwchar>
#include <string>
#include <type_traits>

namespace tessaview {

/// Room for one formatted log text, in characters, its NUL included.
inline constexpr std::size_t kLogTextSize = 1024;

/// What one argument of a log template becomes on its way to the formatter.
template <class T>
auto LogArgument(const T& value) {
  if constexpr (std::is_same_v<T, std::wstring>) {
    return value.c_str();
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<unsigned>(value);
  } else if constexpr (std::is_integral_v<T>) {
    return static_cast<std::conditional_t<std::is_signed_v<T>, int, unsigned>>(value);
  } else {
    return static_cast<const wchar_t*>(value);
  }
}

/// A wide printf template whose conversions (%d %x %X %ls %%, with zero-padded widths) were checked against the
/// arguments at compile time. Numbers are written as 32-bit values.
template <class... Args>
class LogFormat {
 public:
  consteval LogFormat(const wchar_t* text) : text_(text) {
    constexpr bool isText[] = {(std::is_same_v<Args, std::wstring> || std::is_convertible_v<Args, const wchar_t*>)...,
                               false};
    std::size_t argument = 0;
    for (; *text != 0; ++text) {
      if (*text != L'%') continue;
      ++text;
      if (*text == L'%') continue;
      while (*text >= L'0' && *text <= L'9') ++text;
      const bool wantsText = *text == L'l' && text[1] == L's';
      const bool wantsNumber = *text == L'd' || *text == L'x' || *text == L'X';
      if (!wantsText && !wantsNumber) throw "unknown conversion in a log template";
      if (argument == sizeof...(Args)) throw "a log template has more conversions than arguments";
      if (isText[argument] != wantsText) throw "a log argument does not fit its conversion";
      if (wantsText) ++text;
      ++argument;
    }
    if (argument != sizeof...(Args)) throw "a log template has fewer conversions than arguments";
  }

  [[nodiscard]] constexpr const wchar_t* get() const { return text_; }

 private:
  const wchar_t* text_;
};

/// Formats into `text`, cutting what does not fit.
template <class... Args>
void FormatLogText(wchar_t (&text)[kLogTextSize], LogFormat<std::type_identity_t<Args>...> format,
                   const Args&... args) {
  text[0] = 0;
  // A text that does not fit leaves a full buffer behind a failure result on some libraries; it stays terminated.
  (void)std::swprintf(text, kLogTextSize, format.get(), LogArgument(args)...);
  text[kLogTextSize - 1] = 0;
}

}  // namespace tessaview
