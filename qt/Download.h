#ifndef QT_DOWNLOAD_H
#define QT_DOWNLOAD_H

#include "Subject.h"

namespace btqt {

/// The download of phone book and call logs from the phone.
class BTASYNCQT_API Download : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.download is one")
  Q_PROPERTY(State state READ state NOTIFY stateChanged)
  /// What is downloaded.
  Q_PROPERTY(Type type READ type NOTIFY typeChanged)
  /// Progress, in entries.
  Q_PROPERTY(int done READ done NOTIFY doneChanged)
  Q_PROPERTY(int total READ total NOTIFY totalChanged)

 public:
  /// As btasync::PbapStatus.
  enum State {
    Idle,
    Connecting,
    Downloading,
    Completed,
    Stopped,  ///< by stop()
    Failed,
    Refused,  ///< the phone does not share its phone book
  };
  Q_ENUM(State)
  /// As btasync::PbapType.
  enum Type {
    PhoneBook,
    IncomingCalls,
    OutgoingCalls,
    MissedCalls,
    AllCalls,
    SimPhoneBook,
    Everything,
  };
  Q_ENUM(Type)

  explicit Download(BtService& service);

  State state() const { return m_state; }
  Type type() const { return m_type; }
  int done() const { return m_done; }
  int total() const { return m_total; }

  /// Downloads everything.
  Q_INVOKABLE void start(btqt::Operation* operation = nullptr);
  /// Downloads one thing.
  Q_INVOKABLE void startOnly(btqt::Download::Type type, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void stop(btqt::Operation* operation = nullptr);

 Q_SIGNALS:
  void stateChanged();
  void typeChanged();
  void doneChanged();
  void totalChanged();

 private:
  void show(const btasync::State& state, unsigned parts) override;

  State m_state = Idle;
  Type m_type = Everything;
  int m_done = 0;
  int m_total = 0;
};

}  // namespace btqt

#endif
