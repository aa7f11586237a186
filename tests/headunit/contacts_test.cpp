// Contacts: searched, scrolled, called, and downloaded; favourites and the last calls.

#include <QSet>

#include "HeadUnitTest.h"
#include "RunningHeadUnit.h"

namespace {

constexpr int kManyContacts = 5000;
constexpr int kMostDelegates = 60;  // some screens full; what is made for each contact would be thousands

// Of those that are made up.
constexpr int kAdaArndt = 1;  // with four numbers
constexpr int kBenBaker = 2;  // with one

const QString kList = QStringLiteral("entries");

}  // namespace

class ContactsTest : public HeadUnitTest {
  Q_OBJECT

 private Q_SLOTS:
  void contactsAreSearched();
  void fiveThousandContactsAreSearched();
  void fiveThousandContactsAreScrolled();
  void aContactBecomesAFavourite();
  void aContactAndACallerAreCalled();
  void whichNumberOfAContactIsChosen();
  void theDownloadShowsItsProgressAndIsStopped();

 private:
  /// The first contact of the model, by the name of its row on the screen.
  static QString firstContact(RunningHeadUnit& unit);
  /// Whether that number is called; ends the call, on the first page.
  static bool isCalled(RunningHeadUnit& unit, const QVariant& number);
  static QVariantList numbersOf(RunningHeadUnit& unit, int contactId);
  /// What is wrong with the rows that the list shows; empty if each shows its contact, one below the other.
  static QString faultOfRows(RunningHeadUnit& unit, QSet<int>& seen);
};

QString ContactsTest::firstContact(RunningHeadUnit& unit) {
  return QStringLiteral("contact ") +
         unit.bt().contacts()->model()->get(0)[QStringLiteral("contactId")].toString();
}

bool ContactsTest::isCalled(RunningHeadUnit& unit, const QVariant& number) {
  btqt::Calls& calls = *unit.bt().calls();
  const bool isIt = unit.waitFor([&] { return calls.model()->count() == 1; }) &&
                    calls.model()->get(0)[QStringLiteral("number")] == number;
  unit.open(PHONE);
  return isIt && unit.tap(QStringLiteral("hangUp")) && unit.waitFor([&] { return calls.count() == 0; });
}

QVariantList ContactsTest::numbersOf(RunningHeadUnit& unit, int contactId) {
  btqt::RowsModel& model = *unit.bt().contacts()->model();
  return model.get(model.rowOf(QString::number(contactId)))[QStringLiteral("numbers")].toList();
}

QString ContactsTest::faultOfRows(RunningHeadUnit& unit, QSet<int>& seen) {
  btqt::RowsModel& model = *unit.bt().contacts()->model();
  QMap<qreal, int> rows;  // of the model, by their place on the screen
  const QQuickItem& list = *unit.find(kList);
  const qreal top = list.property("contentY").toReal();
  const auto delegates = list.property("contentItem").value<QQuickItem*>()->childItems();
  if (delegates.size() > kMostDelegates) {
    return QStringLiteral("%1 rows are made").arg(delegates.size());
  }
  for (const QQuickItem* const delegate : delegates) {
    // The list keeps its current row, wherever it has been scrolled to.
    const bool isInView = delegate->y() + delegate->height() > top && delegate->y() < top + list.height();
    if (!isInView || !delegate->objectName().startsWith(QStringLiteral("contact "))) {
      continue;
    }
    const int row = model.rowOf(delegate->property("contactId").toString());
    const QString name = delegate->property("name").toString();
    if (name.isEmpty() || model.get(row)[QStringLiteral("name")].toString() != name) {
      return QStringLiteral("row %1 shows '%2'").arg(row).arg(name);
    }
    rows.insert(delegate->y(), row);
    seen.insert(row);
  }
  if (rows.isEmpty()) {
    return QStringLiteral("there is no row in view");
  }
  const QList<int> inOrder = rows.values();
  for (int place = 1; place < inOrder.size(); ++place) {
    if (inOrder[place] != inOrder[place - 1] + 1) {
      return QStringLiteral("row %1 is below row %2").arg(inOrder[place]).arg(inOrder[place - 1]);
    }
  }
  return QString();
}

void ContactsTest::contactsAreSearched() {
  RunningHeadUnit unit;
  unit.open(CONTACTS);
  btqt::RowsModel& model = *unit.bt().contacts()->model();
  QVERIFY(unit.waitFor([&] { return model.count() == 30; }));
  const QString name = model.get(17)[QStringLiteral("name")].toString();
  QVERIFY(unit.tap(QStringLiteral("search")));
  for (const QChar letter : name.toLower()) {
    QTest::keyClick(&unit.window(), letter.toLatin1());
  }
  QVERIFY(unit.waitFor([&] { return model.count() < 30; }));
  QCOMPARE(model.get(0)[QStringLiteral("name")].toString(), name);
  QTest::keyClick(&unit.window(), 'x');
  QVERIFY(unit.waitFor([&] { return model.count() == 0; }));
  QVERIFY(unit.waitFor([&] {
    return unit.text(QStringLiteral("nobody")) == QStringLiteral("Nobody with that name or number");
  }));
}

