#include "tests/support.h"
#include "uilink/commands/picture_files.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr const wchar_t *kInput = L"C:\\Users\\Ada\\Pictures\\sea.jpg", *kOutput = L"C:\\ProgramData\\NORV\\sea.jpg";
constexpr auto kSea = L"\xFF\xD8\xFF the sea";

/// A laptop with a picture to copy and an older one in its place.
class FileCopy : public testing::Test {
 protected:
  FileCopy() {
    laptop.files.AddTextFile(kInput, kSea);
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
    laptop.files.AddTextFile(kInput, kSea);
    laptop.sessions.runsAsSystem = false;
    ASSERT_EQ(Copied(), kSea);
    EXPECT_FALSE(laptop.files.Copies().back().asUser) << "the user's rights were not given back";
    EXPECT_EQ(laptop.sessions.OpenTokens(), 0u);
  }

  RunningLaptop laptop;
};

TEST_F(FileCopy, OverwritesTheOutputWithTheRightsOfItsSessionsUser) {
  laptop.sessions.all.insert(laptop.sessions.all.begin(), {Sessions::kOther, Sessions::kActive, true});
  EXPECT_EQ(Copied(), kSea);
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
        {L"[COPYDATA] COPYWALLPAPER refused, InputPath is no picture, error = 5. \n",
         [](Laptop& l) { l.files.KeepFromUsers(kInput); }},
        {L"[COPYDATA] COPYWALLPAPER refused, InputPath is no picture, error = 0. \n",
         [](Laptop& l) { l.files.AddTextFile(kInput, L"a secret"); }}}) {
    arrange(laptop);
    EXPECT_EQ(Copied(), L"an older sea");
    for (const auto& tried : laptop.files.Copies()) EXPECT_TRUE(tried.asUser) << "never with the rights of the system";
    EXPECT_EQ(laptop.trace.Lines().back(), line);
    laptop.faults.ClearAll();
  }
  ExpectOwnRights();
}

TEST_F(FileCopy, IsRefusedWhereNoPicturesAre) {
  for (const auto* const path :
       {L"sea.jpg", L"C:sea.jpg", L"1:\\sea.jpg", L"\\\\server\\share\\sea.jpg", L"//server/share/sea.jpg",
        L"\\\\?\\C:\\sea.jpg", L"\\\\.\\pipe\\sea", L"C:\\run.exe:sea.jpg", L"C:\\Nul.jpg", L"C:\\com1 .png",
        L"C:\\LPT\xB2", L"C:\\", L"C:\\run.exe.", L"C:\\sea.jpg ", L"C:\\sea.jpg\\"}) {
    EXPECT_FALSE(IsPlainLocalPath(path)) << testing::PrintToString(path);
  }
  EXPECT_TRUE(IsPlainLocalPath(kInput) && IsPlainLocalPath(L"c:/My.exe/comb.jpg"));
  EXPECT_TRUE(HasPictureName(L"C:\\a.exe\\TranscodedWallpaper") && HasPictureName(L"C:\\a.exe.JpeG"));
  EXPECT_FALSE(HasPictureName(L"C:\\jpg.exe") || HasPictureName(L"C:\\sea.jpg.lnk"));
  constexpr auto kShare = L"\\\\server\\sea.jpg", kProgram = L"C:\\run.exe";
  for (const auto& [from, to, why] : {std::tuple(kShare, kOutput, L"InputPath is no plain local path"),
                                      {kInput, kShare, L"OutputPath is no plain local path"},
                                      {kInput, kProgram, L"OutputPath has no picture's extension"}}) {
    laptop.ui.SendFileCopy(L"COPYWALLPAPER", from, to);
    EXPECT_EQ(laptop.trace.Lines().back(), std::wstring(L"[COPYDATA] COPYWALLPAPER refused, ") + why + L". \n");
  }
  EXPECT_TRUE(laptop.files.Copies().empty());
}

TEST(PictureFiles, AreToldByTheirFirstBytes) {
  for (const auto& start :
       {BytesOf("\xFF\xD8\xFF\xE0"), BytesOf("\x89PNG\r\n\x1A\n"), BytesOf("BM1234\0\0\0\0more"), BytesOf("GIF87a"),
        BytesOf("GIF89a"), BytesOf("II*\0"), BytesOf("MM\0*"), BytesOf("RIFF1234WEBP"), BytesOf("1234ftypheic")}) {
    EXPECT_TRUE(IsPicture(start) && !IsPicture(os::BytesView(start).first(2))) << testing::PrintToString(start);
  }
  for (const auto& other :
       {BytesOf("BM by its author"), BytesOf("RIFF1234WAVE"), BytesOf("1234ftypmp42"), BytesOf("x\xFF\xD8\xFF")})
    EXPECT_FALSE(IsPicture(other)) << testing::PrintToString(other);
}

}  // namespace
