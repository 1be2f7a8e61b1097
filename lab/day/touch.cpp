// Fingers on the C panel.
#include "day/chapters.h"
#include "kit/hex_text.h"

namespace lab {

void Touch(Day& day) {
  constexpr std::uint8_t kContact = 1, kDown = 1, kLifted = 0;  // report id, tip switch
  constexpr int kMoves = 16;
  // Report id, tip switch, contact id, X and Y of 0 to 4095, contact count.
  const auto report = [](std::uint8_t tip, int step) {
    const auto x = static_cast<std::uint16_t>(300 + 110 * step), y = static_cast<std::uint16_t>(3300 - 8 * step * step);
    const auto low = [](std::uint16_t word) { return static_cast<std::uint8_t>(word & 0xFF); };
    const auto high = [](std::uint16_t word) { return static_cast<std::uint8_t>(word >> 8); };
    return TouchBytes{kContact, tip, 0, low(x), high(x), low(y), high(y), 1};
  };

  day.Chapter(L"A finger moves over the C panel");
  day.Happens(L"sixteen reports of a finger, and one of its lift");
  std::vector<std::wstring> expected;
  bool reported = true;
  for (int step = 0; step <= kMoves; step++) {
    const auto bytes = report(step < kMoves ? kDown : kLifted, step);
    if (step % 3 == 0 || step == kMoves) expected.push_back(L"received touch " + HexText(bytes));
    reported = reported && day.laptop().touch.Report(kTouchPad, bytes);
  }
  day.Check(reported && day.UiHeard(expected.back()), L"the UI gets the lift");
  day.Check(day.UiTalk() == expected, L"and every third report before it, byte for byte");
  day.Picture(L"3-touched");
}

}  // namespace lab
