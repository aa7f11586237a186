#ifndef IPC_SERVICEERROR_H
#define IPC_SERVICEERROR_H

#include <gio/gio.h>

/// Holds the GError of one call.
class ServiceError {
 public:
  ServiceError() = default;
  ~ServiceError() { g_clear_error(&m_error); }
  ServiceError(const ServiceError&) = delete;
  ServiceError& operator=(const ServiceError&) = delete;

  /// For the call to put its error into.
  GError** Out() { return &m_error; }

  /// Sets an error of our own: why a call was not made.
  void Set(const char* reason) { g_set_error_literal(&m_error, G_IO_ERROR, G_IO_ERROR_FAILED, reason); }

  explicit operator bool() const { return m_error != nullptr; }

  const char* Message() const { return m_error != nullptr ? m_error->message : "unknown"; }

 private:
  GError* m_error = nullptr;
};

#endif
