#include "appid/microsoft_apps.h"

#include "tests/two_panels.h"

namespace {

using namespace tessaview;
using namespace support;

TEST(MicrosoftApps, AreToldByTheirNameWithExceptions) {
  for (const auto& [name, isMicrosofts, log] :
       {std::tuple(L"Microsoft Office", true, L"Is MicroSoft App"),
        {L"Not MICROSOFT", true, L"Is MicroSoft App"},
        {L"Microsoft.Windows.Photos_8wekyb3d8bbwe", true, L"Is MicroSoft App"},
        {L"Microsoft.WindowsCalculator_8wekyb3d8bbwe", false, L"Is MicroSoft White List App"},
        {L"Microsoft.WindowsAlarms_x", false, L"Is MicroSoft White List App"},
        {L"Microsoft.BingWeather_x", false, L"Is MicroSoft White List App"},
        {L"Microsoft.ZuneVideo_x", false, L"Is MicroSoft White List App"},
        {L"Microsoft.WindowsSoundRecorder_x", false, L"Is MicroSoft White List App"},
        {L"Microsoft.MicrosoftSolitaireCollection_x", false, L"Is MicroSoft White List App"},
        {L"Micro Soft", false, L"Is Not MicroSoft App"},
        {L"", false, L"Is Not MicroSoft App"}}) {
    TwoPanels laptop;
    SCOPED_TRACE(testing::PrintToString(name));
    EXPECT_EQ(CheckIsMicrosoftApp(name), isMicrosofts);
    EXPECT_TRUE(laptop.trace.Contains(L"[CheckIsMicrosoftApp] " + std::wstring(log) + L" = " + name + L" \n"));
  }
}

class MicrosoftWindows : public testing::Test {
 protected:
  TwoPanels laptop;
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
  for (const auto& [names, isMicrosofts] : {std::pair(Texts{}, false),
                                            {{L"Microsoft Office"}, true},
                                            {{L"Microsoft Office", L"Bureau"}, false},
                                            {{L"Bureau", L"Microsoft Office"}, true}}) {
    EXPECT_EQ(IsMSApp(OpenDesktopProgram(names)), isMicrosofts);
  }
  EXPECT_TRUE(laptop.trace.Contains(L"[IsMSApp] is Microsoft App, then return pin fail"));
}

TEST_F(MicrosoftWindows, OfPackagesAreToldByTheirFamily) {
  const auto frame = laptop.OpenFrame(L"App", {0, 0, 500, 500});
  const auto bare = laptop.desktop.Open({.program = L"C:\\host.exe"});
  laptop.desktop.Open({.className = kCoreClass, .program = program, .parent = bare});
  laptop.files.SetProductNames(program, {L"Microsoft Windows"});
  for (const auto& [family, isMicrosofts] :
       {std::pair(L"Microsoft.WindowsCalculator_1", false), {L"Microsoft.WindowsCamera_1", true}, {L"Else_1", false}}) {
    Package(family);
    EXPECT_EQ(IsMSApp(frame), isMicrosofts);
    EXPECT_EQ(IsMSApp(bare), isMicrosofts) << "the window inside tells, whatever is around it";
    EXPECT_TRUE(laptop.trace.Contains(L"PackageFamilyName = " + std::wstring(family)));
  }
}

TEST_F(MicrosoftWindows, AreThoseThatCannotBeTold) {
  const auto elevated = OpenDesktopProgram({L"Bureau"});
  laptop.processes.Protect(laptop.desktop.Find(elevated)->processId);
  EXPECT_TRUE(IsMSApp(elevated));
  EXPECT_TRUE(laptop.trace.Contains(L"[IsMSApp] Admin Win32 can not pin"));
  const auto start = laptop.NowMs();
  EXPECT_TRUE(IsMSApp(laptop.OpenFrame(L"Suspended", {0, 0, 500, 500}, false)));
  EXPECT_TRUE(laptop.trace.Contains(L"[IsMSApp] UWP always found ApplicationFrameWindow"));
  EXPECT_LE(laptop.NowMs() - start, 100U);
}

TEST_F(MicrosoftWindows, AnApplicationMayBeInItsFrameALittleLater) {
  const auto frame = laptop.OpenFrame(L"App", {0, 0, 500, 500}, false);
  Package(L"Else_1");
  laptop.After(50, [&] { laptop.desktop.Open({.className = kCoreClass, .program = program, .parent = frame}); });
  EXPECT_FALSE(IsMSApp(frame));
}

}  // namespace
