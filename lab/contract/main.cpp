#include <windows.h>

#include <gtest/gtest.h>
#include <shellapi.h>

#include "contract/other_program.h"

int main(int count, char** arguments) {
  int wideCount = 0;
  auto** const wide = CommandLineToArgvW(GetCommandLineW(), &wideCount);
  if (const auto code = contract::RunAsOtherProgram(wideCount, wide)) return *code;
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
