#ifndef IPC_SERVICECALL_H
#define IPC_SERVICECALL_H

#include <cstddef>
#include <cstring>
#include <new>
#include <string>

#include <bluetooth/MWPBtRecords.h>
#include <mwp/MWPLog.h>

#include "glib/Owned.h"
#include "ipc/BtProxy.h"
#include "ipc/D-Bus/bt_variant.h"
#include "ipc/ServiceError.h"

// One synchronous call of the Bluetooth service, as every request of the adapter makes it: refuse what cannot
// travel, call, log a failure. A call that is not made fails like one that is: GLib would end a process that
// passes it a null proxy under its stricter settings, and would send a placeholder for text that is not
// UTF-8.
//
// Nearly all requests are one line, which names the type of the service's answer, the generated function, and
// how each argument travels. The longer ones at the end of a section are those that do more, or log another
// text than the rest: log analysis knows these texts. Its lines name one source for all of them.

/// The place where it stands, for the log lines of a request that is carried out elsewhere. Needs
/// MWP_LOG_SOURCE, as MWP_LOG does.
#define BT_REQUEST_SITE \
  MWPLogSite { MWP_LOG_SOURCE, __func__, __LINE__ }

/// The arguments with which a request names a generated function to CallService and its kin: where the
/// request stands, the name under which a failure is logged, and the function. BT_CALL_AS is for the
/// functions that log analysis knows under another name.
#define BT_CALL(stem) BT_CALL_AS("com_zelk_linux_bluetooth_call_" #stem "_sync", stem)
#define BT_CALL_AS(name, stem) BT_REQUEST_SITE, name, com_zelk_linux_bluetooth_call_##stem##_sync

/// Largest body of a D-Bus message, with room for its header.
constexpr std::size_t kMaxMessageBytes = (std::size_t{128} << 20) - 4096;
/// Largest array of bytes in a D-Bus message.
constexpr std::size_t kMaxArrayBytes = std::size_t{64} << 20;

inline bool IsText(const char* text) { return g_utf8_validate(text, -1, nullptr) != FALSE; }
template <typename Other>
bool IsText(const Other&) {
  return true;
}

inline std::size_t BodyBytes(const char* text) { return std::strlen(text); }
inline std::size_t BodyBytes(GVariant* variant) { return g_variant_get_size(variant); }
template <typename Other>
std::size_t BodyBytes(const Other&) {
  return 0;
}

/// Calls a generated function with its arguments between the proxy and the cancellable: those in, then the
/// addresses of those out. Leaves the latter as they are on failure.
template <typename Function, typename... Args>
void CallSilently(OwnedError& error, Function call, Args... args) {
  if (g_BtProxy == nullptr) {
    SetReason(error, "there is no connection to the Bluetooth service");
  } else if (!(IsText(args) && ...)) {
    SetReason(error, "a text argument is not valid UTF-8");
  } else if ((BodyBytes(args) + ... + 0) > kMaxMessageBytes) {
    SetReason(error, "the arguments are too large for a D-Bus message");
  } else {
    call(g_BtProxy, args..., nullptr, error.Out());
  }
}

/// Logs a failed call, as a line of the request.
inline void LogFailure(const MWPLogSite& site, const char* name, const OwnedError& error) {
  if (error) {
    MWPLogWrite(site, MWP_LOG_ERROR, "%s: Failed to call dbus method. Reason: %s.", name, Reason(error));
  }
}

/// As CallSilently, and logs a failure. Returns false on failure.
template <typename Function, typename... Args>
bool CallService(const MWPLogSite& site, const char* name, Function call, Args... args) {
  OwnedError error;
  CallSilently(error, call, args...);
  LogFailure(site, name, error);
  return !error;
}

/// As CallService, for a function with one value out: answers it, or 0 on failure. Out is the type that the
/// interface gives the value.
template <typename Out, typename Function, typename... In>
int CallForResult(const MWPLogSite& site, const char* name, Function call, In... in) {
  Out result = 0;
  CallService(site, name, call, in..., &result);
  return static_cast<int>(result);
}

/// What the interface carries as a byte is cut to one.
template <typename Value>
guchar AsByte(Value value) {
  return static_cast<guchar>(static_cast<int>(value) & 255);
}

/// A text that a generated function hands out to the request at site. A missing one reads as empty.
class OutText {
 public:
  explicit OutText(const MWPLogSite& site) : m_site(site) {}

  gchar** Out() { return m_text.Out(); }
  bool IsMissing() const { return m_text == nullptr; }

  /// A copy of the text; empty, with an error in the log, if there is no memory for one.
  std::string Text() const {
    try {
      return m_text != nullptr ? m_text.get() : "";
    } catch (const std::bad_alloc&) {
      MWPLogWrite(m_site, MWP_LOG_ERROR, "there is no memory for a text of the service's answer");
      return std::string();
    }
  }

 private:
  const MWPLogSite m_site;
  OwnedText m_text;
};

/// Calls a function that takes an address and a variant of bytes. Bytes that cannot travel are not sent.
template <typename Function>
void CallWithBytes(const MWPLogSite& site, const char* name, Function call, const std::string& address,
                   const void* data, std::size_t size, gboolean* result) {
  if (size > kMaxArrayBytes || (data == nullptr && size > 0)) {
    OwnedError error;
    SetReason(error, data == nullptr ? "there is no buffer"
                                     : "the buffer is larger than the 64 MiB that D-Bus carries");
    LogFailure(site, name, error);
    return;
  }
  const OwnedVariant bytes(bt_build_variant_data(const_cast<void*>(data), static_cast<int>(size)));
  CallService(site, name, call, address.c_str(), bytes.get(), result);
}

/// Asks for a connection state. A failure is not logged.
template <typename Function>
MWPTypeConnectionState AskConnectionState(const MWPLogSite& site, Function call) {
  OwnedError ignored;
  guchar status = 0;
  OutText address(site);
  CallSilently(ignored, call, &status, address.Out());
  MWPTypeConnectionState state;
  state.status = status;
  state.address = address.Text();
  return state;
}

#endif
