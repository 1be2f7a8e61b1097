#pragma once

#include <cstdint>

// The texts that the controller sends to the UI, one row each. docs/ui-protocol.md is held against these rows.
namespace tessaview {

/// Whether the setup guide, running without the UI's main window, gets the text too.
enum class Guide : std::uint8_t { Misses, Gets };

/// How long the sender waits: until the UI has taken the text, or for 100 ms.
enum class Wait : std::uint8_t { Patient, Briefly };

/// What becomes of a posted text behind a UI that hangs. A later update makes an earlier one stale.
enum class Keep : std::uint8_t { Always, UntilStale };

/// One text; a name that ends in "=" is followed by more. The phrase says when it is sent and what its fields hold; it
/// stays in the source.
struct UiText {
  const wchar_t* name;
  Guide guide;
  Wait wait;
  Keep keep;

  consteval UiText(const wchar_t* text, Guide whoElse, Wait howLong, Keep behindHungUi, const char* /*phrase*/)
      : name(text), guide(whoElse), wait(howLong), keep(behindHungUi) {}
};

namespace texts {

inline constexpr UiText kPowerOn{L"POWERON", Guide::Gets, Wait::Patient, Keep::Always, "the panel is shown"};
inline constexpr UiText kPowerOff{L"POWEROFF", Guide::Gets, Wait::Patient, Keep::Always, "the panel is not shown"};
inline constexpr UiText kOpenMask{L"OPENMASK", Guide::Misses, Wait::Patient, Keep::Always,
                                  "the built-in display went off, or the lid was closed and the machine goes on"};
inline constexpr UiText kCloseMask{L"CLOSEMASK", Guide::Misses, Wait::Patient, Keep::Always,
                                   "the mask over the panel is to be removed"};
inline constexpr UiText kPopBatteryMessage{L"POPBATTERYMESSAGE", Guide::Misses, Wait::Patient, Keep::Always,
                                           "battery saver would dim the panel, which is bright"};
inline constexpr UiText kBacklight{L"BLSET", Guide::Misses, Wait::Patient, Keep::Always,
                                   "handle: the backlight in percent, 99 when it cannot be read; answer to BLGET"};
inline constexpr UiText kProcessName{L"PROCESSNAME=", Guide::Misses, Wait::Patient, Keep::Always,
                                     "the program's name behind the sign, without folder and extension, nothing when "
                                     "it cannot be told; answer to GETPROCESSNAME"};
inline constexpr UiText kVersion{L"VERSION=", Guide::Misses, Wait::Briefly, Keep::Always,
                                 "the controller's version behind the sign, as a.b.c.d; answer to VERSION="};
inline constexpr UiText kRefreshRates{
    L"SETFREQUENCY", Guide::Misses, Wait::Patient, Keep::Always,
    "point: refresh rates of B panel and C panel in Hz, 0 when absent; answer to GETFREQUENCY"};
inline constexpr UiText kSetWallpaper{L"SETWALLPAPER", Guide::Misses, Wait::Patient, Keep::Always,
                                      "lid opened or display on: the panel's wallpaper is to be applied again"};
inline constexpr UiText kGetTouchPad{L"GETTOUCHPAD", Guide::Misses, Wait::Briefly, Keep::Always,
                                     "the touch pad's status changed"};
inline constexpr UiText kCheckUpdate{L"CHECKUPDATE", Guide::Misses, Wait::Patient, Keep::Always,
                                     "every hour: look for updates"};
inline constexpr UiText kIAmBack{L"IAMBACK", Guide::Misses, Wait::Patient, Keep::Always,
                                 "the machine is back from hibernation"};
inline constexpr UiText kUacEntry{L"UACENTRY", Guide::Gets, Wait::Briefly, Keep::Always, "the secure desktop appeared"};
inline constexpr UiText kUacExit{L"UACEXIT", Guide::Gets, Wait::Briefly, Keep::Always, "the secure desktop is gone"};
inline constexpr UiText kNavigatorShow{L"NAVIGATORSHOW", Guide::Misses, Wait::Patient, Keep::UntilStale,
                                       "the pointer came to the bottom edge of the C panel"};
inline constexpr UiText kMoverNormal{L"WSNORMAL", Guide::Misses, Wait::Patient, Keep::UntilStale,
                                     "overlay; a window is dragged on the B panel: show the overlay"};
inline constexpr UiText kMoverHover{L"WSHOVER", Guide::Misses, Wait::Patient, Keep::UntilStale,
                                    "overlay; the same, with the area under the pointer raised"};
inline constexpr UiText kMoverWinUpNormal{L"WSWINUPNORMAL", Guide::Misses, Wait::Patient, Keep::UntilStale,
                                          "overlay; a window is dragged on the C panel: show the overlay"};
inline constexpr UiText kMoverWinUpHover{L"WSWINUPHOVER", Guide::Misses, Wait::Patient, Keep::UntilStale,
                                         "overlay; the same, with the area under the pointer raised"};
inline constexpr UiText kMoverRefused{
    L"MSWSNORMAL", Guide::Misses, Wait::Patient, Keep::UntilStale,
    "overlay; a window is dragged that cannot be thrown: show the overlay that says so"};
inline constexpr UiText kMoverPress{L"WSPRESS", Guide::Misses, Wait::Patient, Keep::Always,
                                    "handle: the window, rect: left and top 36 pixels below the press, point y: 1 "
                                    "after a large overlay on the B panel; take down any overlay"};
inline constexpr UiText kMoverEnter{
    L"WSENTER", Guide::Misses, Wait::Briefly, Keep::Always,
    "overlay, without its corner; the window was dropped on an area and is about to be moved"};
inline constexpr UiText kUp{L"UP", Guide::Misses, Wait::Patient, Keep::Always,
                            "handle: the target window, rect: its place; it is on the C panel: show the arrow up"};
inline constexpr UiText kDown{L"DOWN", Guide::Misses, Wait::Patient, Keep::Always,
                              "handle: the target window, rect: its place; it is on the B panel: show the arrow down"};
inline constexpr UiText kForbid{L"FORBID", Guide::Misses, Wait::Patient, Keep::Always,
                                "there is no window that could be moved"};

}  // namespace texts
}  // namespace tessaview
