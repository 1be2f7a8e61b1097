#include "uilink/channel/ui_sender.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <optional>
#include <utility>

#include "core/state.h"
#include "core/threads.h"
#include "os/threads.h"
#include "uilink/channel/ui_channel.h"

namespace tessaview {
namespace {

constexpr std::size_t kMostWaiting = 64;

using Queue = std::deque<PostedText>;
Shared<Queue> gQueue;
Shared<std::shared_ptr<os::Semaphore>> gPosted;  // there is something in the queue

void DropStale(Queue& queue) {
  const auto oldest = std::find_if(queue.begin(), queue.end(),
                                   [](const PostedText& text) { return text.text.keep == Keep::UntilStale; });
  if (oldest != queue.end()) queue.erase(oldest);
}

std::optional<PostedText> TakeNext() {
  return gQueue.Update([](Queue& queue) -> std::optional<PostedText> {
    if (queue.empty()) return std::nullopt;
    auto next = std::move(queue.front());
    queue.pop_front();
    return next;
  });
}

}  // namespace

void StartUiSender() {
  const auto posted = std::make_shared<os::Semaphore>(1);
  gPosted.set(posted);
  StartThread(L"UI sender", [posted] {
    while (posted->Wait()) {
      while (const auto next = TakeNext()) {
        TellUi(next->text, next->fields);
        if (next->isTold) os::SignalEvent(*next->isTold);
      }
    }
  });
}

void PostUiText(PostedText text) {
  const auto posted = gPosted.get();
  if (posted == nullptr) return;
  gQueue.Update([&](Queue& queue) {
    queue.push_back(std::move(text));
    if (queue.size() > kMostWaiting) DropStale(queue);
  });
  posted->Post();
}

}  // namespace tessaview
