#ifndef TESTS_RECORDER_RECORDERCONTROL_H
#define TESTS_RECORDER_RECORDERCONTROL_H

#include "recorder/RecordingService.h"

/// The object through which a test drives the recording service.
class RecorderControl {
 public:
  /// Exports the interface, which must outlive this. Quit ends loop.
  RecorderControl(GDBusConnection* connection, GDBusInterfaceInfo* interface, RecordingService& service,
                  GMainLoop* loop);
  RecorderControl(const RecorderControl&) = delete;
  RecorderControl& operator=(const RecorderControl&) = delete;

  /// Takes the bus name of the Bluetooth service. Throws if it cannot be had.
  void OwnName();

 private:
  static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                     GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self);
  /// Does what is asked and returns the reply, null for an empty one. Throws what should be answered as an
  /// error.
  GVariant* Do(const std::string& method, GVariant* arguments);
  GVariant* Emit(GVariant* arguments);
  GVariant* SetReply(GVariant* arguments);
  Answer& AnswerOf(GVariant* arguments);
  unsigned CallBus(const char* method, GVariant* arguments);
  void ReleaseName();

  GDBusConnection* const m_connection;
  RecordingService& m_service;
  GMainLoop* const m_loop;
};

#endif
