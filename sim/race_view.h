#pragma once

// What ThreadSanitizer is shown of a simulated laptop, in a build with RACE_VIEW. In any other this does nothing.
//
// The laptop lets one thread run at a time. Its scheduler would order all that the controller's threads do, and none of
// them could ever race. So the sanitizer sees what those threads do in src/, and nothing of what runs in sim/ and
// tests/: neither what is read and written there nor how the turn is handed on. The order that Windows promises it is
// told in these words. An order that nobody relies on is not told, because it could only hide a race.
namespace sim {

/// What the calling thread did before `Releases(at)` happens before what another thread does after `Acquires(at)`.
void Releases(const void* at);
void Acquires(const void* at);

/// While it lives, the calling thread is seen although it runs in sim/ or tests/.
class Seen {
 public:
  Seen();
  ~Seen();
  Seen(const Seen&) = delete;
  Seen& operator=(const Seen&) = delete;
};

}  // namespace sim
