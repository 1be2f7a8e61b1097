// A day in the laptop's life: the controller as it will be installed, started on the virtual laptop and taken through
// what can happen to it. The story is told as it happens; the exit code is 0 only when everything went as it should.
//   day          the whole day
//   day --keep   its beginning; then the laptop stays up
#include <string_view>

#include "day/chapters.h"

namespace {

void LiveOn(lab::Day& day) {
  for (auto* const chapter :
       {lab::Backlight, lab::Battery, lab::Touch, lab::Windows, lab::Flip, lab::Projection, lab::RefreshRate,
        lab::DriverGone, lab::PanelMoved, lab::Lid, lab::SwitchOff, lab::UiEnds, lab::PackageInstalled,
        lab::SecureDesktop, lab::Hibernation, lab::SecondInstance, lab::ShutDown}) {
    chapter(day);
  }
}

}  // namespace

int main(int count, char** words) {
  const bool keep = count > 1 && std::string_view(words[1]) == "--keep";
  auto& day = *new lab::Day;  // its laptop's threads run until the process is over
  if (lab::BootLaptop(day) && lab::StartController(day)) {
    lab::TellTheState(day);
    keep ? lab::StayUp(day) : LiveOn(day);
  }
  day.laptop().controller.End();
  day.laptop().ui.End();
  return day.Summary();
}
