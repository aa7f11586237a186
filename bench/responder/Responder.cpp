#include "bench/responder/Responder.h"

#include <stdexcept>
#include <string>

#include "bench/harness/Programs.h"
#include "bench/responder/BenchInterface.h"
#include "protocol/BusNames.h"

Responder::Responder() : m_connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr)) {
  if (m_connection == nullptr) {
    throw std::runtime_error("there is no session bus; script/bench provides one");
  }
  m_process = StartProgram(
      "bt_bench_responder", {},
      static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE));
  char line[8] = {};
  if (g_input_stream_read(g_subprocess_get_stdout_pipe(m_process.get()), line, sizeof line, nullptr,
                          nullptr) <= 0) {
    throw std::runtime_error("the responder did not start");
  }
}

Responder::~Responder() {
  g_output_stream_close(g_subprocess_get_stdin_pipe(m_process.get()), nullptr, nullptr);  // ends it
  g_subprocess_wait(m_process.get(), nullptr, nullptr);
}

void Responder::Emit(const char* signal, GVariant* arguments, unsigned times) {
  Call("Emit", g_variant_new("(svu)", signal, arguments, times));
}

OwnedVariant Responder::FetchBook() { return Call("GetBook", nullptr); }

OwnedVariant Responder::Call(const char* method, GVariant* arguments) {
  OwnedError error;
  OwnedVariant reply(g_dbus_connection_call_sync(m_connection.get(), kServiceName, kBenchPath,
                                                 kBenchInterface, method, arguments, nullptr,
                                                 G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.Out()));
  if (reply == nullptr) {
    throw std::runtime_error(std::string("the responder: ") + error->message);
  }
  return reply;
}
