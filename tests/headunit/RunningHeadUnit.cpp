#include "RunningHeadUnit.h"

#include <QTest>

namespace {

constexpr int kBoundMs = 30000;

QQuickItem* findIn(QQuickItem& item, const QString& name) {
  if (!item.isVisible()) {
    return nullptr;
  }
  if (item.objectName() == name) {
    return &item;
  }
  const auto children = item.childItems();
  for (QQuickItem* const child : children) {
    if (QQuickItem* const found = findIn(*child, name)) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace

RunningHeadUnit::RunningHeadUnit(const QString& world, const Wishes& wishes)
    : m_world(world), m_application(wishes) {
  m_service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  startService();
  m_application.show();
}

RunningHeadUnit::~RunningHeadUnit() {
  m_service.terminate();
  m_service.waitForFinished();
}

void RunningHeadUnit::startService() {
  m_service.start(QStringLiteral("/app/bin/btservice"),
                  {QStringLiteral("--no-state"), QStringLiteral("--world"), m_world,
                   QStringLiteral("--speed"), QStringLiteral("10")});
}

void RunningHeadUnit::killService() {
  m_service.kill();
  m_service.waitForFinished();
}

QQuickItem* RunningHeadUnit::find(const QString& name) { return findIn(*window().contentItem(), name); }

bool RunningHeadUnit::waitFor(const std::function<bool()>& condition) {
  return QTest::qWaitFor(condition, kBoundMs);
}

bool RunningHeadUnit::tap(const QString& name) {
  QQuickItem* item = nullptr;
  if (!waitFor([&] {
        item = find(name);
        return item != nullptr && item->isEnabled() && item->width() > 0;
      })) {
    return false;
  }
  const QPointF middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
  QTest::mouseClick(&window(), Qt::LeftButton, Qt::NoModifier, middle.toPoint());
  return true;
}
