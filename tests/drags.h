#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support.h"

// What tests of dragged windows share: where they drag, and what the UI was told of it.
namespace support {

/// Where the drags begin, and points of the older UI's overlay there: in its area down, in its area pin, in neither.
inline constexpr os::Point kPress{700, 110}, kDown{775, 200}, kPin{880, 200}, kAway{1000, 400};
/// The same on the C panel.
inline constexpr os::Point kPressOnC{700, 1130}, kUp{700, 1200}, kAwayOnC{800, 1300};

/// What the UI was told of the mover: where, and two flags.
struct MoverText {
  std::wstring text;
  os::Point at;
  bool isPin = false, isLarge = false;
  friend bool operator==(const MoverText&, const MoverText&) = default;
  friend void PrintTo(const MoverText& told, std::ostream* out) {
    *out << testing::PrintToString(told.text) << " at " << told.at.x << "," << told.at.y << (told.isPin ? " pin" : "")
         << (told.isLarge ? " large" : "");
  }
};
using MoverTexts = std::vector<MoverText>;

/// The mover's texts since the last call; each names `window` and has nothing in the fields that are not used.
inline MoverTexts MoverTold(Laptop& laptop, os::WindowHandle window) {
  MoverTexts texts;
  for (const auto& record : laptop.ui.ReceivedTexts()) {
    if (!record.text.starts_with(L"WS") && !record.text.starts_with(L"MSWS")) continue;
    EXPECT_EQ(record.handle, static_cast<std::uint64_t>(window));
    EXPECT_EQ(record.rect.right | record.rect.bottom, 0);
    texts.push_back({record.text, {record.rect.left, record.rect.top}, record.point.x == 1, record.point.y == 1});
  }
  laptop.ui.ForgetReceived();
  return texts;
}

/// Their texts alone.
inline Texts MoverWords(Laptop& laptop, os::WindowHandle window) {
  Texts words;
  for (auto& told : MoverTold(laptop, window)) words.push_back(std::move(told.text));
  return words;
}

/// Moves the pointer so that the controller sees it there: with each event the system still tells where it was before.
inline void Reach(Laptop& laptop, os::Point to) {
  laptop.mouse.MoveTo(to);
  laptop.mouse.MoveTo(to);
}

/// Grabs a window and drags it until its overlay shows.
inline void DragOut(Laptop& laptop, os::WindowHandle window, os::Point press, os::Point away) {
  laptop.mouse.Grab(window, press);
  laptop.mouse.MoveTo({press.x + 10, press.y + 10});
  Reach(laptop, away);
}

}  // namespace support
