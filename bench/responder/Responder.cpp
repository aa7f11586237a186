#include "bench/responder/Responder.h"

#include <stdexcept>

#include "bench/harness/Programs.h"
#include "bench/responder/BenchInterface.h"
#include "protocol/BusNames.h"

Responder::Responder() {
  m_connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (m_connection == nullptr) {
    throw std::runtime_error("there is no session bus; script/bench provides one");
  }
  m_process = StartProgram(
      "bt_bench_responder", {},
      static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE));
  char line[8] = {};
  if (g_input_stream_read(g_subprocess_get_stdout_pipe(m_process), line, sizeof line, nullptr, nullptr) <=
      0) {
    throw std::runtime_error("the responder did not start");
  }
}

Responder::~Responder() {
  g_output_stream_close(g_subprocess_get_stdin_pipe(m_process), nullptr, nullptr);  // ends it
  g_subprocess_wait(m_process, nullptr, nullptr);
  g_object_unref(m_process);
  g_object_unref(m_connection);
}

void Responder::Emit(const char* signal, GVariant* arguments, unsigned times) {
  g_variant_unref(Call("Emit", g_variant_new("(svu)", signal, arguments, times)));
}

GVariant* Responder::FetchBook() { return Call("GetBook", nullptr); }

GVariant* Responder::Call(const char* method, GVariant* arguments) {
  GError* error = nullptr;
  GVariant* const reply =
      g_dbus_connection_call_sync(m_connection, kServiceName, kBenchPath, kBenchInterface, method, arguments,
                                  nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, &error);
  if (reply == nullptr) {
    const std::string reason = error->message;
    g_error_free(error);
    throw std::runtime_error("the responder: " + reason);
  }
  return reply;
}
