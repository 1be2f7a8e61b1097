#include "lifecycle/first_sign_in.h"

#include "core/state.h"
#include "os/first_sign_in.h"

namespace tessaview {
namespace {

Shared<bool> gIsComplete;
Shared<void (*)()> gOnCompleted;
MainThreadOnly<os::SetupWait> gOOBEWaitHandle;

void OnSetupCompleted() {
  gIsComplete.set(true);
  gOnCompleted.get()();
}

}  // namespace

bool isOOBEComplete() {
  return gIsComplete.get();
}

void FollowFirstSignIn(void (*onCompleted)()) {
  gOnCompleted.set(onCompleted);
  const auto complete = os::IsSetupComplete();
  gIsComplete.set(complete && *complete);
  *gOOBEWaitHandle = os::WaitForSetup(OnSetupCompleted);
}

void StopFollowingFirstSignIn() {
  os::EndWaitForSetup(*gOOBEWaitHandle);
}

}  // namespace tessaview
