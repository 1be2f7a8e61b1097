// Stands in for NorvTessaviewCheck.exe: its answer is part of the laptop's state.
#include "kit/laptop_state.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  return static_cast<int>(lab::SharedLaptopState()->packageCheck);
}
