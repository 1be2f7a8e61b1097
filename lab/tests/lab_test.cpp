#include "tests/lab_test.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "kit/desktop.h"
#include "ui/ui_message.h"

namespace lab {
namespace {

/// Boots the laptop before the first test, and ends what the last one left running.
class Boot : public testing::Environment {
 public:
  void SetUp() override {
    Chapter(L"The laptop boots");
    const bool answers = TheLaptop().Boot();
    Check(answers, L"firmware driver, touch controller and activation answer");
    ASSERT_TRUE(answers) << "there is no laptop to go on with";
    Check(OpenDesktop(), L"a user's desktop is in the foreground");
    Check(IsCPanelInPlace(), L"two panels: B 1920x1080, C 1920x515 below it");
    Check(Setting("Tessaview").empty(), L"no settings file yet");
  }

  void TearDown() override {
    TheLaptop().controller.End();
    TheLaptop().ui.End();
  }
};

[[maybe_unused]] const auto* const boot = testing::AddGlobalTestEnvironment(new Boot);

/// The log of the test that runs; it gets the test's name when that fails.
std::wstring RunningLog() {
  return EnvironmentText(L"LAB_PICTURES") + L"/running.log";
}

std::wstring TestName() {
  const auto& test = *testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = std::string(test.test_suite_name()) + "." + test.name();
  return {name.begin(), name.end()};
}

}  // namespace

Laptop& TheLaptop() {
  static Laptop& laptop = *new Laptop(Tell);  // its threads run until the process is over
  return laptop;
}

LabTest::LabTest() : laptop(TheLaptop()), state(*SharedLaptopState()) {
  if (!IsTold()) TheLog().Begin(RunningLog());
}

LabTest::~LabTest() {
  if (IsTold()) return;
  TheLog().End();
  const std::filesystem::path log = L"Z:" + RunningLog();
  std::error_code ignored;
  if (HasFailure()) std::filesystem::rename(log, log.parent_path() / (TestName() + L".log"), ignored);
  std::filesystem::remove(log, ignored);
}

void LabTest::SetUp() {
  ASSERT_TRUE(laptop.Renew());
  ASSERT_TRUE(OpenDesktop()) << "the UI is launched only over a desktop";
  if (!IsTold()) ShowOnDesktop(TestName());
}

void LabTest::TearDown() {
  StandInUi::Wake();
  if (HasFailure()) {
    laptop.trace.WaitUntilQuiet(std::chrono::milliseconds(30));
    (void)TakePicture(TestName());
  }
  laptop.controller.End();
  laptop.ui.End();
}

void LabTest::StartController() {
  const bool isUp = laptop.ui.Start() && laptop.controller.Start() && laptop.WaitForController();
  if (!isUp) throw std::runtime_error("start-up did not end");
}

void LabTest::Happens(const std::wstring& what) {
  laptop.ReadDevices();
  since_ = {laptop.trace.Mark(),    laptop.usage.Mark(),   laptop.uiTalk.Mark(),
            laptop.requests.Mark(), laptop.reports.Mark(), laptop.patched.Mark()};
  Tell(L"laptop", what);
}

std::vector<std::wstring> LabTest::UiWords(const std::wstring& last, int times) const {
  std::vector<std::wstring> words;
  (void)Eventually([&] {
    words.clear();
    for (const auto& line : UiTalk()) {
      std::wstringstream parts(line);
      std::wstring direction, word;
      if (parts >> direction >> word && direction == L"received") words.push_back(word);
    }
    return std::count(words.begin(), words.end(), last) == times;
  });
  return words;
}

std::vector<std::wstring> LabTest::Demands() {
  EXPECT_TRUE(laptop.WaitForController());
  auto lines = laptop.requests.Since(since_.requests);
  std::erase_if(lines, [](const std::wstring& line) { return !line.starts_with(L"DEVS"); });
  return lines;
}

void Morning::TearDown() {
  if (HasFailure()) LabTest::TearDown();
}

void Day::SetUp() {
  if (!laptop.controller.IsRunning()) {
    LabTest::SetUp();
    StartController();
    Controller::PostTouchPadStatus(true);
  }
  ASSERT_TRUE(laptop.WaitForController());
}

std::wstring Day::ToLevelOnMains() {
  const auto level = Setting("Backlight");
  return L"DEVS 0x00050032 = " + std::wstring(level.begin(), level.end());
}

bool IsStored(const std::string& key, const std::string& value) {
  return Eventually([&] { return Setting(key) == value; });
}

bool IsCPanelInPlace() {
  return Monitors() == std::vector<std::wstring>{L"1920x1080 at (0,0)", L"1920x515 at (0,1080)"};
}

bool SendCommand(const std::wstring& text, const UiValues& values) {
  return SendUiMessage(Controller::Window(), kUiMessageKind, MakeUiMessage(text.c_str(), values));
}

}  // namespace lab
