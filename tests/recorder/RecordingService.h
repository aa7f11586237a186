#ifndef TESTS_RECORDER_RECORDINGSERVICE_H
#define TESTS_RECORDER_RECORDINGSERVICE_H

#include <map>
#include <string>
#include <vector>

#include "glib/OwnedBus.h"

/// How one method is answered.
struct Answer {
  OwnedVariant reply;     ///< null: zeros
  unsigned failures = 0;  ///< so many further calls fail, with:
  std::string error;
  std::string message;
  bool isWrongType = false;
  bool hangs = false;
  bool dies = false;
  unsigned delay = 0;                              ///< in milliseconds
  std::vector<GDBusMethodInvocation*> unanswered;  ///< calls that hang
};

/// The object that is taken for the Bluetooth service: records what it is called with, and answers as it
/// is set up to.
class RecordingService {
 public:
  /// Exports the interface, which must outlive this.
  RecordingService(GDBusConnection* connection, GDBusInterfaceInfo* interface);
  RecordingService(const RecordingService&) = delete;
  RecordingService& operator=(const RecordingService&) = delete;

  /// How the method is answered; null if the interface does not describe it.
  Answer* AnswerOf(const char* method);
  /// Answers the calls that hang, and no longer hangs.
  void Release(const char* method);
  void Reset();

  /// A floating a(sv); the calls are forgotten.
  GVariant* TakeCalls();
  unsigned CallCount() const { return static_cast<unsigned>(m_calls.size()); }

  /// Sends a signal, described or not.
  void Emit(const char* signal, GVariant* arguments);

  GDBusInterfaceInfo* Interface() const { return m_interface; }

 private:
  struct Call {
    std::string method;
    OwnedVariant arguments;
  };

  static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                     GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self);
  void Take(const char* method, GVariant* arguments, GDBusMethodInvocation* invocation);
  void Respond(GDBusMethodInvocation* invocation);
  void SendWrongType(GDBusMethodInvocation* invocation);

  GDBusConnection* const m_connection;
  GDBusInterfaceInfo* const m_interface;
  std::vector<Call> m_calls;
  std::map<std::string, Answer> m_answers;
};

/// The signature of a tuple of the arguments.
std::string TupleSignature(GDBusArgInfo** arguments);

#endif
