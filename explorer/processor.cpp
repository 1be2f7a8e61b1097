#include "explorer/processor.h"

#include <sched.h>

namespace explorer {
namespace {

cpu_set_t Allowed() {
  cpu_set_t allowed;
  CPU_ZERO(&allowed);
  sched_getaffinity(0, sizeof(allowed), &allowed);
  return allowed;
}

}  // namespace

void StayOnProcessor(unsigned number) {
  static const cpu_set_t allowed = Allowed();  // as it was before the first choice
  const auto count = static_cast<unsigned>(CPU_COUNT(&allowed));
  if (count == 0) return;
  auto skipped = number % count;
  for (int processor = 0; processor < CPU_SETSIZE; ++processor) {
    if (!CPU_ISSET(processor, &allowed) || skipped-- != 0) continue;
    cpu_set_t chosen;
    CPU_ZERO(&chosen);
    CPU_SET(processor, &chosen);
    sched_setaffinity(0, sizeof(chosen), &chosen);  // where that is refused, it only takes longer
    return;
  }
}

}  // namespace explorer
