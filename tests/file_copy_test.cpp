#include "os/files.h"
#include "os/processes.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr const wchar_t *kInput = L"C:\\Users\\Ada\\Pictures\\sea.jpg", *kOutput = L"C:\\ProgramData\\NORV\\sea.jpg";

/// A laptop with a picture to copy and an older one in its place.
class FileCopy : public testing::Test {
 protected:
  FileCopy() {
    laptop.files.AddTextFile(kInput, L"the sea");
    laptop.files.AddTextFile(kOutput, L"an older sea");
    ForgetTheStory(laptop);
  }

  void Copy(const std::wstring& command = L"COPYWALLPAPER") { laptop.ui.SendFileCopy(command, kInput, kOutput); }
  [[nodiscard]] std::wstring Output() { return laptop.files.Text(kOutput).value_or(L"(missing)"); }

  /// Whom the controller's main thread acts as, seen in a copy that it makes for itself.
  void ExpectOwnRights() {
    laptop.faults.ClearAll();
    laptop.files.AddTextFile(L"C:\\probe", L"");
    laptop.sessions.runsAsSystem = false;
    laptop.ui.SendFileCopy(L"COPYWALLPAPER", L"C:\\probe", L"C:\\probed");
    ASSERT_EQ(laptop.files.Text(L"C:\\probed"), L"");
    EXPECT_FALSE(laptop.files.Copies().back().asUser) << "the user's rights were not given back";
    EXPECT_EQ(laptop.sessions.OpenTokens(), 0u);
  }

  RunningLaptop laptop;
};

TEST_F(FileCopy, OverwritesTheOutputWithTheRightsOfTheUser) {
  Copy();
  EXPECT_EQ(Output(), L"the sea");
  ASSERT_EQ(laptop.files.Copies().size(), 1u);
  EXPECT_TRUE(laptop.files.Copies()[0].asUser);
  EXPECT_EQ(laptop.trace.Lines(), (Texts{L"[COPYDATA] COPYWALLPAPER. \n", std::wstring(L"InputPath = ") + kInput,
                                         std::wstring(L"OutputPath = ") + kOutput}));
  ExpectOwnRights();
}

TEST_F(FileCopy, ThatCannotBeMadeIsReported) {
  constexpr auto kNoUser = L"[COPYDATA] COPYWALLPAPER, there is no user to copy for. \n";
  using Case = std::tuple<const char*, void (*)(sim::Laptop&), const wchar_t*>;
  for (const auto& [what, arrange, line] :
       {Case{"no user's token", [](sim::Laptop& l) { l.faults.Fail<&os::SessionUserToken>(); }, kNoUser},
        {"no impersonation", [](sim::Laptop& l) { l.faults.Fail<&os::Impersonate>(); }, kNoUser},
        {"a refusal", [](sim::Laptop& l) { l.files.SetReadOnly(kOutput); },
         L"[COPYDATA] COPYWALLPAPER, CopyFile fail Error code = 5 *****"},
        {"no input", [](sim::Laptop& l) { l.files.Remove(kInput); },
         L"[COPYDATA] COPYWALLPAPER, InputPath is not exist. \n"},
        {"nobody is signed in", [](sim::Laptop& l) { l.sessions.SignOut(); }, kNoUser}}) {
    SCOPED_TRACE(what);
    arrange(laptop);
    Copy();
    EXPECT_EQ(Output(), L"an older sea");
    for (const auto& tried : laptop.files.Copies()) EXPECT_TRUE(tried.asUser) << "never with the rights of the system";
    EXPECT_EQ(laptop.trace.Lines().back(), line);
    laptop.faults.ClearAll();
  }
  ExpectOwnRights();
}

TEST_F(FileCopy, OnlyTheExactCommandCopies) {
  for (const auto* command : {L"", L"copywallpaper", L"COPYWALLPAPER ", L"COPYWALLPAPERS", L"COPYWALL", L"BLGET"}) {
    SCOPED_TRACE(command);
    Copy(command);
    EXPECT_TRUE(laptop.trace.Lines().empty());
    EXPECT_TRUE(laptop.files.Copies().empty());
  }
  laptop.ui.Send(L"COPYWALLPAPER");
  EXPECT_TRUE(laptop.files.Copies().empty()) << "the text command of this name is none";
  EXPECT_TRUE(laptop.ui.Received().empty());
}

}  // namespace
