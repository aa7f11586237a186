#include "drive/DriveClient.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/MainLoop.h"

namespace btservice {
namespace {

/// A pipe with a name. It is open for reading here, too, so that opening it waits for nobody.
int OpenPipe(const std::filesystem::path& path) {
  mkfifo(path.c_str(), 0600);
  return open(path.c_str(), O_RDWR | O_CLOEXEC);
}

}  // namespace

DriveClient::DriveClient(const std::filesystem::path& directory)
    : m_inputPath(directory / "input"),
      m_outputPath(directory / "output"),
      m_input(OpenPipe(m_inputPath)),
      m_process({"sh", "-c", R"(exec "$0" <"$1" >"$2")", BTTEST_DRIVE_CLIENT, m_inputPath, m_outputPath}) {
  if (!bttest::RunUntil([this] {
        ReadOutput();
        return !m_answers.empty() || !m_process.IsAlive();
      }) ||
      m_answers.empty() || m_answers[0] != "start 1") {
    throw std::runtime_error("a client does not start: " + m_process.Errors());
  }
}

DriveClient::~DriveClient() {
  Dismiss();
  close(m_output);
}

void DriveClient::Dismiss() {
  if (m_input != -1) {
    close(m_input);
    m_input = -1;
  }
}

int DriveClient::Ask(const std::string& request) {
  constexpr int kNoAnswer = -1000;
  m_answers.clear();
  const std::string line = request + "\n";
  if (write(m_input, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
    return kNoAnswer;
  }
  bttest::RunUntil([this] {
    ReadOutput();
    return !m_answers.empty() || !m_process.IsAlive();
  });
  return m_answers.empty() ? kNoAnswer : std::stoi(m_answers[0].substr(m_answers[0].rfind(' ')));
}

const std::vector<std::string>& DriveClient::Events() {
  ReadOutput();
  return m_events;
}

bool DriveClient::HasSeen(const std::string& event) {
  ReadOutput();
  // What is looked for has come lately, if at all.
  return std::find(m_events.rbegin(), m_events.rend(), event) != m_events.rend();
}

void DriveClient::ReadOutput() {
  if (m_output == -1) {
    m_output = open(m_outputPath.c_str(), O_RDONLY | O_CLOEXEC);
  }
  std::array<char, 65536> bytes;
  for (ssize_t got = 0; (got = read(m_output, bytes.data(), bytes.size())) > 0;) {
    m_unread.append(bytes.data(), static_cast<std::size_t>(got));
  }
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = m_unread.find('\n', begin)) != std::string::npos; begin = end + 1) {
    const std::string line = m_unread.substr(begin, end - begin);
    if (line.rfind("event ", 0) == 0) {
      m_events.push_back(line.substr(6));
    } else if (line.rfind("answer ", 0) == 0) {
      m_answers.push_back(line.substr(7));
    }
  }
  m_unread.erase(0, begin);
}

}  // namespace btservice
