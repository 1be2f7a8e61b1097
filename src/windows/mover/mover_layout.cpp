#include "windows/mover/mover_layout.h"

#include <algorithm>
#include <iterator>

namespace tessaview {
namespace {

using enum OverlayState;

struct Range {
  std::int32_t from, to;
};

struct OverlayRow {
  MoverPanel panel;
  bool isNewerUI, isLarge;
  OverlayState state;
  os::Point position;
  Range downX, pinX, winUpX, y;
};

// Everything relative to the point of the press. The newer UI's areas overlap when it is first shown; Down wins there.
// clang-format off
constexpr auto B = MoverPanel::B, C = MoverPanel::C;
constexpr Range None = {0, 0};
constexpr OverlayRow kRows[] = {
    //  newer  large  state      position      down         pin         up           y
    {B, false, false, FirstShow, {   0, 36}, {  25, 126}, {126, 227}, None,        { 56, 136}},
    {B, false, false, Normal,    {   0, 36}, {  25, 126}, {126, 227}, None,        { 56, 136}},
    {B, false, false, Hover,     { -25, 24}, {   5, 126}, {126, 247}, None,        { 48, 144}},
    {B, false, true,  FirstShow, {   0, 36}, {  50, 253}, {253, 456}, None,        { 76, 236}},
    {B, false, true,  Normal,    {   0, 36}, {  50, 253}, {253, 456}, None,        { 76, 236}},
    {B, false, true,  Hover,     { -50, 12}, {  10, 253}, {253, 496}, None,        { 60, 252}},
    {B, true,  false, FirstShow, {-130, -4}, { -50, 100}, { 50, 200}, None,        { 36, 116}},
    {B, true,  false, Normal,    {-130, -4}, { -50,  50}, { 50, 150}, None,        { 36, 116}},
    {B, true,  false, Hover,     {-130, -4}, { -70,  50}, { 50, 170}, None,        { 28, 124}},
    {B, true,  true,  FirstShow, {-260, -8}, {-100, 200}, {100, 400}, None,        { 72, 232}},
    {B, true,  true,  Normal,    {-260, -8}, {-100, 100}, {100, 300}, None,        { 72, 232}},
    {B, true,  true,  Hover,     {-260, -8}, {-140, 100}, {100, 340}, None,        { 56, 248}},
    // The same for the older and the newer UI.
    {C, false, false, FirstShow, { -60, 28}, None,        None,       { -50,  50}, { 36, 116}},
    {C, false, false, Normal,    { -60, 28}, None,        None,       { -50,  50}, { 36, 116}},
    {C, false, false, Hover,     { -60, 28}, None,        None,       { -60,  60}, { 28, 124}},
    {C, false, true,  FirstShow, {-120, 56}, None,        None,       {-100, 100}, { 72, 232}},
    {C, false, true,  Normal,    {-120, 56}, None,        None,       {-100, 100}, { 72, 232}},
    {C, false, true,  Hover,     {-120, 56}, None,        None,       {-120, 120}, { 56, 248}},
};
// clang-format on

MoverRect RectAt(os::Point press, Range x, Range y) {
  return {press.x + x.from, press.x + x.to, press.y + y.from, press.y + y.to};
}

}  // namespace

MoverArea MoverOverlay::AreaAt(os::Point point) const {
  if (down.Contains(point)) return MoverArea::Down;
  if (pin.Contains(point)) return MoverArea::Pin;
  if (winUp.Contains(point)) return MoverArea::WinUp;
  return MoverArea::None;
}

MoverOverlay LayOutMover(const OverlayKind& kind, OverlayState state, os::Point press) {
  const bool isNewerUI = kind.panel == MoverPanel::B && kind.isNewerUI;
  const auto& row = *std::find_if(std::begin(kRows), std::end(kRows), [&](const OverlayRow& each) {
    return each.panel == kind.panel && each.isNewerUI == isNewerUI && each.isLarge == kind.isLarge &&
           each.state == state;
  });
  return {.position = {press.x + row.position.x, press.y + row.position.y},
          .down = RectAt(press, row.downX, row.y),
          .pin = RectAt(press, row.pinX, row.y),
          .winUp = RectAt(press, row.winUpX, row.y)};
}

}  // namespace tessaview
