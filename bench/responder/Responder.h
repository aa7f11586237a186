#ifndef BENCH_RESPONDER_RESPONDER_H
#define BENCH_RESPONDER_RESPONDER_H

#include <gio/gio.h>

#include "glib/Owned.h"

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
  /// Fetches the phone book as one message.
  OwnedVariant FetchBook();

 private:
  OwnedVariant Call(const char* method, GVariant* arguments);

  OwnedObject<GDBusConnection> m_connection;  // the one that the library uses
  OwnedObject<GSubprocess> m_process;
};

#endif
