#include "sim/race_view.h"

#ifdef RACE_VIEW

#include "sim/scheduler.h"

// Called by the sanitizer's own annotations, each counted for each thread.
extern "C" {
void AnnotateIgnoreReadsBegin(const char* file, int line);
void AnnotateIgnoreReadsEnd(const char* file, int line);
void AnnotateIgnoreWritesBegin(const char* file, int line);
void AnnotateIgnoreWritesEnd(const char* file, int line);
void AnnotateIgnoreSyncBegin(const char* file, int line);
void AnnotateIgnoreSyncEnd(const char* file, int line);
void __tsan_acquire(void* at);
void __tsan_release(void* at);
}

#define UNWATCHED __attribute__((no_sanitize_thread, noinline))  // nor does the compiler call the hooks in this file

namespace sim {
namespace {

constexpr int kDeepest = 8192;  // calls within calls

/// Of one thread: whether it is hidden, and whether it was before each call that it is in.
struct View {
  int depth;
  bool isHidden;
  bool wasHidden[kDeepest];
};
thread_local View view;

UNWATCHED void Hide(bool hide) {
  if (hide == view.isHidden) return;
  view.isHidden = hide;
  if (hide) {
    AnnotateIgnoreReadsBegin(__FILE__, __LINE__);
    AnnotateIgnoreWritesBegin(__FILE__, __LINE__);
    AnnotateIgnoreSyncBegin(__FILE__, __LINE__);
  } else {
    AnnotateIgnoreSyncEnd(__FILE__, __LINE__);
    AnnotateIgnoreWritesEnd(__FILE__, __LINE__);
    AnnotateIgnoreReadsEnd(__FILE__, __LINE__);
  }
}

UNWATCHED void Begin(bool hide) {
  if (view.depth >= kDeepest) __builtin_trap();
  view.wasHidden[view.depth++] = view.isHidden;
  Hide(hide);
}

UNWATCHED void End() {
  Hide(view.wasHidden[--view.depth]);
}

}  // namespace

UNWATCHED Seen::Seen() {
  Begin(false);
}

UNWATCHED Seen::~Seen() {
  End();
}

UNWATCHED void Releases(const void* at) {
  const Seen seen;
  __tsan_release(const_cast<void*>(at));
}

UNWATCHED void Acquires(const void* at) {
  const Seen seen;
  __tsan_acquire(const_cast<void*>(at));
}

}  // namespace sim

// Of these the compiler calls one at the begin and one at the end of each function (-finstrument-functions). At the
// begin it is the first in sim/ and tests/, the second in src/ (cmake/race_view.cmake).
extern "C" UNWATCHED void __cyg_profile_func_enter(void* /*function*/, void* /*caller*/) {
  sim::Begin(true);
}

extern "C" UNWATCHED void race_view_show(void* /*function*/, void* /*caller*/) {
  sim::Begin(sim::Scheduler::ThreadId() == 0);  // the test's own thread is none of the controller's
}

extern "C" UNWATCHED void __cyg_profile_func_exit(void* /*function*/, void* /*caller*/) {
  sim::End();
}

#else

namespace sim {

Seen::Seen() = default;
Seen::~Seen() = default;
void Releases(const void* /*at*/) {}
void Acquires(const void* /*at*/) {}

}  // namespace sim

#endif
