#include "Shots.h"

#include <QDir>
#include <QQuickWindow>
#include <QTextStream>
#include <QVariant>

namespace {

enum Page { PHONE, CONTACTS, MUSIC, SETTINGS };

constexpr int kLookMs = 250;
constexpr int kMostLooks = 120;        // half a minute, far more than it takes
constexpr int kMostLooksForRest = 12;  // three seconds: a countdown never comes to rest, and its end is near
constexpr int kBestCompression = 0;

}  // namespace

Shots::Shots(QQuickWindow& window, PhoneOnTheDesk& phone, const QString& directory)
    : m_window(window),
      m_bt(*window.property("bt").value<btqt::BtService*>()),
      m_phone(phone),
      m_directory(directory) {
  m_shots = {
      {QStringLiteral("phone"), [this] { open(PHONE); },
       [this] { return !m_bt.network()->phone().isEmpty() && m_bt.network()->signal() > 0; }},
      {QStringLiteral("contacts"), [this] { open(CONTACTS); },
       [this] { return m_bt.contacts()->count() > 0 && !isDownloading(); }},
      {QStringLiteral("music"),
       [this] {
         open(MUSIC);
         m_phone.play();
       },
       [this] { return m_bt.music()->state() == btqt::Music::Playing && m_bt.music()->position() > 0; }},
      {QStringLiteral("settings"), [this] { open(SETTINGS); },
       [this] { return m_bt.devices()->paired()->count() > 0; }},
      {QStringLiteral("pairing"), [this] { m_phone.bringAnother(); },
       [this] {
         const QString another = PhoneOnTheDesk::anotherAddress();
         if (m_bt.devices()->found()->rowOf(another) < 0) {
           // A search that has begun before it was brought does not find it.
           if (!m_bt.adapter()->isScanning()) {
             m_bt.adapter()->startScan();
           }
         } else if (m_bt.devices()->pairing().isEmpty()) {
           m_bt.devices()->pair(another);
         }
         return m_bt.devices()->question() != nullptr;
       }},
      {QStringLiteral("incoming-call"),
       [this] {
         m_bt.devices()->question()->reject();
         open(MUSIC);
         m_phone.ring(QStringLiteral("+49170000007"));
       },
       [this] {
         return m_bt.devices()->question() == nullptr && !m_bt.calls()->incoming().toMap().isEmpty();
       }},
  };
  connect(&m_timer, &QTimer::timeout, this, &Shots::look);
}

void Shots::open(int page) { m_window.setProperty("page", page); }

bool Shots::isDownloading() {
  const btqt::Download::State state = m_bt.download()->state();
  return state == btqt::Download::Connecting || state == btqt::Download::Downloading;
}

void Shots::take() {
  m_shots[m_place].prepare();
  m_timer.start(kLookMs);
}

void Shots::look() {
  const Shot& shot = m_shots[m_place];
  const bool isLast = ++m_looks == kMostLooks;
  if (m_bt.isFresh() && shot.isReady()) {
    const QImage image = m_window.grabWindow();
    if (image != m_before && ++m_looksForRest < kMostLooksForRest && !isLast) {
      m_before = image;
      return;
    }
    if (write(image, shot.name)) {
      next();
    } else {
      m_timer.stop();
      Q_EMIT finished(false);
    }
    return;
  }
  if (isLast) {
    m_timer.stop();
    QTextStream(stderr)
        << "headunit: there is nothing to draw for " << shot.name
        << "; the service on the bus has to be btservice, switched on, with a phone that is paired"
        << Qt::endl;
    Q_EMIT finished(false);
  }
}

bool Shots::write(const QImage& image, const QString& name) {
  const QString file = QDir(m_directory).filePath(name + QStringLiteral(".png"));
  if (!QDir().mkpath(m_directory) ||
      !image.convertToFormat(QImage::Format_RGB888).save(file, "PNG", kBestCompression)) {
    QTextStream(stderr) << "headunit: cannot write " << file << Qt::endl;
    return false;
  }
  QTextStream(stdout) << file << Qt::endl;
  return true;
}

void Shots::next() {
  m_looks = 0;
  m_looksForRest = 0;
  m_before = QImage();
  if (++m_place < m_shots.size()) {
    m_shots[m_place].prepare();
    return;
  }
  m_timer.stop();
  Q_EMIT finished(true);
}
