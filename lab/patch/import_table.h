#pragma once

namespace lab::patch {

/// One function that the program imports and what it shall call in its place. Everything else in the process, this DLL
/// included, still calls the system's own.
struct Redirection {
  const char* function;
  void* replacement;
};

/// Points the running program's import of the function at the replacement; nothing happens when it does not import it.
/// Call before the program's first instruction runs.
void Redirect(const Redirection& redirection);

}  // namespace lab::patch
