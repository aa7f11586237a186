#ifndef BENCH_RESPONDER_RESPONDER_H
#define BENCH_RESPONDER_RESPONDER_H

#include <gio/gio.h>

/// The process at the other side of the benchmarks, for as long as this object lives. Whatever fails here
/// throws std::runtime_error.
class Responder {
 public:
  /// Starts the process and waits until it has the service's name.
  Responder();
  ~Responder();
  Responder(const Responder&) = delete;
  Responder& operator=(const Responder&) = delete;

  /// Has a signal of the service sent many times. When this returns, all of them wait in the main context of
  /// the calling thread, if it is subscribed there: they came before the answer, over the same connection.
  void Emit(const char* signal, GVariant* arguments, unsigned times);
  /// Fetches the phone book as one message. The caller owns it.
  GVariant* FetchBook();

 private:
  GVariant* Call(const char* method, GVariant* arguments);

  GSubprocess* m_process;
  GDBusConnection* m_connection;  // the one that the library uses
};

#endif
