#include "day/telling.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cwctype>
#include <mutex>
#include <regex>
#include <string_view>
#include <vector>

#include "kit/desktop.h"
#include "kit/machine.h"

namespace lab {
namespace {

/// How the controller's lines begin that tell something.
constexpr wchar_t kTelling[] =
    L" ?[*]{7} (Start|NorvTessaview|Launch|isTessaviewPowerOn)|-{5,} (F6|TESSAVIEW_POWER)"
    L"|\\[(PackageWatch|DesktopSwitch|Resume|CheckCPanel_Position_Orientation|SendLidCloseActionSetting)\\]"
    L"|\\[(DisplayChange|InitGenerationCheck|Power Saving|SetFPS|Timestamp\\] Extend|Update_UI_Status\\] Send)"
    L"|\\[TessaviewPowerControl\\] (Tessaview Power|Tessaview Backlight|Set ini|Set Cursor)"
    L"|\\[Window Mover\\] (EVENT|Hover|Trigger|Move)|\\[Window Mover On C Panel\\] Hover"
    L"| (No Found|Found) Package| (PackageCheck|CreateProcessWithUserLevel) Fail| Launch UWP|AppActivationMgr"
    L"| Create ini file success|Read ini file|Enable Device|Find TouchPad|Get Rawinput hDevice|Touchpad status"
    L"|WM_DISPLAYCHANGE|Win \\+ P|The computer is powered|Battery saver is|BPanelDisplayFrequency"
    L"|(Success|Failed)!! Set|Receivedata|UI set BacklightValue|Send to ";

bool IsTelling(const std::wstring& who, const std::wstring& line) {
  static const std::wregex telling(kTelling);
  if (who == L"firmware") return line.starts_with(L"DEVS");
  return who != L"controller" || std::regex_search(line, telling, std::regex_constants::match_continuous);
}

std::string Utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

void Print(const std::wstring& line) {
  static std::mutex one;
  {
    const std::lock_guard lock(one);
    std::printf("%s\n", Utf8(line).c_str());
    std::fflush(stdout);
  }
  ShowOnDesktop(line);
}

void PrintWhat(std::wstring who, std::wstring what) {
  constexpr std::size_t kNameWidth = 12;
  who.resize(std::max(who.size(), kNameWidth), L' ');
  while (!what.empty() && iswspace(what.back())) what.pop_back();
  Print(L"  " + who + what);
}

/// Hears from GoogleTest what held and what did not.
class Narrator : public testing::EmptyTestEventListener {
 public:
  explicit Narrator(Laptop& laptop) : laptop_(laptop) {}

  void AddPicture(const std::wstring& path) { pictures_.push_back(path); }

 private:
  // What fails in its morning is the end of the day: there is no controller to go on with.
  void OnTestSuiteStart(const testing::TestSuite& suite) override {
    GTEST_FLAG_SET(fail_fast, suite.name() == std::string_view("Morning"));
  }

  void OnTestPartResult(const testing::TestPartResult& result) override {
    laptop_.ReadDevices();
    laptop_.trace.WaitUntilQuiet(std::chrono::milliseconds(10));  // the lines come by a pipe
    ++checks_;
    if (result.failed()) ++failures_;
    // GoogleTest's own word comes first, on a line of its own.
    std::string_view what = result.message();
    for (const std::string_view word : {"Succeeded\n", "Failed\n"}) {
      if (what.starts_with(word)) what.remove_prefix(word.size());
    }
    PrintWhat(result.failed() ? L"NOT SO" : L"ok", {what.begin(), what.end()});
  }

  void OnTestProgramEnd(const testing::UnitTest& day) override {
    const bool isWell = day.Passed();
    Chapter(isWell ? L"The day is over: all is well." : L"The day is over: something went wrong.");
    PrintWhat(L"counted", std::to_wstring(checks_ - failures_) + L" of " + std::to_wstring(checks_) +
                              L" things were as they should be; " + std::to_wstring(laptop_.trace.Mark()) +
                              L" trace lines, " + std::to_wstring(laptop_.requests.Mark()) + L" firmware requests, " +
                              std::to_wstring(laptop_.reports.Mark()) + L" mode reports");
    for (const auto& picture : pictures_) PrintWhat(L"picture", picture);
  }

  Laptop& laptop_;
  std::size_t checks_ = 0, failures_ = 0;
  std::vector<std::wstring> pictures_;
};

Narrator* gNarrator = nullptr;

}  // namespace

void TellTheDay(Laptop& laptop) {
  gNarrator = new Narrator(laptop);  // GoogleTest deletes it
  auto& listeners = testing::UnitTest::GetInstance()->listeners();
  delete listeners.Release(listeners.default_result_printer());
  listeners.Append(gNarrator);
  TheLog().Begin(EnvironmentText(L"LAB_LOG"));
}

bool IsTold() {
  return gNarrator != nullptr;
}

Log& TheLog() {
  static Log& log = *new Log;  // the threads that write to it run until the process is over
  return log;
}

void Chapter(const std::wstring& title) {
  if (!IsTold()) return;
  Print({});
  Print(title);
}

void Tell(const std::wstring& who, const std::wstring& what) {
  TheLog().Write(who, what);
  if (IsTold() && IsTelling(who, what)) PrintWhat(who, what);
}

void Note(const std::wstring& what) {
  Tell(L"note", what);
}

bool Check(bool holds, const std::wstring& what, std::source_location where) {
  if (holds) {
    SUCCEED() << what;
  } else {
    ADD_FAILURE_AT(where.file_name(), static_cast<int>(where.line())) << what;
  }
  return holds;
}

void Picture(const std::wstring& name) {
  if (!IsTold()) return;
  const auto path = TakePicture(name);
  if (Check(!path.empty(), L"picture of both panels: " + name)) gNarrator->AddPicture(path);
}

}  // namespace lab
