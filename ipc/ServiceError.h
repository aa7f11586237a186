#ifndef IPC_SERVICEERROR_H
#define IPC_SERVICEERROR_H

#include <gio/gio.h>

#include "glib/Owned.h"

/// Sets an error of our own: why a call was not made.
inline void SetReason(OwnedError& error, const char* reason) {
  error.reset(g_error_new_literal(G_IO_ERROR, G_IO_ERROR_FAILED, reason));
}

/// Why a call failed, for the log.
inline const char* Reason(const OwnedError& error) { return error ? error->message : "unknown"; }

#endif
