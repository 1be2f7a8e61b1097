// The laptop's applications and its mouse: what the tests of moving windows rely on.
#include "kit/app_window.h"
#include "kit/pointer.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Windows = LabTest;

TEST_F(Windows, ATitleBarDraggedDownTakesItsWindowToTheCPanel) {
  const AppWindow notes(L"Notes");
  EXPECT_EQ(notes.Panel(), Panel::B);
  const auto before = notes.Area();
  EXPECT_TRUE(Pointer::DragTitleBar(notes, {900, 1300}));
  EXPECT_EQ(notes.Panel(), Panel::C);
  const auto after = notes.Area();
  EXPECT_EQ(after.right - after.left, before.right - before.left);
  EXPECT_NEAR(notes.TitleBar().x, 900, 1);
  EXPECT_NEAR(notes.TitleBar().y, 1300, 1);
}

std::wstring gHeard;  // S and E for the start and the end of a move, L for any number of changes of place

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND, LONG object, LONG, DWORD, DWORD) {
  const wchar_t letter = event == EVENT_SYSTEM_MOVESIZESTART ? L'S' : event == EVENT_SYSTEM_MOVESIZEEND ? L'E' : L'L';
  const bool isKnown = letter != L'L' || event == EVENT_OBJECT_LOCATIONCHANGE;
  if (object == OBJID_WINDOW && isKnown && !gHeard.ends_with(letter)) gHeard += letter;
}

TEST_F(Windows, AllHearOfADragAsWindowsTellsIt) {
  const AppWindow notes(L"Notes");
  gHeard.clear();
  const auto hook = SetWinEventHook(EVENT_SYSTEM_MOVESIZESTART, EVENT_OBJECT_LOCATIONCHANGE, nullptr, Hear,
                                    notes.processId(), 0, WINEVENT_OUTOFCONTEXT);
  EXPECT_TRUE(Pointer::DragTitleBar(notes, {700, 500}));
  EXPECT_TRUE(Eventually([] {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    return gHeard.ends_with(L'E');
  }));
  UnhookWinEvent(hook);
  EXPECT_TRUE(gHeard == L"SLE" || gHeard == L"LSLE") << "an L may be from its opening";
}

TEST_F(Windows, AnApplicationIsWhatItWasAskedToBe) {
  AppWindow editor(AppOptions{.title = L"An editor",
                              .className = L"Chrome_WidgetWin_1",
                              .area = {100, 1100, 600, 1500},
                              .dialog = L"A question",
                              .maximizeBox = false,
                              .ignoresClose = true});
  EXPECT_EQ(editor.Panel(), Panel::C);
  EXPECT_EQ(editor.Area(), (os::Rect{100, 1100, 600, 1500}));
  EXPECT_EQ(FindWindowW(L"Chrome_WidgetWin_1", L"An editor"), editor.handle());
  EXPECT_EQ(GetWindow(editor.dialog(), GW_OWNER), editor.handle());
  EXPECT_EQ(GetWindowLongW(editor.handle(), GWL_STYLE) & WS_MAXIMIZEBOX, 0);
  EXPECT_TRUE(editor.BringToFront());
  editor.Show(SW_MAXIMIZE);
  EXPECT_EQ(editor.State(), ShowState::Maximized);
  SendMessageW(editor.handle(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(editor.IsRunning());
  editor.Hang();
  EXPECT_EQ(SendMessageTimeoutW(editor.handle(), WM_NULL, 0, 0, SMTO_NORMAL, 50, nullptr), 0);
  editor.Wake();
  EXPECT_NE(SendMessageTimeoutW(editor.handle(), WM_NULL, 0, 0, SMTO_NORMAL, 5000, nullptr), 0);
  ASSERT_TRUE(laptop.ui.Start());
  ASSERT_TRUE(StandInUi::Send(L"NOTACOMMAND", {.handle = 7, .point = {20, 30}, .rect = {0, -1, 800, 600}}));
  EXPECT_TRUE(laptop.uiTalk.WaitFor(L"sent NOTACOMMAND 7 [0, -1, 800, 600] (20, 30)"));
  editor.End();
  EXPECT_TRUE(Eventually([&] { return editor.State() == ShowState::Gone; }));
}

}  // namespace
