// How a program of the product ends, shown on this program, started again.
#include <gtest/gtest.h>

#include "contract/other_program.h"
#include "kit/process.h"
#include "os/files.h"

namespace contract {
namespace {

TEST(ProcessEnd, AnExceptionNobodyCatchesEndsTheProcessAtOnceAndSoDoesItsOwnEndUnderAHeldLock) {
  for (const auto& [how, exitCode] : {std::pair(L"--throw", 0xC0000602U), {L"--abort", 0xC0000602U}, {L"--end", 7U}}) {
    const auto child = lab::ChildProcess::Start(os::OwnProgramPath(), how);
    EXPECT_EQ(child.WaitForExit(), exitCode) << testing::PrintToString(how);
  }
}

}  // namespace
}  // namespace contract
