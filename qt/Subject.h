#ifndef QT_SUBJECT_H
#define QT_SUBJECT_H

#include <QObject>
#include <QQmlEngine>
#include <utility>

#include <btasync/Service.h>
#include <btasync/State.h>

#include "Export.h"
#include "Operation.h"

namespace btqt {

class BtService;
template <typename Object>
class Changes;

/// One subject of a BtService: the adapter, the calls. It is made when it is first asked for, and from then
/// on its parts of the state are kept. What it shows changes when the service reports it, not when something
/// was asked for.
///
/// Functions that ask for something take an Operation last, to follow what comes of it; without one, nobody
/// hears of the answer.
class BTASYNCQT_API Subject : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  /// What is shown is what the service that is there says. Else draw it greyed.
  Q_PROPERTY(bool fresh READ isFresh NOTIFY freshChanged)

 public:
  bool isFresh() const { return m_isFresh; }

 Q_SIGNALS:
  void freshChanged();

 protected:
  /// parts: those of btasync::State that it shows. The maker shows what is known already.
  Subject(BtService& service, unsigned parts);

  BtService& owner() const { return m_owner; }
  btasync::Service& service() const;
  const btasync::State& now() const;
  /// One of its parts has changed.
  virtual void show(const btasync::State& state, unsigned parts) = 0;

  template <typename Object>
  void setFresh(Changes<Object>& changes, bool isFresh) {
    changes.set(m_isFresh, isFresh, &Object::freshChanged);
  }
  /// Sends a btasync::Request or Outcome; operation may be null.
  template <typename Asked>
  void ask(Asked asked, Operation* operation) {
    btqt::ask(*this, std::move(asked), operation);
  }

 private:
  friend class BtService;

  BtService& m_owner;
  unsigned m_parts;
  bool m_isFresh = false;
};

}  // namespace btqt

#endif
