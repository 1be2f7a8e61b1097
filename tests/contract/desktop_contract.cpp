#include <algorithm>

#include "tests/contract/world.h"

namespace {

using DesktopContract = contract::Contract;
using os::ShowCommand, os::WindowHandle, world::kClass, world::kTitle;

os::Point MiddleOf(WindowHandle window) {
  const auto area = os::WindowRect(window);
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

bool CoversPrimaryDisplay(WindowHandle window) {
  const auto area = os::WindowRect(window);
  return area.left <= 0 && area.top <= 0 && area.right >= 1920 && area.bottom >= 1080;
}

TEST_F(DesktopContract, AWindowIsFoundAndReadAsItIsUntilItIsGone) {
  EXPECT_EQ(os::FindTopWindow(kClass), WindowHandle::None);
  const auto window = world::OpenWindow();
  EXPECT_EQ(os::FindTopWindow(L"CONTRACTwindow", L"a window of ANOTHER program"), window) << "without regard to case";
  EXPECT_EQ(os::FindTopWindow(kClass, L"Another title"), WindowHandle::None);
  EXPECT_EQ(os::ForegroundWindow(), window);
  EXPECT_EQ(os::WindowClassName(window), kClass);
  EXPECT_NE(os::ProcessImagePath(os::WindowProcessId(window)), L"");
  EXPECT_EQ(os::FindTopWindow(nullptr, kTitle), window) << "whatever its class";
  const auto dialog = world::OpenDialog();
  EXPECT_TRUE(os::IsWindow(window) && os::WindowTitle(window) == kTitle);
  constexpr auto kLooks = os::kWsCaption | os::kWsMaximizeBox | os::kWsVisible | os::kWsPopup;
  EXPECT_EQ(os::WindowStyle(window) & kLooks, os::kWsCaption | os::kWsMaximizeBox | os::kWsVisible);
  EXPECT_EQ(os::WindowStyle(dialog) & kLooks, os::kWsCaption | os::kWsVisible | os::kWsPopup);
  world::CloseWindow();
  for (const auto gone : {window, WindowHandle::None}) {
    EXPECT_FALSE(os::IsWindow(gone) || os::IsWindowVisible(gone) || os::IsWindowMinimized(gone));
    EXPECT_EQ(os::WindowTitle(gone) + os::WindowClassName(gone), L"");
    EXPECT_EQ(os::WindowStyle(gone) | os::WindowExtendedStyle(gone) | os::WindowProcessId(gone), 0U);
    EXPECT_EQ(os::RootWindow(gone), WindowHandle::None);
    EXPECT_EQ(os::WindowRect(gone), os::Rect{});
    EXPECT_FALSE(os::ShowWindow(gone, ShowCommand::Show) || os::AnswersWithin(gone, 100) || os::AskToClose(gone, 100));
    for (const auto error : {os::MoveWindow(gone, 0, 0, 100, 100).error(), os::GetPlacement(gone).error(),
                             os::SetPlacement(gone, {}).error(), os::SetTopmost(gone, true).error()}) {
      EXPECT_EQ(error, 1400U) << "ERROR_INVALID_WINDOW_HANDLE";
    }
    os::SetWindowExtendedStyle(gone, 0);  // returns
  }
  EXPECT_EQ(os::FindTopWindow(kClass), WindowHandle::None);
  EXPECT_EQ(os::FindChildWindow(window, world::kChildClass), WindowHandle::None);
  EXPECT_EQ(os::InputDesktopName(), L"Default");
  EXPECT_EQ(os::PrimaryScreenSize(), (os::Size{1920, 1080}));
  EXPECT_TRUE(CoversPrimaryDisplay(os::DesktopWindow()));
}

TEST_F(DesktopContract, ChildrenAndDialogsBelongToTheirWindow) {
  const auto window = world::OpenWindow();
  const auto child = world::OpenChild(), dialog = world::OpenDialog();
  EXPECT_EQ(os::FindChildWindow(window, L"contractCHILD"), child);
  EXPECT_EQ(os::FindChildWindow(window, kClass), WindowHandle::None);
  EXPECT_EQ(os::FindChildWindow(child, world::kChildClass), WindowHandle::None);
  EXPECT_EQ(os::FindTopWindow(world::kChildClass), WindowHandle::None) << "not a top window";
  for (const auto each : {window, child, dialog}) {
    EXPECT_EQ(os::RootWindow(each), each == dialog ? dialog : window);
    EXPECT_EQ(os::RootOwner(each), window);
    EXPECT_EQ(os::WindowProcessId(each), os::WindowProcessId(window));
  }

  const auto all = os::TopWindows();
  const auto at = [&](WindowHandle wanted) { return std::find(all.begin(), all.end(), wanted); };
  EXPECT_TRUE(at(dialog) < at(window) && at(window) < all.end() && at(child) == all.end()) << "the topmost first";

  EXPECT_TRUE(os::WindowAt(MiddleOf(child)) == child && os::WindowAt(MiddleOf(dialog)) == dialog);
  const auto area = os::WindowRect(window);
  EXPECT_EQ(os::WindowAt({area.right - 20, area.bottom - 20}), window);
  EXPECT_TRUE(os::ShowWindow(window, ShowCommand::Hide));
  EXPECT_FALSE(os::IsWindowVisible(child)) << "nor is its window";
  EXPECT_NE(os::WindowStyle(child) & os::kWsVisible, 0U);
}

// ---- Changing windows ----

TEST_F(DesktopContract, AWindowIsShownAsAskedAndRemembersHowItWas) {
  constexpr auto kVisible = os::kWsVisible, kMinimized = os::kWsMinimize, kMaximized = os::kWsMaximize;
  const auto window = world::OpenWindow();
  const auto before = os::WindowRect(window);
  for (const auto& [command, state] : {std::pair(ShowCommand::ShowMaximized, kVisible | kMaximized),
                                       {ShowCommand::Minimize, kVisible | kMinimized},
                                       {ShowCommand::Restore, kVisible | kMaximized},
                                       {ShowCommand::ShowNormal, kVisible},
                                       {ShowCommand::ShowMinimized, kVisible | kMinimized},
                                       {ShowCommand::Restore, kVisible},
                                       {ShowCommand::Hide, 0U},
                                       {ShowCommand::Show, kVisible}}) {
    SCOPED_TRACE(static_cast<int>(command));
    const bool wasVisible = os::IsWindowVisible(window);
    EXPECT_EQ(static_cast<bool>(os::ShowWindow(window, command)), wasVisible);
    EXPECT_EQ(os::WindowStyle(window) & (kVisible | kMinimized | kMaximized), state);
    EXPECT_EQ(os::IsWindowMinimized(window), state == (kVisible | kMinimized));
    if (state == kVisible) EXPECT_EQ(os::WindowRect(window), before);
    if (state == (kVisible | kMaximized)) EXPECT_TRUE(CoversPrimaryDisplay(window)) << "all of its panel";
  }
}

TEST_F(DesktopContract, AWindowGoesWhereItIsMovedAndLiesOnThatMonitor) {
  const auto window = world::OpenWindow();
  for (const auto& monitor : os::DesktopMonitors()) {
    const auto& at = monitor.monitor;
    EXPECT_TRUE(os::MoveWindow(window, at.left + 50, at.top + 60, 400, 300));
    EXPECT_EQ(os::WindowRect(window), (os::Rect{at.left + 50, at.top + 60, at.left + 450, at.top + 360}));
    EXPECT_EQ(os::MonitorOf(window), monitor.handle);
    EXPECT_TRUE(os::MoveWindow(window, at.left - 300, at.top + 60, 290, 300));
    EXPECT_EQ(os::MonitorOf(window), monitor.handle) << "the nearest";
  }
}

TEST_F(DesktopContract, APlacementHoldsTheNormalPlaceWhateverIsShown) {
  const auto window = world::OpenWindow();
  auto placement = os::GetPlacement(window);
  ASSERT_TRUE(placement && placement->showCmd == ShowCommand::ShowNormal);
  EXPECT_EQ(placement->rcNormalPosition, os::WindowRect(window));
  const os::Rect onB{300, 200, 900, 700}, onC{100, 1150, 700, 1500};
  for (const auto& [normal, shown] : {std::pair(onC, ShowCommand::ShowMaximized),
                                      {onB, ShowCommand::ShowMinimized},
                                      {onB, ShowCommand::ShowMaximized},
                                      {onC, ShowCommand::ShowNormal},
                                      {onC, ShowCommand::ShowMaximized}}) {
    placement->rcNormalPosition = normal;
    placement->showCmd = shown;
    EXPECT_TRUE(os::SetPlacement(window, *placement));
    const auto style = os::WindowStyle(window);
    EXPECT_EQ((style & os::kWsMaximize) != 0, shown == ShowCommand::ShowMaximized);
    EXPECT_EQ((style & os::kWsMinimize) != 0, shown == ShowCommand::ShowMinimized);
    const auto now = os::GetPlacement(window);
    EXPECT_TRUE(now && now->rcNormalPosition == normal && now->showCmd == shown);
    if (shown != ShowCommand::ShowMinimized) EXPECT_EQ(MiddleOf(window).y >= 1080, normal == onC);
    if (shown == ShowCommand::ShowNormal) EXPECT_EQ(os::WindowRect(window), normal);
  }
  EXPECT_TRUE(os::ShowWindow(window, ShowCommand::Restore));
  EXPECT_EQ(os::WindowRect(window), onC);
}

TEST_F(DesktopContract, TopmostAndExtendedStyleStay) {
  constexpr std::uint32_t kTopmost = 8;  // WS_EX_TOPMOST
  const auto window = world::OpenWindow();
  for (const bool topmost : {true, false}) {
    const auto area = os::WindowRect(window);
    EXPECT_TRUE(os::SetTopmost(window, topmost));
    EXPECT_EQ(os::WindowRect(window), area);
    EXPECT_EQ(os::WindowExtendedStyle(window) & kTopmost, topmost ? kTopmost : 0);
  }
  const auto wanted = os::WindowExtendedStyle(window) | os::kWsExNoActivate;
  os::SetWindowExtendedStyle(window, wanted);
  EXPECT_EQ(os::WindowExtendedStyle(window), wanted);
}

TEST_F(DesktopContract, AHungProgramGivesNoAnswerAndAWellOneCloses) {
  const auto window = world::OpenWindow();
  world::Run([window] {
    EXPECT_TRUE(os::AnswersWithin(window, 10'000));
    world::Hang();
    os::AskToShow(window, ShowCommand::Minimize);  // returns
    EXPECT_FALSE(os::AnswersWithin(window, 100) || os::AskToClose(window, 100));
    EXPECT_TRUE(os::IsWindow(window));
    world::Wake();
    os::AskToShow(window, ShowCommand::Hide);
    EXPECT_TRUE(os::AnswersWithin(window, 10'000) && !os::IsWindowVisible(window));
    EXPECT_TRUE(os::AskToClose(window, 10'000) && !os::IsWindow(window));
  });
}

}  // namespace
