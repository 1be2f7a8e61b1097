#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "kit/laptop.h"
#include "kit/laptop_state.h"
#include "kit/machine.h"
#include "ui/ui_message.h"

namespace lab {

/// A test on the laptop that was booted for all of them. Each begins with nothing running, no settings file and factory
/// registers; what it leaves running is ended. What happened during a test that failed, and how the panels looked at
/// its end, is kept in the folder that the environment variable LAB_PICTURES names as a Linux path.
class LabTest : public testing::Test {
 protected:
  LabTest();

  void SetUp() override;
  void TearDown() override;

  /// Starts the UI and the controller, which then need not launch it, and waits until start-up is over and messages are
  /// served. Throws when they are not.
  void StartController();

  /// Waits until the main window was told `line`, as its journal has it: "BLSET 45", or "touch 01 00 05*" for how it
  /// begins. What came before `mark` does not count. False when it was not in time.
  [[nodiscard]] bool UiIsTold(const std::wstring& line, std::size_t mark = 0) const;

  Laptop& laptop;
  LaptopState& state;
};

/// A command to the controller from a window of no UI, answered or not; true when the controller took it in time.
bool SendCommand(const std::wstring& text, std::uint64_t number = 0, std::int32_t x = 0, std::int32_t y = 0);

/// The same with a window, a point and a rectangle.
bool SendCommand(const std::wstring& text, const UiValues& values);

/// Any record at all.
bool SendRecord(std::uint64_t kind, const std::vector<std::uint8_t>& record);

}  // namespace lab
