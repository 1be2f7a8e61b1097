#include "tests/lab_test.h"

#include <filesystem>
#include <stdexcept>

#include "kit/desktop.h"
#include "kit/log.h"
#include "ui/ui_message.h"

namespace lab {
namespace {

// Neither is ever destroyed: the threads that hear the laptop's programs run until the process is over.

Log& TheLog() {
  static Log& log = *new Log;
  return log;
}

Laptop& TheLaptop() {
  static Laptop& laptop = *new Laptop{[](const auto& who, const auto& line) { TheLog().Write(who, line); }};
  return laptop;
}

/// The log of the test that runs; it gets the test's name when that fails.
std::wstring RunningLog() {
  return EnvironmentText(L"LAB_PICTURES") + L"/running.log";
}

/// Boots the laptop, once.
class Boot : public testing::Environment {
 public:
  void SetUp() override { ASSERT_TRUE(TheLaptop().Boot()); }
};

[[maybe_unused]] const auto* const boot = testing::AddGlobalTestEnvironment(new Boot);

std::wstring TestName() {
  const auto& test = *testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = std::string(test.test_suite_name()) + "." + test.name();
  return {name.begin(), name.end()};
}

}  // namespace

LabTest::LabTest() : laptop(TheLaptop()), state(*SharedLaptopState()) {}

void LabTest::SetUp() {
  ASSERT_TRUE(laptop.Renew());
  ASSERT_TRUE(OpenDesktop()) << "the UI is launched only over a desktop";
  ShowOnDesktop(TestName());
  TheLog().Begin(RunningLog());
}

void LabTest::TearDown() {
  StandInUi::Wake();
  if (HasFailure()) {
    laptop.trace.WaitUntilQuiet(std::chrono::milliseconds(30));
    (void)TakePicture(TestName());
  }
  laptop.controller.End();
  laptop.ui.End();
  TheLog().End();
  const std::filesystem::path log = L"Z:" + RunningLog();
  std::error_code ignored;
  if (HasFailure()) std::filesystem::rename(log, log.parent_path() / (TestName() + L".log"), ignored);
  std::filesystem::remove(log, ignored);
}

void LabTest::StartController() {
  const bool isUp = laptop.ui.Start() && laptop.controller.Start() && laptop.WaitForController();
  if (!isUp) throw std::runtime_error("start-up did not end");
}

bool LabTest::UiIsTold(const std::wstring& line, std::size_t mark) const {
  return laptop.uiTalk.WaitFor(L"received " + line, mark);
}

bool SendCommand(const std::wstring& text, std::uint64_t number, std::int32_t x, std::int32_t y) {
  return SendCommand(text, UiValues{.handle = number, .point = {x, y}});
}

bool SendCommand(const std::wstring& text, const UiValues& values) {
  return SendUiMessage(Controller::Window(), kUiMessageKind, MakeUiMessage(text.c_str(), values));
}

bool SendRecord(std::uint64_t kind, const std::vector<std::uint8_t>& record) {
  COPYDATASTRUCT data{0, static_cast<DWORD>(record.size()), const_cast<std::uint8_t*>(record.data())};
  return Deliver(Controller::Window(), WM_COPYDATA, static_cast<WPARAM>(kind), reinterpret_cast<LPARAM>(&data));
}

}  // namespace lab
