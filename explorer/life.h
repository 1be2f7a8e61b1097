#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "sim/laptop.h"

// The laptop whose life the explorer plays.
namespace explorer {

/// How a life begins, and what is unkind about its machine.
struct Beginning {
  sim::LaptopOptions laptop;
  bool uiAsksBack = false;           // the UI asks for the backlight inside its handlers
  std::uint32_t uiHandlesForMs = 0;  // how long these take
  bool hooksForgiveNothing = false, hooksDieAtWaking = false;
  bool primaryElsewhere = false;  // the B panel is not at (0, 0)
};

/// A laptop, what its user does in several steps, and what is remembered of it for what must hold.
class Life : public sim::Laptop {
 public:
  explicit Life(const Beginning& beginning);

  sim::Screen& monitor;  // one that is docked and undocked

  // ---- windows ----

  static constexpr int kWindowKinds = 11;
  static constexpr auto kKeyboard = L"Keyboard";  // the title of one that is never activated
  void OpenWindow(int kind, int onCPanel);
  /// One of those that were opened, by any number; perhaps gone by now.
  [[nodiscard]] os::WindowHandle Window(int number) const;
  void ActivateWindow(int number);
  void HangWindow(int number);
  void BusyWindow(int number, int ms);
  /// The UI closes a window that hangs.
  void CloseHungView(int number);
  void CloseWindow(int number) { desktop.Close(Window(number)); }
  void ShowWindow(int number, int command);
  void DragWindow(int number, int x, int y);
  /// Grabs a window at its title bar, or its border, moves it about and lets it go.
  void Throw(int number, int dx, int dy, bool border = false);

  /// Throws a window to the other panel: onto the area down, pin or up.
  void ThrowOnto(int number, int area);

  // ---- what is chosen ----

  void EndF6(int action);
  void SetLight(int percent);
  void SetShopService(int state);
  void EditSettings(const std::wstring& key, int value);

  // ---- the UI, the process and the user ----

  void UiStarts();
  void UiDies();
  /// The setup guide comes in place of the main window: beside it the UI is told nothing.
  void GuideOpens();
  /// A command as it is in the controller's table, or nearly so, by any number.
  [[nodiscard]] static const std::wstring& CommandText(int number);
  void Command(int number, int onWindow, int point);
  void Noise(int kind, int size, int content);
  void TouchLeaves();
  void Hibernate(int touchLateMs);
  void TouchComesBack(int afterMs);
  void Restart();
  void SignInAgain();

  // ---- what is remembered ----

  std::set<std::wstring> told;            // to the UI
  std::set<std::wstring> powers, levels;  // that were chosen
  std::set<std::wstring> hung;            // programs that have hung
  bool settingsEdited = false;            // by somebody else; the controller reads them again at its next start
  bool isInShop = false;                  // for a while, at least
  bool moverBlocked = false;              // for the rest of the process's life
  bool touchLeft = false;                 // the bus, if only for a moment
  /// What the system moved is not the controller's affair any more: called once something has happened.
  void NoteLayout();
  [[nodiscard]] std::vector<sim::Window> WindowsOfController() const;  // those it was the last to place
  [[nodiscard]] const std::vector<os::WindowHandle>& Opened() const { return windows_; }

 private:
  [[nodiscard]] std::ptrdiff_t TimesPlaced(os::WindowHandle handle) const;
  void NoteLevel(int level);
  void IsMovedByUser(os::WindowHandle handle) { placedBefore_[handle] = TimesPlaced(handle); }

  std::vector<os::WindowHandle> windows_;
  std::map<os::WindowHandle, std::ptrdiff_t> placedBefore_;  // by the controller, when somebody else moved it last
  std::vector<os::Rect> layout_;
};

}  // namespace explorer
