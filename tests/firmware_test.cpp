// The requests to the firmware device, byte by byte, and what its replies mean.

#include "power/firmware.h"

#include <gtest/gtest.h>

#include "os/device_io.h"
#include "tests/support.h"

namespace {

using os::Bytes;
using sim::Firmware;
using tessaview::FirmwareId;
using Lines = std::vector<std::wstring>;
using Word = std::optional<std::uint32_t>;

constexpr auto kRefused = std::nullopt;

TEST(FirmwareRequests, GoOutByteByByte) {
  sim::Laptop laptop;
  {
    const tessaview::FirmwareSequence firmware;
    ASSERT_TRUE(firmware);
    EXPECT_EQ(laptop.firmware.OpenHandles(), 1U);
    EXPECT_TRUE(FirmwareDSTS(firmware, FirmwareId::FlipState));
    EXPECT_TRUE(FirmwareDEVS(firmware, FirmwareId::RefreshRate, 0x12345678));
  }
  EXPECT_TRUE(tessaview::ACPI_ZRV_DSTS(FirmwareId::PanelPower));
  EXPECT_TRUE(tessaview::ACPI_ZRV_DEVS(200));
  EXPECT_EQ(laptop.faults.Calls<&os::OpenDevice>(), 3U) << "one opening for each sequence";
  EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);

  const Bytes expected[] = {
      {'D', 'S', 'T', 'S', 4, 0, 0, 0, 0x62, 0x00, 0x06, 0x00},
      {'D', 'E', 'V', 'S', 8, 0, 0, 0, 0x34, 0x00, 0x05, 0x00, 0x78, 0x56, 0x34, 0x12},
      {'D', 'S', 'T', 'S', 4, 0, 0, 0, 0x31, 0x00, 0x05, 0x00},
      {'D', 'E', 'V', 'S', 8, 0, 0, 0, 0x32, 0x00, 0x05, 0x00, 200, 0, 0, 0},
  };
  ASSERT_EQ(laptop.firmware.Requests().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    SCOPED_TRACE(i);
    const auto& request = laptop.firmware.Requests()[i];
    EXPECT_EQ(request.raw, expected[i]);
    EXPECT_EQ(request.controlCode, 0x0022240CU);
    EXPECT_EQ(request.replySize, 1024U);
  }
}

TEST(FirmwareReplies, CountByTheirFirstFourBytesOnly) {
  struct Case {
    std::size_t replyBytes;
    std::uint32_t stored, read;
  };
  for (const auto& c : {Case{0, 0xFFFFFFFF, 0},
                        {1, 0xFFFFFFFF, 0},
                        {2, 0xFFFFFFFF, 0},
                        {3, 0xFFFFFFFF, 0},
                        {4, 0xFF018002, 0xFF018002},
                        {5, 0x80000001, 0x80000001},
                        {1024, 0x000100A0, 0x000100A0}}) {
    SCOPED_TRACE(c.replyBytes);
    sim::Laptop laptop;
    laptop.firmware.SetRegister(Firmware::kPower, c.stored);
    laptop.firmware.replyBytes = c.replyBytes;
    EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::PanelPower), Word(c.read));
    EXPECT_TRUE(tessaview::ACPI_ZRV_DEVS(100)) << "a short reply is a success all the same";
    EXPECT_EQ(laptop.firmware.Backlight(), 100U);
  }
}

TEST(FirmwareLog, NamesRequestAndResultUnderTheReadersTag) {
  sim::Laptop laptop;
  EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::PanelPower), Word(0x000100A0));
  EXPECT_EQ(tessaview::ACPI_ZRV_DEVS(0xC8), Word(1));
  EXPECT_EQ(laptop.trace.Lines(),
            (Lines{L"[ACPI_ZRV_DSTS] Arg = 0x50031", L"[ACPI_ZRV_DSTS] return = 0x100a0",
                   L"[ACPI_ZRV_DEVS] Arg0 = 0x50032, Arg1 = 0xc8", L"[ACPI_ZRV_DSTS] return = 0x1"}));
}

struct Trouble {
  const char* story;
  void (*make)(sim::Laptop& laptop);
};
constexpr Trouble kTroubles[] = {
    {"no driver", [](sim::Laptop& laptop) { laptop.firmware.driverInstalled = false; }},
    {"opening refused", [](sim::Laptop& laptop) { laptop.faults.Fail<&os::OpenDevice>(); }},
    {"requests refused", [](sim::Laptop& laptop) { laptop.faults.Fail<&os::Control>(); }},
};

TEST(FirmwareTrouble, IsNoResultAndNoResultLine) {
  for (const auto& trouble : kTroubles) {
    SCOPED_TRACE(trouble.story);
    sim::Laptop laptop;
    trouble.make(laptop);
    EXPECT_EQ(tessaview::ACPI_ZRV_DSTS(FirmwareId::FlipState), kRefused);
    EXPECT_EQ(tessaview::ACPI_ZRV_DEVS(58), kRefused);
    EXPECT_EQ(laptop.trace.Lines(),
              (Lines{L"[ACPI_ZRV_DSTS] Arg = 0x60062", L"[ACPI_ZRV_DEVS] Arg0 = 0x50032, Arg1 = 0x3a"}));
    EXPECT_EQ(laptop.firmware.Backlight(), 116U);
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  }
}

TEST(GenerationCheck, LooksAtOneBitOfTheStatus) {
  struct Case {
    std::uint32_t status;
    int generation;
    const wchar_t* line;
  };
  for (const auto& c : {Case{0x4, 0, L"[InitGenerationCheck] Generation is G1"},
                        {0xFFFFFFFF, 0, L"[InitGenerationCheck] Generation is G1"},
                        {0x0, 1, L"[InitGenerationCheck] Generation is G2"},
                        {0xFFFFFFFB, 1, L"[InitGenerationCheck] Generation is G2"}}) {
    SCOPED_TRACE(c.status);
    sim::Laptop laptop;
    laptop.firmware.SetRegister(Firmware::kGeneration, c.status);
    EXPECT_EQ(static_cast<int>(tessaview::InitGenerationCheck()), c.generation);
    EXPECT_EQ(laptop.trace.Lines(), Lines{c.line});
    ASSERT_EQ(laptop.firmware.Requests().size(), 1U);
    EXPECT_EQ(laptop.firmware.Requests()[0].raw, (Bytes{'D', 'S', 'T', 'S', 4, 0, 0, 0, 0x33, 0x00, 0x05, 0x00}));
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  }
}

TEST(GenerationCheck, TakesWhatItCannotReadForTheSecondAndSaysNothing) {
  for (const auto& trouble : kTroubles) {
    SCOPED_TRACE(trouble.story);
    sim::Laptop laptop({.generation = 1});
    trouble.make(laptop);
    EXPECT_EQ(static_cast<int>(tessaview::InitGenerationCheck()), 1);
    EXPECT_EQ(laptop.trace.Lines(), Lines{});
  }
  sim::Laptop laptop({.generation = 1});
  laptop.firmware.replyBytes = 3;
  EXPECT_EQ(static_cast<int>(tessaview::InitGenerationCheck()), 1) << "a short reply was read, as 0";
  EXPECT_EQ(laptop.trace.Lines(), Lines{L"[InitGenerationCheck] Generation is G2"});
}

}  // namespace
