#include "lifecycle/program_folder.h"

#include "os/files.h"

namespace tessaview {

std::wstring PathBesideProgram(const wchar_t* fileName) {
  const auto own = os::OwnProgramPath();
  return own.substr(0, own.rfind(L'\\') + 1) + fileName;
}

}  // namespace tessaview
