#ifndef QT_CALLLOGS_H
#define QT_CALLLOGS_H

#include "RowsModel.h"
#include "Subject.h"

namespace btqt {

/// The call logs of the connected phone.
class BTASYNCQT_API CallLogs : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.callLogs is one")
  /// Models in the service's order, by logId. Roles: logId, type (Type), name (empty if it is not known),
  /// number, date (2026-05-31), time (18:05:00), seconds (0 if nobody answered), contactId (-1 if there is
  /// none).
  Q_PROPERTY(btqt::RowsModel* all READ all CONSTANT)
  Q_PROPERTY(btqt::RowsModel* incoming READ incoming CONSTANT)
  Q_PROPERTY(btqt::RowsModel* outgoing READ outgoing CONSTANT)
  Q_PROPERTY(btqt::RowsModel* missed READ missed CONSTANT)

 public:
  /// As CallLogType.
  enum Type { All, Incoming, Outgoing, Missed };
  Q_ENUM(Type)

  explicit CallLogs(BtService& service);

  RowsModel* all() const;
  RowsModel* incoming() const;
  RowsModel* outgoing() const;
  RowsModel* missed() const;

  /// Deletes an entry.
  Q_INVOKABLE void remove(int logId, btqt::Operation* operation = nullptr);
  /// Deletes a log.
  Q_INVOKABLE void clear(btqt::CallLogs::Type type, btqt::Operation* operation = nullptr);

 private:
  using Model = KeyedModel<MWPTypeCallLog>;

  void show(const btasync::State& state, unsigned parts) override;
  Model* makeModel();

  Model* m_all;
  Model* m_incoming;
  Model* m_outgoing;
  Model* m_missed;
};

}  // namespace btqt

#endif