void ContactsTest::fiveThousandContactsAreSearched() {
  RunningHeadUnit unit(QStringLiteral("big-phonebook"));
  unit.open(CONTACTS);
  btqt::RowsModel& model = *unit.bt().contacts()->model();
  QVERIFY(unit.waitFor([&] { return model.count() == kManyContacts; }));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("progress")); }));
  QVERIFY(unit.tap(QStringLiteral("search")));
  // Each letter leaves no more than there were, and what is in view is what was found.
  int before = kManyContacts;
  for (const char* letter = "hiro gr"; *letter != 0; ++letter) {
    QTest::keyClick(&unit.window(), *letter);
    QVERIFY(model.count() > 0);
    QVERIFY(model.count() <= before);
    before = model.count();
    QSet<int> seen;
    QVERIFY(unit.waitForFrames(1, [] { return true; }));
    QCOMPARE(faultOfRows(unit, seen), QString());
    QVERIFY(seen.contains(0));
  }
  QVERIFY(model.count() < kManyContacts / 100);
  for (int row = 0; row < model.count(); ++row) {
    const QString name = model.get(row)[QStringLiteral("name")].toString();
    QVERIFY2(name.startsWith(QStringLiteral("Hiro Gr")), qPrintable(name));
  }
  // Without it, all of them are there again, in their order.
  QVERIFY(unit.tap(QStringLiteral("search")));
  QTest::keySequence(&unit.window(), QKeySequence::SelectAll);
  QTest::keyClick(&unit.window(), Qt::Key_Backspace);
  QCOMPARE(model.count(), kManyContacts);
  QSet<int> seen;
  QVERIFY(unit.waitForFrames(1, [] { return true; }));
  QCOMPARE(faultOfRows(unit, seen), QString());
}

void ContactsTest::fiveThousandContactsAreScrolled() {
  RunningHeadUnit unit(QStringLiteral("big-phonebook"));
  unit.open(CONTACTS);
  QVERIFY(unit.waitFor([&] { return unit.bt().contacts()->model()->count() == kManyContacts; }));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("progress")); }));
  QVERIFY(unit.waitFor([&] { return unit.shows(kList); }));
  QQuickItem* const list = unit.find(kList);

  // A finger drags the list up.
  const QPoint from = list->mapToScene(QPointF(list->width() / 4, list->height() * 3 / 4)).toPoint();
  QTest::mousePress(&unit.window(), Qt::LeftButton, Qt::NoModifier, from);
  for (int moved = 20; moved <= 200; moved += 20) {
    QTest::mouseMove(&unit.window(), from - QPoint(0, moved));
  }
  QTest::mouseRelease(&unit.window(), Qt::LeftButton, Qt::NoModifier, from - QPoint(0, 200));
  QVERIFY(unit.waitFor([&] { return list->property("contentY").toReal() > 0; }));
  QVERIFY(unit.waitFor([&] { return !list->property("moving").toBool(); }));

  // Down to the last one, some screens at a time: at each place the rows are those of the model.
  QSet<int> seen;
  for (int row = 0; row < kManyContacts; row += 50) {
    QVERIFY(QMetaObject::invokeMethod(list, "positionViewAtIndex", Q_ARG(int, row), Q_ARG(int, 0)));
    QVERIFY(unit.waitForFrames(1, [] { return true; }));
    const QString fault = faultOfRows(unit, seen);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
    QVERIFY2(seen.contains(row), qPrintable(QString::number(row)));
  }
  QVERIFY(QMetaObject::invokeMethod(list, "positionViewAtEnd"));
  QVERIFY(unit.waitForFrames(1, [] { return true; }));
  QCOMPARE(faultOfRows(unit, seen), QString());
  QVERIFY(seen.contains(kManyContacts - 1));
}

