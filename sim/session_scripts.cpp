// Several users at one machine: what the controller's session hears, and when.

#include <algorithm>

#include "sim/sessions.h"

namespace sim {
namespace {

// WTS_* codes, as Windows numbers them.
constexpr std::uint32_t kConsoleConnect = 1, kConsoleDisconnect = 2, kRemoteConnect = 3, kRemoteDisconnect = 4,
                        kSignedOut = 6, kSessionLocked = 7, kSessionUnlocked = 8;

constexpr std::uint32_t kAttachMs = 20;         // the console belongs to nobody for as long
constexpr std::uint32_t kDisplaysBackMs = 700;  // calls are still refused after the user is back

}  // namespace

/// One code, so many milliseconds after the one before.
struct Sessions::Step {
  std::uint32_t afterMs, code;
};

// ---- Scripts ----

void Sessions::SwitchAway() {
  static constexpr Step kScript[] = {{0, kSessionLocked}, {30, kConsoleDisconnect}};
  Play(kScript);
}

void Sessions::LoseConsole() {
  static constexpr Step kScript[] = {{0, kConsoleDisconnect}};
  Play(kScript);
}

void Sessions::SwitchBack() {
  static constexpr Step kScript[] = {{0, kConsoleConnect}, {400, kSessionUnlocked}};
  Play(kScript);
}

void Sessions::SwitchToOneself() {
  static constexpr Step kScript[] = {{0, kConsoleDisconnect}, {60, kConsoleConnect}, {60, kSessionUnlocked}};
  Play(kScript);
}

void Sessions::RemoteTakesOver() {
  static constexpr Step kScript[] = {{0, kConsoleDisconnect}, {50, kRemoteConnect}};
  Play(kScript);
}

void Sessions::RemoteEnds() {
  static constexpr Step kScript[] = {{0, kRemoteDisconnect}};
  Play(kScript);
}

void Sessions::IsPutBack() {
  static constexpr Step kScript[] = {{0, kConsoleConnect}};
  isLocked_ = false;
  Play(kScript);
}

void Sessions::LogOff() {
  static constexpr Step kUntilItsEnd[] = {{0, kSignedOut}}, kAfterwards[] = {{0, kConsoleDisconnect}};
  constexpr std::uint32_t kReason = 0x8000'0000;  // ENDSESSION_LOGOFF
  End(kReason);
  Play(kUntilItsEnd);
  loggedOff_();
  Play(kAfterwards);
}

void Sessions::SignIn() {
  Of(own).signedIn = true;
  IsPutBack();
}

// ---- What the codes mean ----

void Sessions::Play(std::span<const Step> script) {
  std::uint64_t afterMs = 0;
  for (const auto& step : script) {
    afterMs += step.afterMs;
    scheduler_.After(afterMs, [this, code = step.code] { Take(code); });
  }
  scheduler_.SettleStory();
}

void Sessions::Take(std::uint32_t code) {
  switch (code) {
    case kSessionLocked:
      isLocked_ = true;
      desktop_.userIsHere = false;
      break;
    case kSessionUnlocked:
      ComeBack();
      break;
    case kConsoleDisconnect:
      console.reset();
      isLocked_ = true;  // whoever comes back has to sign in again
      desktop_.userIsHere = false;
      Of(own).state = kDisconnected;
      scheduler_.After(kAttachMs, [this] {
        if (console) return;
        console = kOther;
        Of(kOther).state = kActive;
      });
      break;
    case kConsoleConnect:
      console = own;
      Of(kOther).state = kDisconnected;
      Of(own).state = kActive;
      if (!isLocked_) ComeBack();
      break;
    case kRemoteConnect:
      Of(own).state = kActive;
      break;
    case kRemoteDisconnect:
      Of(own).state = kDisconnected;
      break;
    case kSignedOut:
      Of(own).signedIn = false;
      break;
  }
  Tell(code);
}

void Sessions::ComeBack() {
  isLocked_ = false;
  desktop_.userIsHere = true;
  displaysReachedAtMs_ = scheduler_.NowMs() + kDisplaysBackMs;
}

/// A session that is not there yet begins with its user signed in.
SessionState& Sessions::Of(std::uint32_t session) {
  const auto found = std::find_if(all.begin(), all.end(), [=](const auto& each) { return each.id == session; });
  return found != all.end() ? *found : all.emplace_back(SessionState{session, kActive, true});
}

bool Sessions::ReachesDisplays() const {
  return desktop_.userIsHere && scheduler_.NowMs() >= displaysReachedAtMs_;
}

}  // namespace sim
