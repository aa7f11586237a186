#include "btctl/cli/LineEditor.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <glib-unix.h>
#include <glib/gstdio.h>
#include <readline/history.h>
#include <readline/readline.h>
#include <unistd.h>

#include "btctl/session/Source.h"

namespace btctl {
namespace {

constexpr int kLinesOfHistory = 1000;
constexpr char kWordBreaks[] = " \t\n";
constexpr char kQuotes[] = "\"'";

LineEditor* editor = nullptr;  // readline's callbacks carry no data of ours
const LineEditor::Completer* completer = nullptr;

std::string HistoryFile() {
  const std::string directory = std::string(g_get_user_state_dir()) + "/btctl";
  g_mkdir_with_parents(directory.c_str(), 0700);
  return directory + "/history";
}

/// The words of a part of a line. An open quote is closed, since the line goes on.
std::vector<std::string> WordsOf(const std::string& text) {
  for (const char* const end : {"", "\"", "'"}) {
    g_auto(GStrv) words = nullptr;
    if (g_shell_parse_argv((text + end).c_str(), nullptr, &words, nullptr) != FALSE) {
      return std::vector<std::string>(words, words + g_strv_length(words));
    }
  }
  return {};
}

/// As readline wants it: a list that it frees, the longest common start first.
char** ToMatches(const std::string& start, const std::vector<std::string>& candidates) {
  static const std::vector<std::string>* remaining = nullptr;
  static std::size_t next = 0;
  remaining = &candidates;
  next = 0;
  return rl_completion_matches(start.c_str(), [](const char*, int) -> char* {
    return next < remaining->size() ? strdup((*remaining)[next++].c_str()) : nullptr;
  });
}

char** Attempt(const char* start, int begin, int) {
  rl_attempted_completion_over = 1;  // no file names
  std::vector<std::string> matches =
      (*completer)(WordsOf(std::string(rl_line_buffer, static_cast<std::size_t>(begin))), start);
  if (rl_completion_quote_character == 0) {
    for (std::string& match : matches) {
      if (match.find(' ') != std::string::npos) {
        match.insert(0, 1, '"').push_back('"');
      }
    }
  }
  return ToMatches(start, matches);
}

gboolean TakeKey(gint, GIOCondition, gpointer) {
  rl_callback_read_char();
  return G_SOURCE_CONTINUE;
}

}  // namespace

LineEditor::LineEditor(AnswerStream& terminal, Completer complete)
    : m_terminal(terminal), m_completer(std::move(complete)), m_historyFile(HistoryFile()) {
  editor = this;
  completer = &m_completer;
  rl_readline_name = "btctl";
  rl_outstream = terminal.File();
  rl_catch_signals = 0;  // the main loop has them
  rl_completer_word_break_characters = const_cast<char*>(kWordBreaks);
  rl_basic_quote_characters = kQuotes;
  rl_completer_quote_characters = kQuotes;
  rl_attempted_completion_function = Attempt;
  using_history();
  stifle_history(kLinesOfHistory);
  read_history(m_historyFile.c_str());
}

LineEditor::~LineEditor() {
  write_history(m_historyFile.c_str());
  editor = nullptr;
}

std::optional<std::string> LineEditor::ReadLine(const std::string& prompt,
                                                const std::function<void()>& meanwhile) {
  m_line.reset();
  rl_callback_handler_install(prompt.c_str(), [](char* line) { editor->TakeLine(line); });
  m_isReading = true;
  {
    const Source typing(
        g_unix_fd_add(STDIN_FILENO, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), TakeKey, nullptr));
    while (!m_line && !m_hasEnded) {
      g_main_context_iteration(nullptr, TRUE);
      meanwhile();
    }
  }
  m_isReading = false;
  return m_line;
}

/// Called by readline. The handler is removed at once, else it would show the next prompt.
void LineEditor::TakeLine(char* line) {
  rl_callback_handler_remove();
  m_isReading = false;
  if (line == nullptr) {
    m_hasEnded = true;
    m_terminal.Write("\n");
    return;
  }
  m_line = line;
  std::free(line);
  const HIST_ENTRY* const last =
      history_length > 0 ? history_get(history_base + history_length - 1) : nullptr;
  if (!m_line->empty() && (last == nullptr || *m_line != last->line)) {
    add_history(m_line->c_str());
  }
}

void LineEditor::PrintAbove(const std::function<void()>& print) {
  if (!m_isReading) {
    print();
    return;
  }
  rl_clear_visible_line();
  print();
  rl_on_new_line();
  rl_redisplay();
}

void LineEditor::Discard() {
  if (m_isReading) {
    m_terminal.Write("^C\n");
    rl_replace_line("", 0);
    rl_on_new_line();
    rl_redisplay();
  }
}

}  // namespace btctl