void ContactsTest::aContactBecomesAFavourite() {
  RunningHeadUnit unit;
  unit.open(CONTACTS);
  btqt::Contacts& contacts = *unit.bt().contacts();
  QVERIFY(unit.waitFor([&] { return contacts.model()->count() == 30 && contacts.isFresh(); }));
  QVERIFY(unit.tap(QStringLiteral("list1")));
  QVERIFY(unit.waitFor(
      [&] { return unit.text(QStringLiteral("nobody")) == QStringLiteral("No favourites yet"); }));
  QVERIFY(unit.tap(QStringLiteral("list0")));
  const QString first = firstContact(unit);
  QVERIFY(unit.tap(first + QStringLiteral("/favourite")));
  QVERIFY(unit.waitFor([&] { return contacts.favourites()->count() == 1; }));
  QVERIFY(unit.tap(QStringLiteral("list1")));
  QVERIFY(unit.waitFor([&] { return unit.shows(first); }));
  QVERIFY(unit.tap(first + QStringLiteral("/favourite")));
  QVERIFY(unit.waitFor([&] { return contacts.favourites()->count() == 0 && !unit.shows(first); }));
}

void ContactsTest::aContactAndACallerAreCalled() {
  RunningHeadUnit unit;
  unit.open(CONTACTS);
  QVERIFY(unit.waitFor([&] { return unit.bt().contacts()->model()->count() == 30; }));
  QVERIFY(unit.waitForPhone());
  const QVariantList numbers = numbersOf(unit, kBenBaker);
  QCOMPARE(numbers.size(), 1);
  QVERIFY(unit.tap(QStringLiteral("contact %1/callContact").arg(kBenBaker)));
  QVERIFY(isCalled(unit, numbers[0].toMap()[QStringLiteral("number")]));

  unit.open(CONTACTS);
  QVERIFY(unit.tap(QStringLiteral("list2")));
  QVERIFY(unit.waitFor([&] { return unit.bt().callLogs()->all()->count() > 0; }));
  const QVariantMap log = unit.bt().callLogs()->all()->get(0);
  QVERIFY(unit.tap(QStringLiteral("log %1/callBack").arg(log[QStringLiteral("logId")].toString())));
  QVERIFY(isCalled(unit, log[QStringLiteral("number")]));
}

void ContactsTest::whichNumberOfAContactIsChosen() {
  RunningHeadUnit unit;
  unit.open(CONTACTS);
  QVERIFY(unit.waitFor([&] { return unit.bt().contacts()->model()->count() == 30; }));
  QVERIFY(unit.waitForPhone());
  const QVariantList numbers = numbersOf(unit, kAdaArndt);
  QCOMPARE(numbers.size(), 4);
  QVERIFY(unit.tap(QStringLiteral("contact %1/callContact").arg(kAdaArndt)));
  const char* const kinds[] = {"Mobile", "Home", "Work", "Work"};
  for (int i = 0; i < 4; ++i) {
    QVERIFY(unit.wait(QStringLiteral("number %1").arg(i)) != nullptr);
    QCOMPARE(unit.text(QStringLiteral("number %1/kind").arg(i)), QLatin1String(kinds[i]));
  }
  QVERIFY(unit.tap(QStringLiteral("callNobody")));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("number 0")); }));
  QCOMPARE(unit.bt().calls()->count(), 0);

  QVERIFY(unit.tap(QStringLiteral("contact %1/callContact").arg(kAdaArndt)));
  QVERIFY(unit.tap(QStringLiteral("number 3")));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("number 0")); }));
  QVERIFY(isCalled(unit, numbers[3].toMap()[QStringLiteral("number")]));
}

void ContactsTest::theDownloadShowsItsProgressAndIsStopped() {
  RunningHeadUnit unit(QStringLiteral(HEADUNIT_SLOW_DOWNLOAD_WORLD));
  unit.open(CONTACTS);
  btqt::Download& download = *unit.bt().download();
  // It begins by itself when the phone has connected.
  QVERIFY(unit.waitFor([&] { return download.done() > 0; }));
  QVERIFY(unit.shows(QStringLiteral("progress")));
  QCOMPARE(unit.text(QStringLiteral("downloaded")), QStringLiteral("%1 / 25000").arg(download.done()));
  const int before = download.done();
  QVERIFY(unit.waitFor([&] { return download.done() > before; }));
  const QQuickItem* const bar = unit.find(QStringLiteral("progressDone"));
  QVERIFY(bar != nullptr && bar->width() > 0 && bar->width() < bar->parentItem()->width());
  QCOMPARE(unit.text(QStringLiteral("download")), QStringLiteral("Stop"));

  QVERIFY(unit.tap(QStringLiteral("download")));
  QVERIFY(unit.waitFor([&] { return download.state() == btqt::Download::Stopped; }));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("progress")); }));
  QCOMPARE(unit.text(QStringLiteral("download")), QStringLiteral("Update"));

  QVERIFY(unit.tap(QStringLiteral("download")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("progress")) && download.done() > 0; }));
}

QTEST_MAIN(ContactsTest)
#include "contacts_test.moc"
