#include "Application.h"

#include <QFont>
#include <QQuickStyle>
#include <QQuickWindow>

Application::Application(const Wishes& wishes) : m_wishes(wishes) {
  QQuickStyle::setStyle(QStringLiteral("Basic"));
  QGuiApplication::setFont(QFont(QStringLiteral("DejaVu Sans")));
  if (wishes.pseudo) {
    QCoreApplication::installTranslator(&m_translator);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  }
}

QQuickWindow& Application::window() const {
  return *qobject_cast<QQuickWindow*>(m_engine.rootObjects().constFirst());
}

bool Application::show() {
  m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
  m_engine.addImportPath(QStringLiteral(BT_QML_DIR));  // where BtAsync has been built
  m_engine.setInitialProperties({{QStringLiteral("withPhone"), m_wishes.withPhone},
                                 {QStringLiteral("dark"), !m_wishes.light},
                                 {QStringLiteral("mirrored"), m_wishes.pseudo},
                                 {QStringLiteral("phone"), QVariant::fromValue(&m_phone)}});
  m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/HeadUnit/qml/Main.qml")));
  if (m_engine.rootObjects().isEmpty()) {
    return false;
  }
  if (!m_wishes.shots.isEmpty()) {
    m_shots = std::make_unique<Shots>(window(), m_phone, m_wishes.shots);
    connect(m_shots.get(), &Shots::finished, this,
            [](bool success) { QCoreApplication::exit(success ? EXIT_SUCCESS : EXIT_FAILURE); });
    m_shots->take();
  }
  return true;
}
