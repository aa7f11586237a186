#include "btctl/cli/LineEditor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string_view>

#include <glib-unix.h>
#include <glib/gstdio.h>
#include <poll.h>
#include <readline/history.h>
#include <readline/readline.h>
#include <unistd.h>

#include "btctl/output/TerminalSafe.h"
#include "glib/Owned.h"

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
std::vector<std::string> SplitIntoWords(const std::string& text) {
  for (const char* const end : {"", "\"", "'"}) {
    OwnedTexts words;
    if (g_shell_parse_argv((text + end).c_str(), nullptr, words.Out(), nullptr) != FALSE) {
      return std::vector<std::string>(words.get(), words.get() + g_strv_length(words.get()));
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
  const std::vector<std::string> words = SplitIntoWords(quote + start);
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
  std::vector<std::string> words = (*completer)(
      SplitIntoWords(std::string(rl_line_buffer, static_cast<std::size_t>(end))), Typed(start, quote));
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

/// Whether the editor takes what is pasted.
bool IsPasting() {
  constexpr std::string_view kBeginOfPaste = "[200~";
  const std::string_view keys = rl_executing_keyseq != nullptr ? rl_executing_keyseq : "";
  return RL_ISSTATE(RL_STATE_MOREINPUT) && keys.size() > kBeginOfPaste.size() &&
         keys.substr(keys.size() - kBeginOfPaste.size()) == kBeginOfPaste;
}

/// The editor waits for a key by itself in the middle of some things: a paste that has no end, the question
/// whether to list so many names. A signal, such as that of Ctrl-C, ends these. A paste is given an end, as
/// it is when the terminal goes away: readline takes what lies behind its buffer for text if there is none.
int GetKey(std::FILE* stream) {
  static const char* endOfPaste = "";  // what is left of it
  if (*endOfPaste != '\0') {
    return static_cast<unsigned char>(*endOfPaste++);
  }
  pollfd waiting{fileno(stream), POLLIN, 0};
  const bool isInterrupted = poll(&waiting, 1, -1) < 0 && errno == EINTR;
  const int key = isInterrupted && RL_ISSTATE(RL_STATE_MOREINPUT) ? EOF : rl_getc(stream);
  if (key != EOF || !IsPasting()) {
    return key;
  }
  endOfPaste = "[201~";
  return '\033';
}

/// Forgets the line, and where in the history it came from.
void ForgetLine() {
  rl_callback_sigcleanup();  // ends a search, which would else take the next keys
  rl_free_line_state();
}

/// The editor's settings; those of the user's inputrc come before them, where there are some.
void Configure() {
  rl_readline_name = "btctl";
  rl_catch_signals = 0;  // the main loop has them
  rl_getc_function = GetKey;
  rl_completer_word_break_characters = const_cast<char*>(kWordBreaks);
  rl_basic_quote_characters = kQuotes;
  rl_completer_quote_characters = kQuotes;
  rl_attempted_completion_function = Attempt;
  rl_variable_bind("page-completions", "off");  // the pager would hold up the main loop
  for (const unsigned char enter : {'\r', '\n'}) {
    rl_bind_key_in_map(enter, rl_newline,
                       emacs_meta_keymap);  // Enter after Esc would switch to the keys of vi
  }
}

}  // namespace

LineEditor::LineEditor(AnswerStream& terminal, Completer complete)
    : m_terminal(terminal),
      m_completer(std::move(complete)),
      m_historyFile(HistoryFile()),
      m_jobs([this] { Leave(); }, [this] { ComeBack(); }) {
  editor = this;
  completer = &m_completer;
  rl_outstream = terminal.File();
  Configure();
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
  if (m_hasEnded) {
    return std::nullopt;
  }
  if (!m_pasted.empty()) {
    m_line = m_pasted.front();
    m_pasted.pop_front();
    m_terminal.Write(prompt + TerminalSafe(*m_line) + "\n");
    return m_line;
  }
  m_prompt = prompt;
  ShowPrompt();
  m_isReading = true;
  m_typing.reset(
      g_unix_fd_add(STDIN_FILENO, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), TakeKey, nullptr));
  while (!m_line && !m_hasEnded) {
    g_main_context_iteration(nullptr, TRUE);
    meanwhile();
  }
  return m_line;
}

void LineEditor::ShowPrompt() {
  rl_callback_handler_install(m_prompt.c_str(), [](char* line) { editor->TakeLine(line); });
}

/// Reads no more keys: `meanwhile` may still iterate the loop, and readline ends the program if it gets a key
/// without a handler.
void LineEditor::StopReading() {
  rl_callback_handler_remove();
  m_typing.reset();
  m_isReading = false;
}

/// Called by readline, which would else show the next prompt at once.
void LineEditor::TakeLine(char* line) {
  StopReading();
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

/// Gives the terminal back to the user's shell.
void LineEditor::Leave() {
  if (m_isReading) {
    m_terminal.Write("\n");
    rl_deprep_term_function();
  }
}

/// Whatever was done to the terminal in the meantime.
void LineEditor::ComeBack() {
  if (m_isReading) {
    rl_deprep_term_function();
    rl_prep_term_function(1);
    rl_resize_terminal();
    rl_forced_update_display();
  }
}

void LineEditor::End() {
  m_pasted.clear();
  m_hasEnded = true;
  if (m_isReading) {
    ForgetLine();
    StopReading();
    m_terminal.Write("\n");
  }
}

void LineEditor::Discard() {
  m_pasted.clear();
  if (m_isReading) {
    ForgetLine();
    rl_callback_handler_remove();
    m_terminal.Write("^C\n");
    ShowPrompt();
  }
}

}  // namespace btctl
