#include "btctl/output/AnswerStream.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

#include "btctl/base/Failure.h"

namespace btctl {

AnswerStream::AnswerStream(bool showOthers) : m_file(fdopen(dup(STDOUT_FILENO), "w")) {
  const int elsewhere = showOthers ? dup(STDERR_FILENO) : open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (elsewhere != STDOUT_FILENO) {  // as it is if standard output was closed: it was the first free number
    dup2(elsewhere, STDOUT_FILENO);
    close(elsewhere);
  }
}

AnswerStream::~AnswerStream() {
  if (m_file != nullptr) {
    std::fclose(m_file);
  }
}

bool AnswerStream::IsTerminal() const { return m_file != nullptr && isatty(fileno(m_file)) != 0; }

void AnswerStream::Write(const std::string& text) {
  if (m_file == nullptr) {
    return;
  }
  const bool isWritten =
      std::fwrite(text.data(), 1, text.size(), m_file) == text.size() && std::fflush(m_file) == 0;
  if (!isWritten && errno == EPIPE) {
    // Nobody reads any more, as in "btctl monitor | head -1". The libraries keep the signal for that from
    // coming.
    std::signal(SIGPIPE, SIG_DFL);
    std::raise(SIGPIPE);
  }
}

void AnswerStream::ThrowIfFailed() const {
  if (m_file == nullptr) {
    throw Failure(EXIT_INTERNAL, "standard output is closed");
  }
  if (std::ferror(m_file) != 0) {
    throw Failure(EXIT_INTERNAL, "standard output cannot be written to");
  }
}

}  // namespace btctl
