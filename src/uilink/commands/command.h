#pragma once

#include <span>
#include <string_view>

#include "uilink/channel/ui_record.h"

namespace tessaview {

/// How a command's text is found in a record's: as the whole of it, or anywhere in it.
enum class Match { Exact, Contains };

/// One command of the UI: its text, who carries it out, and what is logged before that (null: nothing, or what the
/// handler logs itself). The phrase says what its fields hold, what happens and what is answered; it stays in the
/// source, and docs/ui-protocol.md is held against it.
template <class Message>
struct Command {
  std::wstring_view text;
  Match match;
  void (*run)(const Message& message);
  const wchar_t* log;

  consteval Command(std::wstring_view name, Match how, void (*handler)(const Message&), const wchar_t* line,
                    const char* /*phrase*/)
      : text(name), match(how), run(handler), log(line) {}
};

using UiCommand = Command<UiMessage>;
using FileCopyCommand = Command<FileCopyMessage>;
using UiCommandRows = std::span<const UiCommand>;

// The rows of each file of commands, beside their handlers.
[[nodiscard]] UiCommandRows BacklightCommands();
[[nodiscard]] UiCommandRows DisplayCommands();
[[nodiscard]] UiCommandRows MoveCommands();
[[nodiscard]] UiCommandRows SystemCommands();
[[nodiscard]] UiCommandRows UiLifeCommands();
[[nodiscard]] UiCommandRows WallpaperCommands();
[[nodiscard]] UiCommandRows WindowCommands();
[[nodiscard]] const FileCopyCommand& WallpaperCopyCommand();

}  // namespace tessaview
