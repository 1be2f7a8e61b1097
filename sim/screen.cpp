#include "sim/screen.h"

#include <algorithm>
#include <utility>

namespace sim {
namespace {

constexpr std::int32_t kBadMode = -2;  // DISP_CHANGE_BADMODE
constexpr std::uint32_t kSizeFields = os::kDmPelsWidth | os::kDmPelsHeight;
constexpr std::uint32_t kAllFields = os::kDmPosition | os::kDmDisplayOrientation | os::kDmBitsPerPel | kSizeFields |
                                     os::kDmDisplayFlags | os::kDmDisplayFrequency | os::kDmDisplayFixedOutput;

bool IsQuarterTurn(std::uint32_t orientation) {
  return orientation % 2 == 1;
}

/// Smaller pictures are scaled up; larger ones, or ones turned the other way, do not fit the display.
bool Fits(const Screen& screen, std::uint32_t width, std::uint32_t height) {
  auto mostWide = screen.nativeWidth, mostHigh = screen.nativeHeight;
  if (IsQuarterTurn(screen.orientation)) std::swap(mostWide, mostHigh);
  return width != 0 && height != 0 && width <= mostWide && height <= mostHigh;
}

}  // namespace

void Screen::Rotate(std::uint32_t newOrientation) {
  if (IsQuarterTurn(newOrientation) != IsQuarterTurn(orientation)) std::swap(width, height);
  orientation = newOrientation;
  rotation = newOrientation + 1;
}

os::Rect Screen::Area() const {
  return {x, y, x + static_cast<std::int32_t>(width), y + static_cast<std::int32_t>(height)};
}

os::DisplaySettings Screen::Settings() const {
  if (!OnDesktop()) return {.fields = kAllFields};
  return {.fields = kAllFields,
          .x = x,
          .y = y,
          .width = width,
          .height = height,
          .orientation = orientation,
          .frequency = frequency,
          .bitsPerPixel = 32,
          .fixedOutput = fixedOutput};
}

std::int32_t Screen::Apply(const os::DisplaySettings& settings) {
  const auto names = [&](std::uint32_t fields) { return (settings.fields & fields) == fields; };
  const bool detaches = names(os::kDmPosition | kSizeFields) && settings.width == 0 && settings.height == 0;
  if (detaches) {
    Detach();
    return os::kDisplayChangeSuccessful;
  }

  auto changed = *this;
  if (names(os::kDmPosition)) changed.MoveTo(settings.x, settings.y);
  if (names(os::kDmDisplayOrientation)) {
    if (settings.orientation > 3) return kBadMode;
    changed.orientation = settings.orientation;
    changed.rotation = settings.orientation + 1;
  }
  if (names(os::kDmPelsWidth)) changed.width = settings.width;
  if (names(os::kDmPelsHeight)) changed.height = settings.height;
  if (names(os::kDmDisplayFrequency)) changed.frequency = settings.frequency;
  if (names(os::kDmDisplayFixedOutput)) changed.fixedOutput = settings.fixedOutput;

  const bool changesMode = (settings.fields & (os::kDmDisplayOrientation | kSizeFields)) != 0;
  if (changesMode && !Fits(changed, changed.width, changed.height)) return kBadMode;
  if (names(kSizeFields)) changed.Attach();
  *this = std::move(changed);
  return os::kDisplayChangeSuccessful;
}

std::int64_t Overlap(const os::Rect& a, const os::Rect& b) {
  const auto width = std::int64_t{std::min(a.right, b.right)} - std::max(a.left, b.left);
  const auto height = std::int64_t{std::min(a.bottom, b.bottom)} - std::max(a.top, b.top);
  return width > 0 && height > 0 ? width * height : 0;
}

}  // namespace sim
