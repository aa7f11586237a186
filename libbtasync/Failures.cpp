#include "libbtasync/Failures.h"

#include "glib/Owned.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

Reason ReasonOf(const GError& error, bool isRemote) {
  if (error.domain == G_DBUS_ERROR) {
    switch (error.code) {
      case G_DBUS_ERROR_SERVICE_UNKNOWN:
      case G_DBUS_ERROR_NAME_HAS_NO_OWNER:
      case G_DBUS_ERROR_SPAWN_EXEC_FAILED:
      case G_DBUS_ERROR_SPAWN_FORK_FAILED:
      case G_DBUS_ERROR_SPAWN_CHILD_EXITED:
      case G_DBUS_ERROR_SPAWN_CHILD_SIGNALED:
      case G_DBUS_ERROR_SPAWN_FAILED:
      case G_DBUS_ERROR_SPAWN_SETUP_FAILED:
      case G_DBUS_ERROR_SPAWN_CONFIG_INVALID:
      case G_DBUS_ERROR_SPAWN_SERVICE_INVALID:
      case G_DBUS_ERROR_SPAWN_SERVICE_NOT_FOUND:
      case G_DBUS_ERROR_SPAWN_PERMISSIONS_INVALID:
      case G_DBUS_ERROR_SPAWN_FILE_INVALID:
      case G_DBUS_ERROR_SPAWN_NO_MEMORY:
        return Reason::NoService;
      case G_DBUS_ERROR_NO_REPLY:  // the bus says so when the service leaves
        return Reason::ServiceGone;
      case G_DBUS_ERROR_DISCONNECTED:
        return Reason::NoBus;
      default:
        return Reason::ServiceError;
    }
  }
  if (isRemote) {
    return Reason::ServiceError;
  }
  if (error.domain == G_IO_ERROR && error.code == G_IO_ERROR_TIMED_OUT) {
    return Reason::TimedOut;
  }
  if (error.domain == G_IO_ERROR && error.code == G_IO_ERROR_INVALID_ARGUMENT) {
    return Reason::InvalidArgument;
  }
  return Reason::NoBus;
}

}  // namespace

Failure ToFailure(const GError& error) {
  const OwnedText remote(g_dbus_error_get_remote_error(&error));
  const OwnedError stripped(g_error_copy(&error));
  g_dbus_error_strip_remote_error(stripped.get());
  Failure failure{ReasonOf(error, remote != nullptr), ""};
  if (remote != nullptr) {
    failure.detail = std::string(remote.get()) + ": ";
  }
  failure.detail += stripped->message;
  return failure;
}

}  // namespace detail

const char* ToText(Reason reason) {
  switch (reason) {
    case Reason::NoBus:
      return "no bus";
    case Reason::NoService:
      return "no service";
    case Reason::ServiceGone:
      return "service gone";
    case Reason::TimedOut:
      return "timed out";
    case Reason::Cancelled:
      return "cancelled";
    case Reason::ServiceError:
      return "service error";
    case Reason::Malformed:
      return "malformed";
    case Reason::InvalidArgument:
      return "invalid argument";
  }
  return "unknown";
}

}  // namespace v0
}  // namespace btasync
