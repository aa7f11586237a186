#ifndef QT_LOOPBRIDGE_H
#define QT_LOOPBRIDGE_H

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <btasync/PollLoop.h>

class QAbstractEventDispatcher;

namespace btqt {

/// Lets Qt's event loop run libbtasync where Qt's dispatcher is not GLib's (QT_NO_GLIB=1, or a Qt without
/// GLib). Before the dispatcher waits, it is given what libbtasync waits for: socket notifiers, and a timer
/// for what is due. No thread, and nothing that looks again and again.
class LoopBridge : public QObject {
  Q_OBJECT

 public:
  /// That of this thread, made if there is none. Null where Qt's dispatcher is GLib's, which needs no bridge.
  /// It lives as long as somebody holds it.
  static std::shared_ptr<LoopBridge> ofThisThread();

  ~LoopBridge() override;

  /// For btasync::Service.
  _GMainContext* context() const { return m_loop.Context(); }

 private:
  using Kind = std::pair<int, QSocketNotifier::Type>;  ///< a descriptor, and what is waited for
  using Notifiers = std::map<Kind, std::unique_ptr<QSocketNotifier>>;

  explicit LoopBridge(QAbstractEventDispatcher& dispatcher);
  /// Gives the dispatcher what to wait for.
  void arm();
  /// Calls what is due.
  void turn();
  void take(Notifiers& from, Notifiers& to, int descriptor, QSocketNotifier::Type type);

  btasync::PollLoop m_loop;
  std::vector<pollfd> m_descriptors;
  Notifiers m_notifiers;
  QTimer m_due;
  std::weak_ptr<LoopBridge> m_self;
};

}  // namespace btqt

#endif
