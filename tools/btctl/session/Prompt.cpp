#include "btctl/session/Prompt.h"

#include <cstdio>

#include <glib-unix.h>
#include <unistd.h>

#include "btctl/output/TerminalSafe.h"
#include "glib/OwnedId.h"

namespace btctl {
namespace {

/// What is typed, until the end of the line. Read as it comes: the loop must not block.
struct Input {
  std::string text;
  bool isComplete = false;
  bool hasEnded = false;
};

gboolean Take(gint file, GIOCondition, gpointer data) {
  auto& input = *static_cast<Input*>(data);
  char byte = '\0';
  const ssize_t got = read(file, &byte, 1);
  if (got == 1 && byte != '\n') {
    input.text += byte;
  } else {
    input.isComplete = true;
    input.hasEnded = got != 1;
  }
  return G_SOURCE_CONTINUE;
}

}  // namespace

bool CanPrompt() { return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0; }

std::string Prompt(Session& session, const std::string& question) {
  std::fputs(TerminalSafe(question).c_str(), stderr);
  std::fflush(stderr);
  Input input;
  const OwnedSourceId reading(
      g_unix_fd_add(STDIN_FILENO, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), Take, &input));
  try {
    session.WaitUntil([&] { return input.isComplete; });
  } catch (const Failure&) {
    std::fputs("\n", stderr);  // the message about it begins on a new line
    throw;
  }
  if (input.hasEnded) {
    throw Failure(EXIT_INTERRUPTED, "the input ended");
  }
  return input.text;
}

}  // namespace btctl
