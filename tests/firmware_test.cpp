// The requests to the firmware device, byte by byte, and what its replies mean.

#include "power/firmware.h"

#include "os/device_io.h"
#include "tests/support.h"

namespace {

using namespace support;
using tessaview::FirmwareId;
using Word = std::optional<std::uint32_t>;

TEST(FirmwareRequests, GoOutByteByByte) {
  sim::Laptop laptop;
  {
    const tessaview::FirmwareSequence firmware;
    EXPECT_TRUE(FirmwareDSTS(firmware, FirmwareId::FlipState));
    EXPECT_TRUE(FirmwareDEVS(firmware, FirmwareId::RefreshRate, 0x12345678));
  }
  EXPECT_EQ(laptop.faults.Calls<&os::OpenDevice>(), 1U) << "one opening for each sequence";
  EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::PanelPower), Word(0x000100A0));
  EXPECT_EQ(tessaview::ACPI_ZRV_DEVS(200), Word(1));
  EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);

  const Bytes expected[] = {
      {'D', 'S', 'T', 'S', 4, 0, 0, 0, 0x62, 0x00, 0x06, 0x00},
      {'D', 'E', 'V', 'S', 8, 0, 0, 0, 0x34, 0x00, 0x05, 0x00, 0x78, 0x56, 0x34, 0x12},
      {'D', 'S', 'T', 'S', 4, 0, 0, 0, 0x31, 0x00, 0x05, 0x00},
      {'D', 'E', 'V', 'S', 8, 0, 0, 0, 0x32, 0x00, 0x05, 0x00, 200, 0, 0, 0},
  };
  ASSERT_EQ(laptop.firmware.Requests().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    const auto& request = laptop.firmware.Requests()[i];
    EXPECT_EQ(request.raw, expected[i]);
    EXPECT_EQ(request.controlCode, 0x0022240CU);
    EXPECT_EQ(request.replySize, 1024U);
  }
  EXPECT_TRUE(LogsInOrder(laptop, {L"[ACPI_ZRV_DSTS] Arg = 0x50031", L"[ACPI_ZRV_DSTS] return = 0x100a0",
                                   L"[ACPI_ZRV_DEVS] Arg0 = 0x50032, Arg1 = 0xc8", L"[ACPI_ZRV_DSTS] return = 0x1"}));
}

TEST(FirmwareReplies, CountByTheirFirstFourBytesOnly) {
  for (const auto& [replyBytes, read] : {std::pair{0, 0U}, {3, 0U}, {4, 0xFF018002U}, {1024, 0xFF018002U}}) {
    SCOPED_TRACE(replyBytes);
    sim::Laptop laptop;
    laptop.firmware.SetRegister(Firmware::kPower, 0xFF018002);
    laptop.firmware.replyBytes = static_cast<std::size_t>(replyBytes);
    EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::PanelPower), Word(read));
    EXPECT_TRUE(tessaview::ACPI_ZRV_DEVS(100)) << "a short reply is a success all the same";
    EXPECT_EQ(laptop.firmware.Backlight(), 100U);
  }
}

TEST(FirmwareTrouble, IsNoResultAndTakesTheMachineForTheSecondGeneration) {
  for (const auto trouble : {+[](sim::Laptop& laptop) { laptop.firmware.driverInstalled = false; },
                             +[](sim::Laptop& laptop) { laptop.faults.Fail<&os::OpenDevice>(); },
                             +[](sim::Laptop& laptop) { laptop.faults.Fail<&os::Control>(); }}) {
    sim::Laptop laptop({.generation = 1});
    trouble(laptop);
    EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::FlipState), Word());
    EXPECT_EQ(tessaview::ACPI_ZRV_DEVS(58), Word());
    EXPECT_EQ(static_cast<int>(tessaview::InitGenerationCheck()), 1);
    EXPECT_EQ(laptop.trace.Lines(),
              (Texts{L"[ACPI_ZRV_DSTS] Arg = 0x60062", L"[ACPI_ZRV_DEVS] Arg0 = 0x50032, Arg1 = 0x3a"}));
    EXPECT_EQ(laptop.firmware.Backlight(), 116U);
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  }
}

TEST(GenerationCheck, LooksAtOneBitOfTheStatus) {
  for (const auto& [status, generation] : {std::pair{0x4U, 0}, {0xFFFFFFFFU, 0}, {0x0U, 1}, {0xFFFFFFFBU, 1}}) {
    sim::Laptop laptop;
    laptop.firmware.SetRegister(Firmware::kGeneration, status);
    EXPECT_EQ(static_cast<int>(tessaview::InitGenerationCheck()), generation);
    EXPECT_EQ(laptop.trace.Lines(), Texts{generation == 0 ? L"[InitGenerationCheck] Generation is G1"
                                                          : L"[InitGenerationCheck] Generation is G2"});
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  }
}

}  // namespace
