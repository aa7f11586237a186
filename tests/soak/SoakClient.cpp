#include "soak/SoakClient.h"

#include <array>
#include <cstdio>

#include <fcntl.h>
#include <gio/gunixinputstream.h>
#include <unistd.h>

#include "support/GlibHelpers.h"
#include "support/MainLoop.h"

namespace btsoak {
namespace {

OwnedObject<GSubprocess> StartProcess(int requestsPerSecond) {
  OwnedError error;
  OwnedObject<GSubprocess> process(g_subprocess_new(
      static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE),
      error.Out(), BTSOAK_CLIENT, std::to_string(requestsPerSecond).c_str(), nullptr));
  bttest::ThrowIfSet(error, "starting an application");
  return process;
}

}  // namespace

SoakClient::SoakClient(int requestsPerSecond, Hearer hearer)
    : m_hearer(std::move(hearer)),
      m_process(StartProcess(requestsPerSecond)),
      m_output(
          g_unix_input_stream_get_fd(G_UNIX_INPUT_STREAM(g_subprocess_get_stdout_pipe(m_process.get())))) {
  fcntl(m_output, F_SETFL, O_NONBLOCK);
}

SoakClient::~SoakClient() {
  if (!HasEnded()) {
    g_subprocess_force_exit(m_process.get());
  }
}

void SoakClient::Read() {
  std::array<char, 65536> bytes;
  for (ssize_t got = 0; (got = read(m_output, bytes.data(), bytes.size())) > 0;) {
    m_unread.append(bytes.data(), static_cast<std::size_t>(got));
  }
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = m_unread.find('\n', begin)) != std::string::npos; begin = end + 1) {
    Take(m_unread.substr(begin, end - begin));
  }
  m_unread.erase(0, begin);
}

void SoakClient::Take(const std::string& line) {
  const std::string kind = line.substr(0, line.find(' '));
  const std::string rest = kind == line ? "" : line.substr(kind.size() + 1);
  if (kind == "started") {
    m_hasStarted = true;
  } else if (kind == "mark") {
    std::sscanf(rest.c_str(), "%d %d", &m_mark.service, &m_mark.number);
  } else if (kind == "report") {
    m_report = Report::From(rest);
    m_hasReported = true;
  } else if (kind == "failed") {
    FailedRequest request;
    int length = 0;
    std::sscanf(rest.c_str(), "%" G_GINT64_FORMAT " %" G_GINT64_FORMAT " %n", &request.begin, &request.end,
                &length);
    request.text = rest.substr(static_cast<std::size_t>(length));
    ++m_failures;
    m_hearer.failed(request);
  } else {
    m_hearer.wrong(kind == "wrong" ? rest : line);
  }
}

void SoakClient::AskForReport() {
  m_hasReported = false;
  g_output_stream_write_all(g_subprocess_get_stdin_pipe(m_process.get()), "report\n", 7, nullptr, nullptr,
                            nullptr);
}

void SoakClient::Dismiss() {
  g_output_stream_close(g_subprocess_get_stdin_pipe(m_process.get()), nullptr, nullptr);
}

bool SoakClient::HasEnded() {
  bttest::RunPending();  // GLib learns of a process's end there
  return g_subprocess_get_identifier(m_process.get()) == nullptr;
}

bool SoakClient::HasEndedWell() const {
  return g_subprocess_get_if_exited(m_process.get()) && g_subprocess_get_exit_status(m_process.get()) == 0;
}

}  // namespace btsoak
