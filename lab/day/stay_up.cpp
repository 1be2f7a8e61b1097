// The laptop to play with.
#include "day/chapters.h"

namespace lab {

void StayUp(Day& day) {
  day.Chapter(L"The laptop stays up. In another terminal:");
  for (const auto* line :
       {L"lab/laptop/play ui BLSET 50        a command of the UI's to the controller",
        L"lab/laptop/play press F6           also: flip, cord, saver, touch, projection",
        L"lab/laptop/play picture            both panels as a PNG file",
        L"lab/laptop/play trace              everything that is traced, as it comes",
        L"lab/laptop/play end                ends the controller and the laptop; Ctrl-C here does too"}) {
    day.Note(line);
  }
  day.Chapter(L"What happens now");
  while (day.laptop().controller.IsRunning()) (void)day.laptop().controller.WaitForExit();
  day.Check(day.laptop().controller.WaitForExit() == 0U, L"the controller ended, with 0");
}

}  // namespace lab
