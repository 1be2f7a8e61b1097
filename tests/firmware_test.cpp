// The requests to the firmware device, byte by byte, and what its replies mean.

#include "power/firmware.h"

#include "tests/support.h"

namespace {

using namespace support;
using tessaview::FirmwareId;
using Word = std::optional<std::uint32_t>;

TEST(FirmwareRequests, GoOutByteByByte) {
  Laptop laptop;
  {
    const tessaview::FirmwareSequence firmware;
    EXPECT_TRUE(FirmwareDSTS(firmware, FirmwareId::FlipState));
    EXPECT_TRUE(FirmwareDEVS(firmware, FirmwareId::RefreshRate, 0x12345678));
  }
  EXPECT_EQ(laptop.faults.Calls<&os::OpenDevice>(), 1U) << "one opening for each sequence";
  EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  const auto& requests = laptop.firmware.Requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0].raw, BytesOf("DSTS\4\0\0\0\x62\0\6\0"));
  EXPECT_EQ(requests[1].raw, BytesOf("DEVS\x8\0\0\0\x34\0\5\0\x78\x56\x34\x12"));
  EXPECT_EQ(requests[1].controlCode, 0x0022240CU);
  EXPECT_EQ(requests[1].replySize, 1024U);
}

TEST(FirmwareReplies, CountByTheirFirstFourBytesOnly) {
  for (const auto& [replyBytes, read] : {std::pair{0, 0U}, {3, 0U}, {4, 0xFF018002U}, {1024, 0xFF018002U}}) {
    Laptop laptop;
    laptop.firmware.SetRegister(Firmware::kPower, 0xFF018002);
    laptop.firmware.replyBytes = static_cast<std::size_t>(replyBytes);
    EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::PanelPower), Word(read));
    EXPECT_TRUE(tessaview::ACPI_ZRV_DEVS(100)) << "a short reply is a success all the same";
  }
}

TEST(FirmwareTrouble, IsNoResultAndTakesTheMachineForTheSecondGeneration) {
  for (const auto trouble : {+[](Laptop& laptop) { laptop.firmware.driverInstalled = false; },
                             +[](Laptop& laptop) { laptop.faults.Fail<&os::Control>(); }}) {
    Laptop laptop({.generation = 1});
    trouble(laptop);
    EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::FlipState), Word());
    EXPECT_EQ(tessaview::ACPI_ZRV_DEVS(58), Word());
    EXPECT_EQ(tessaview::InitGenerationCheck(), tessaview::Generation::G2);
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  }
}

TEST(GenerationCheck, LooksAtOneBitOfTheStatus) {
  using enum tessaview::Generation;
  Laptop laptop;
  for (const auto& [status, generation] : {std::pair{0x4U, G1}, {0xFFFFFFFFU, G1}, {0x0U, G2}, {0xFFFFFFFBU, G2}}) {
    laptop.firmware.SetRegister(Firmware::kGeneration, status);
    EXPECT_EQ(tessaview::InitGenerationCheck(), generation);
  }
}

}  // namespace
