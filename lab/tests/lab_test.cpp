#include "tests/lab_test.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <mutex>
#include <stdexcept>

#include "kit/desktop.h"
#include "ui/ui_message.h"

namespace lab {
namespace {

/// What happened in the test that runs, kept when it fails.
class TestLog {
 public:
  void Begin() {
    const std::lock_guard lock(mutex_);
    lines_.clear();
  }

  void Add(const std::wstring& who, const std::wstring& line) {
    const std::lock_guard lock(mutex_);
    lines_.push_back(who + std::wstring(who.size() < kNameWidth ? kNameWidth - who.size() : 1, L' ') + line);
  }

  void Keep(const std::wstring& linuxPath) {
    std::FILE* const file = _wfopen((L"Z:" + linuxPath).c_str(), L"w, ccs=UTF-8");
    if (file == nullptr) return;
    const std::lock_guard lock(mutex_);
    for (const auto& line : lines_) std::fwprintf(file, L"%ls%ls", line.c_str(), line.ends_with(L'\n') ? L"" : L"\n");
    std::fclose(file);
  }

 private:
  static constexpr std::size_t kNameWidth = 12;

  std::mutex mutex_;
  std::vector<std::wstring> lines_;
};

// Neither is ever destroyed: the threads that hear the laptop's programs run until the process is over.

TestLog& Log() {
  static TestLog& log = *new TestLog;
  return log;
}

Laptop& TheLaptop() {
  static Laptop& laptop = *new Laptop{[](const auto& who, const auto& line) { Log().Add(who, line); }};
  return laptop;
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
  Log().Begin();
}

void LabTest::TearDown() {
  StandInUi::Wake();
  if (HasFailure()) {
    const std::wstring name = TestName();
    laptop.trace.WaitUntilQuiet(std::chrono::milliseconds(30));
    (void)TakePicture(name);
    Log().Keep(EnvironmentText(L"LAB_PICTURES") + L"/" + name + L".log");
  }
  laptop.controller.End();
  laptop.ui.End();
}

void LabTest::StartController() {
  const bool isUp = laptop.ui.Start() && laptop.controller.Start() && laptop.WaitForController();
  if (!isUp) throw std::runtime_error("start-up did not end");
}

void LabTest::PressF6ForOff() {
  constexpr LPARAM kOff = 2;
  Controller::PostHotKey(HotKey::F6Pressed);
  Controller::PostHotKey(HotKey::F6Ended, kOff);
}

bool LabTest::UiIsTold(const std::wstring& line, std::size_t mark) const {
  return laptop.uiTalk.WaitFor(L"received " + line, mark);
}

bool SendCommand(const std::wstring& text, std::uint64_t number, std::int32_t x, std::int32_t y) {
  UiMessage message{};
  wcsncpy(message.text, text.c_str(), std::size(message.text) - 1);
  message.handle = number;
  message.point[0] = x;
  message.point[1] = y;
  return SendUiMessage(Controller::Window(), kUiMessageKind, message);
}

bool SendRecord(std::uint64_t kind, const std::vector<std::uint8_t>& record) {
  COPYDATASTRUCT data{0, static_cast<DWORD>(record.size()), const_cast<std::uint8_t*>(record.data())};
  return Deliver(Controller::Window(), WM_COPYDATA, static_cast<WPARAM>(kind), reinterpret_cast<LPARAM>(&data));
}

}  // namespace lab
