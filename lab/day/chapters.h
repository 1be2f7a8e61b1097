#pragma once

#include "day/day.h"

namespace lab {

// The day's chapters, in order. Each leaves the laptop as the next one expects it: on mains, unfolded, panel on. The
// first two return false when there is no laptop, or no controller with its UI, to go on with.
bool BootLaptop(Day& day);
bool StartController(Day& day);
void TellTheState(Day& day);
void Backlight(Day& day);
void Battery(Day& day);
void Touch(Day& day);
void Windows(Day& day);
void Flip(Day& day);
void Projection(Day& day);
void RefreshRate(Day& day);
void DriverGone(Day& day);
void PanelMoved(Day& day);
void Lid(Day& day);
void SwitchOff(Day& day);
void UiEnds(Day& day);
void PackageInstalled(Day& day);
void SecureDesktop(Day& day);
void Hibernation(Day& day);
void SecondInstance(Day& day);
void ShutDown(Day& day);

/// In place of the chapters after TellTheState: the laptop stays up until somebody ends the controller.
void StayUp(Day& day);

}  // namespace lab
