#include "appid/microsoft_apps.h"

#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

TEST(MicrosoftApps, AreToldByTheirNameWithExceptions) {
  LaptopInUse laptop;
  for (const auto* const name : {L"Microsoft Office", L"Not MICROSOFT", L"Microsoft.Windows.Photos_8wekyb3d8bbwe"})
    EXPECT_TRUE(CheckIsMicrosoftApp(name)) << testing::PrintToString(name);
  for (const auto* const name :
       {L"Microsoft.WindowsCalculator_8wekyb3d8bbwe", L"Microsoft.WindowsAlarms_x", L"Microsoft.BingWeather_x",
        L"Microsoft.ZuneVideo_x", L"Microsoft.WindowsSoundRecorder_x", L"Microsoft.MicrosoftSolitaireCollection_x",
        L"Micro Soft", L""})
    EXPECT_FALSE(CheckIsMicrosoftApp(name)) << testing::PrintToString(name);
}

class MicrosoftWindows : public testing::Test {
 protected:
  LaptopInUse laptop;
  const std::wstring program = L"C:\\Program Files\\WindowsApps\\App\\App.exe";

  os::WindowHandle OpenDesktopProgram(std::vector<std::wstring> productNames) {
    laptop.files.SetProductNames(program, std::move(productNames));
    return laptop.desktop.Open({.program = program});
  }
  void Package(const std::wstring& family) {
    laptop.processes.SetPackage(program, {L"App!Id", L"App_1", family, L"C:\\App"});
  }
};

TEST_F(MicrosoftWindows, OfDesktopProgramsAreToldByTheLastProductName) {
  EXPECT_FALSE(IsMSApp(OpenDesktopProgram({})));
  EXPECT_FALSE(IsMSApp(OpenDesktopProgram({L"Microsoft Office", L"Bureau"})));
  EXPECT_TRUE(IsMSApp(OpenDesktopProgram({L"Bureau", L"Microsoft Office"})));
  laptop.files.KeepFromUsers(program);
  EXPECT_FALSE(IsMSApp(laptop.desktop.Open({.program = program}))) << "read with the user's rights";
  EXPECT_FALSE(laptop.sessions.ActingAs().has_value());
}

TEST_F(MicrosoftWindows, OfPackagesAreToldByTheirFamily) {
  const auto frame = laptop.OpenFrame(L"App", kAnywhere);
  const auto bare = laptop.desktop.Open({.program = L"C:\\host.exe"});
  laptop.desktop.Open({.className = kCoreClass, .program = program, .parent = bare});
  laptop.files.SetProductNames(program, {L"Microsoft Windows"});
  for (const auto& [family, isMicrosofts] :
       {std::pair(L"Microsoft.WindowsCalculator_1", false), {L"Microsoft.WindowsCamera_1", true}, {L"Else_1", false}}) {
    Package(family);
    EXPECT_EQ(IsMSApp(frame), isMicrosofts);
    EXPECT_EQ(IsMSApp(bare), isMicrosofts) << "the window inside tells, whatever is around it";
  }
}

TEST_F(MicrosoftWindows, AreThoseThatCannotBeTold) {
  const auto elevated = OpenDesktopProgram({L"Bureau"});
  laptop.processes.Protect(laptop.desktop.Find(elevated)->processId);
  EXPECT_TRUE(IsMSApp(elevated));
  EXPECT_TRUE(IsMSApp(laptop.OpenFrame(L"Suspended", kAnywhere, false)));
}

TEST_F(MicrosoftWindows, AnApplicationMayBeInItsFrameALittleLater) {
  const auto frame = laptop.OpenFrame(L"App", kAnywhere, false);
  Package(L"Else_1");
  laptop.After(50, [&] { laptop.desktop.Open({.className = kCoreClass, .program = program, .parent = frame}); });
  EXPECT_FALSE(IsMSApp(frame));
}

}  // namespace
