#include "btctl/cli/LineEditor.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

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

/// A text as it is written between quotes of that kind.
std::string Escaped(const std::string& text, char quote) {
  std::string escaped;
  for (const char c : text) {
    if (quote == '\'' && c == '\'') {
      escaped += "'\\''";
    } else {
      escaped += quote == '"' && std::strchr("\"\\$`", c) != nullptr ? "\\" : "";
      escaped += c;
    }
  }
  return escaped;
}

/// What is typed of a word, after the quote with which it begins.
std::string Typed(const std::string& start, char quote) {
  if (quote == '\0') {
    return start;
  }
  const std::vector<std::string> words = WordsOf(quote + start);
  return words.empty() ? "" : words.front();
}

bool NeedsQuotes(const std::string& word) {
  return word.find_first_of(" \t\"'\\$`#&;|<>()*?[]~") != std::string::npos;
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
  const char quote = static_cast<char>(rl_completion_quote_character);
  // The quote with which the word begins is no word of its own.
  const int end = quote != '\0' && begin > 0 ? begin - 1 : begin;
  std::vector<std::string> words =
      (*completer)(WordsOf(std::string(rl_line_buffer, static_cast<std::size_t>(end))), Typed(start, quote));
  for (std::string& word : words) {
    word = quote != '\0' ? Escaped(word, quote) : NeedsQuotes(word) ? '"' + Escaped(word, '"') + '"' : word;
  }
  char** const matches = ToMatches(start, words);
  if (matches != nullptr && std::strcmp(matches[0], "\"") == 0) {
    matches[0][0] = '\0';  // all that they share is the quote, which says nothing
  }
  return matches;
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
  if (!m_pasted.empty()) {
    m_line = m_pasted.front();
    m_pasted.pop_front();
    m_terminal.Write(prompt + *m_line + "\n");
    return m_line;
  }
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
  std::istringstream lines(line);
  std::free(line);
  m_line.emplace();
  std::getline(lines, *m_line);
  Remember(*m_line);
  for (std::string pasted; std::getline(lines, pasted);) {
    Remember(pasted);
    m_pasted.push_back(pasted);
  }
}

void LineEditor::Remember(const std::string& line) {
  const HIST_ENTRY* const last =
      history_length > 0 ? history_get(history_base + history_length - 1) : nullptr;
  if (!line.empty() && (last == nullptr || line != last->line)) {
    add_history(line.c_str());
  }
}

void LineEditor::PrintAbove(const std::function<void()>& print) {
  if (!m_isReading) {
    print();
    return;
  }
  rl_clear_visible_line();
  std::fflush(rl_outstream);  // what is printed may go another way, to standard error
  print();
  rl_on_new_line();
  rl_redisplay();
}

void LineEditor::Discard() {
  m_pasted.clear();
  if (m_isReading) {
    rl_callback_sigcleanup();  // ends a search, which would else take the next keys
    using_history();           // the search went to where it found something
    m_terminal.Write("^C\n");
    rl_replace_line("", 0);
    rl_on_new_line();
    rl_redisplay();
  }
}

}  // namespace btctl
