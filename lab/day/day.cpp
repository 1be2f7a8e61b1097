#include "day/day.h"

#include "kit/machine.h"

namespace lab {

Day::Day()
    : laptop_([this](const std::wstring& who, const std::wstring& line) {
        const std::lock_guard lock(telling_);
        log_.Write(who, line);
        if (IsTelling(who, line)) story_.Tell(who, line);
      }) {
  log_.Begin(EnvironmentText(L"LAB_LOG"));
}

void Day::Chapter(const std::wstring& title) {
  if (laptop_.controller.IsRunning() && !laptop_.WaitForController()) Check(false, L"the controller answers");
  story_.Chapter(title);
}

void Day::Happens(const std::wstring& what) {
  laptop_.ReadDevices();
  since_ = {laptop_.trace.Mark(), laptop_.usage.Mark(), laptop_.uiTalk.Mark(), laptop_.requests.Mark(),
            laptop_.reports.Mark()};
  story_.Tell(L"laptop", what);
}

bool Day::Check(bool holds, const std::wstring& what) {
  laptop_.trace.WaitUntilQuiet(std::chrono::milliseconds(30));  // the lines come by a pipe
  return story_.Check(holds, what);
}

bool Day::SettingsAre(const std::array<std::string, 5>& expected) {
  return Eventually([&] {
    return std::array{Setting("Tessaview"), Setting("Backlight"), Setting("BacklightDC"), Setting("PowerSaving"),
                      Setting("Mode")} == expected;
  });
}

void Day::Picture(const std::wstring& name) {
  const auto path = TakePicture(name);
  if (Check(!path.empty(), L"picture of both panels: " + name)) pictures_.push_back(path);
}

int Day::Summary() {
  const auto failures = story_.failures();
  story_.Chapter(failures == 0 ? L"The day is over: all is well." : L"The day is over: something went wrong.");
  story_.Tell(L"counted", std::to_wstring(story_.checks() - failures) + L" of " + std::to_wstring(story_.checks()) +
                              L" things were as they should be; " + std::to_wstring(laptop_.trace.Mark()) +
                              L" trace lines, " + std::to_wstring(laptop_.requests.Mark()) + L" firmware requests, " +
                              std::to_wstring(laptop_.reports.Mark()) + L" mode reports");
  for (const auto& picture : pictures_) story_.Tell(L"picture", picture);
  return failures == 0 ? 0 : 1;
}

}  // namespace lab
