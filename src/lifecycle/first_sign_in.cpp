#include "lifecycle/first_sign_in.h"

#include "core/log_failure.h"
#include "core/state.h"
#include "os/first_sign_in.h"

namespace tessaview {
namespace {

Shared<bool> gIsComplete;
Shared<void (*)()> gOnCompleted;
MainThreadOnly<os::SetupWait> gOOBEWaitHandle;

bool IsSetupOver() {
  const auto complete = os::IsSetupComplete();
  LogFailure(L"The state of Windows' setup cannot be told", complete);
  return complete && *complete;
}

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
  gIsComplete.set(IsSetupOver());
  const auto wait = os::WaitForSetup(OnSetupCompleted);
  if (wait) *gOOBEWaitHandle = *wait;
  if (wait || isOOBEComplete()) return;
  // There is nothing to wait for when setup ended after it was asked about.
  gIsComplete.set(IsSetupOver());
  if (!isOOBEComplete()) LogFailure(L"The end of Windows' setup cannot be waited for", wait);
}

void StopFollowingFirstSignIn() {
  os::EndWaitForSetup(*gOOBEWaitHandle);
}

}  // namespace tessaview
