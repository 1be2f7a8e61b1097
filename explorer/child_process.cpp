#include "explorer/child_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>

namespace explorer {

std::string InChildProcess(unsigned seconds, const std::function<std::string()>& work) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return "there is no pipe";
  const auto child = fork();
  if (child == 0) {
    alarm(seconds);
    const auto text = work();
    _exit(write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string text;
  std::array<char, 4096> part{};
  for (ssize_t got = 0; (got = read(ends[0], part.data(), part.size())) > 0;) {
    text.append(part.data(), static_cast<std::size_t>(got));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? "died of signal " + std::to_string(WTERMSIG(status)) : text;
}

}  // namespace explorer
