#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "day/telling.h"
#include "kit/laptop.h"
#include "kit/laptop_state.h"
#include "kit/machine.h"
#include "ui/ui_message.h"

namespace lab {

/// The laptop that is booted once, for all tests.
[[nodiscard]] Laptop& TheLaptop();

/// A test on the laptop. Each begins with nothing running, no settings file and factory registers; what it leaves
/// running is ended. What happened during a test that failed, and how the panels looked at its end, is kept in the
/// folder that the environment variable LAB_PICTURES names as a Linux path.
class LabTest : public testing::Test {
 protected:
  LabTest();
  ~LabTest() override;

  void SetUp() override;
  void TearDown() override;

  /// Starts the UI and the controller, which then need not launch it, and waits until start-up is over and messages are
  /// served. Throws when they are not.
  void StartController();

  /// Something happens to the laptop. What is asked for below is looked for from here on, or from the test's beginning.
  void Happens(const std::wstring& what);

  // Each waits until its line has come; false when it has not in time.
  [[nodiscard]] bool Traced(const std::wstring& text) const { return laptop.trace.WaitFor(text, since_.trace); }
  [[nodiscard]] bool Used(const std::wstring& event) const { return laptop.usage.WaitFor(event, since_.usage); }
  [[nodiscard]] bool Asked(const std::wstring& request) const {
    return laptop.requests.WaitFor(request, since_.requests);
  }
  [[nodiscard]] bool PadGot(const std::wstring& report) const { return laptop.reports.WaitFor(report, since_.reports); }
  [[nodiscard]] bool Patched(const std::wstring& call) const { return laptop.patched.WaitFor(call, since_.patched); }
  [[nodiscard]] bool UiIsTold(const std::wstring& text) const {
    return laptop.uiTalk.WaitFor(L"received " + text, since_.uiTalk);
  }
  [[nodiscard]] bool UiIsLaunched() const { return laptop.uiTalk.WaitFor(L"activated *", since_.uiTalk); }

  /// What the UI was told, said itself, and was launched with, so far.
  [[nodiscard]] std::vector<std::wstring> UiTalk() const { return laptop.uiTalk.Since(since_.uiTalk); }

  /// The first words of what the UI was told, once `last` has come so often; what there is when it does not.
  [[nodiscard]] std::vector<std::wstring> UiWords(const std::wstring& last, int times) const;

  /// What the firmware was told, readings left out, until all that was posted to the controller is served.
  [[nodiscard]] std::vector<std::wstring> Demands();

  Laptop& laptop;
  LaptopState& state;

 private:
  struct Marks {
    std::size_t trace, usage, uiTalk, requests, reports, patched;
  };
  Marks since_{};
};

/// How the day begins. The controller that it started goes on.
class Morning : public LabTest {
 protected:
  void TearDown() override;
};

/// A chapter of the day: it goes on where the one before ended, with the same controller and UI; on a clean laptop when
/// that left none. It expects, and leaves, the laptop on mains, unfolded, extended, with touch pad and C panel on.
class Day : public Morning {
 protected:
  void SetUp() override;

  /// What the firmware is told when the panel comes to the level that is stored for mains.
  [[nodiscard]] static std::wstring ToLevelOnMains();
};

/// Whether a key of the settings file comes to hold this value.
[[nodiscard]] bool IsStored(const std::string& key, const std::string& value);

/// Whether the C panel is below the B panel, where it belongs, and upright.
[[nodiscard]] bool IsCPanelInPlace();

/// A command to the controller from a window of no UI, answered or not; true when the controller took it in time.
bool SendCommand(const std::wstring& text, const UiValues& values = {});

}  // namespace lab
