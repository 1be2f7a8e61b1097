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
  }

  /// What is at the output after a copy was asked for.
  std::wstring Copied() {
    laptop.ui.SendFileCopy(L"COPYWALLPAPER", kInput, kOutput);
    return laptop.files.Text(kOutput).value_or(L"(missing)");
  }

  /// Whom the controller's main thread acts as, seen in a copy that it makes for itself.
  void ExpectOwnRights() {
    laptop.faults.ClearAll();
    laptop.files.AddTextFile(kInput, L"");
    laptop.sessions.runsAsSystem = false;
    ASSERT_EQ(Copied(), L"");
    EXPECT_FALSE(laptop.files.Copies().back().asUser) << "the user's rights were not given back";
    EXPECT_EQ(laptop.sessions.OpenTokens(), 0u);
  }

  RunningLaptop laptop;
};

TEST_F(FileCopy, OverwritesTheOutputWithTheRightsOfItsSessionsUser) {
  laptop.sessions.all.insert(laptop.sessions.all.begin(), {Sessions::kOther, Sessions::kActive, true});
  EXPECT_EQ(Copied(), L"the sea");
  EXPECT_EQ(laptop.files.Copies().at(0).asUser, laptop.sessions.own);
  ExpectOwnRights();
}

TEST_F(FileCopy, ThatCannotBeMadeIsReported) {
  using Arrange = void (*)(Laptop&);
  for (const auto& [line, arrange] :
       {std::pair<const wchar_t*, Arrange>{L"[COPYDATA] COPYWALLPAPER, there is no user to copy for. \n",
                                           [](Laptop& l) { l.faults.Fail<&os::Impersonate>(); }},
        {L"[COPYDATA] COPYWALLPAPER, CopyFile fail Error code = 31 *****",
         [](Laptop& l) { l.faults.Fail<&os::OverwriteByCopy>(); }},
        {L"[COPYDATA] COPYWALLPAPER, InputPath is not exist. \n", [](Laptop& l) { l.files.Remove(kInput); }}}) {
    arrange(laptop);
    EXPECT_EQ(Copied(), L"an older sea");
    for (const auto& tried : laptop.files.Copies()) EXPECT_TRUE(tried.asUser) << "never with the rights of the system";
    EXPECT_EQ(laptop.trace.Lines().back(), line);
    laptop.faults.ClearAll();
  }
  ExpectOwnRights();
}

}  // namespace
