#include "core/trace_log.h"

#include "core/trace_events.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

TEST(TraceEvents, AreLaidOutByteForByteAsConsumersReadThem) {
  EXPECT_EQ(ProviderTraits(), BytesOf("\x19\x00"
                                      "TessaviewServiceLogger\0"));
  EXPECT_EQ(TextEventMetadata("TessaviewService", "String (wide char)"), BytesOf("\x28\x00\x00"
                                                                                 "TessaviewService\0"
                                                                                 "String (wide char)\0"
                                                                                 "\x01"));
  EXPECT_EQ(EventText(L"a \n\u20AC"), BytesOf("a\0 \0\n\0\xAC\x20\0\0"));
}

TEST(TraceLog, TriesToRegisterOnceInEachProcess) {
  Laptop laptop;
  laptop.faults.Fail<&os::RegisterTraceProvider>({.times = 1});
  laptop.Boot();
  EXPECT_EQ(laptop.faults.Calls<&os::RegisterTraceProvider>(), 1u);
  EXPECT_EQ(laptop.faults.Calls<&os::WriteTraceEvent>(), 0u);
  laptop.Boot();
  EXPECT_EQ(laptop.trace.Registrations(), 1u);
  EXPECT_EQ(laptop.faults.Calls<&os::SetTraceProviderTraits>(), 1u);
  laptop.faults.Fail<&os::WriteTraceEvent>({.error = 234, .times = 1});
  EXPECT_EQ(WriteTraceLog(L"too much"), 234u) << "the status of the write";
  for (const auto* text : {L"100% \u4E2D\U0001F5B1", L""}) {
    EXPECT_EQ(WriteTraceLog(text), 0u);
    EXPECT_EQ(laptop.trace.Lines().back(), text);
  }
  EXPECT_EQ(WriteTraceLog(nullptr), 0u);
  EXPECT_TRUE(laptop.trace.Malformed().empty());
}

TEST(TraceLog, WritesOnlyToAListenerAtLevelVerbose) {
  constexpr int kVerbose = 5, kInformation = 4, kEverything = 0, kNobodyListens = -1;
  Laptop laptop;
  for (const int level : {kNobodyListens, kVerbose, kInformation, kEverything, kNobodyListens, kVerbose}) {
    laptop.trace.Listen(level != kNobodyListens, static_cast<std::uint8_t>(std::max(level, 0)));
    laptop.trace.Clear();
    const auto before = laptop.faults.Calls<&os::WriteTraceEvent>();
    Log(L"[SetFPS] SetFPS_Value = %d \n", 1);
    WriteTraceLog(L"plain");
    RecordUsage(L"USAGE");
    const bool written = level == kVerbose || level == kEverything;
    EXPECT_EQ(laptop.faults.Calls<&os::WriteTraceEvent>() - before, written ? 3u : 0u) << level;
    EXPECT_EQ(laptop.trace.Lines(), written ? (Texts{L"[SetFPS] SetFPS_Value = 1 \n", L"plain"}) : Texts{});
    EXPECT_EQ(laptop.trace.Usage(), written ? Texts{L"USAGE"} : Texts{});
  }
}

TEST(TraceLog, ThreadsThatRaceForTheFirstTextRegisterOnce) {
  for (std::uint32_t seed = 1; seed <= 8; ++seed) {
    Laptop laptop({.seed = seed, .interleaving = true});
    laptop.faults.Slow<&os::RegisterTraceProvider>(50);
    for (int thread = 0; thread < 4; ++thread) {
      os::StartThread(L"writer", [] { WriteTraceLog(L"first"); });
    }
    ASSERT_TRUE(laptop.Settle());
    EXPECT_EQ(laptop.trace.Registrations(), 1u);
    EXPECT_TRUE(laptop.trace.Malformed().empty());
  }
}

template <class... Args>
std::wstring Formatted(LogFormat<std::type_identity_t<Args>...> format, const Args&... args) {
  wchar_t text[kLogTextSize];
  FormatLogText(text, format, args...);
  return text;
}

TEST(LogTemplates, AreFilledInWithAllKindsOfValuesAndCutAt1023Characters) {
  enum class Id : std::uint32_t { Power = 0x00050031 };
  const std::wstring name = L"C:\\Users\\\u00C4 \u4E2D.exe";
  EXPECT_EQ(Formatted(L"%d|%d|%d", -1, true, std::uint8_t{255}), L"-1|1|255");
  EXPECT_EQ(Formatted(L"%d|%d", std::int32_t{-2147483647 - 1}, std::int64_t{5}), L"-2147483648|5");
  EXPECT_EQ(Formatted(L"0x%x 0x%X %08X %02x", Id::Power, 0xABCu, 0x1Fu, std::uint8_t{7}), L"0x50031 0xABC 0000001F 07");
  EXPECT_EQ(Formatted(L"%ls, %ls: %d%%", name, L"%d %ls %n", 7), name + L", %d %ls %n: 7%");
  for (const std::size_t length : {1023u, 1024u, 5000u}) {
    EXPECT_EQ(Formatted(L"%ls", std::wstring(length, L'x')), std::wstring(1023, L'x'));
  }
}

}  // namespace
