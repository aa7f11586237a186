// The rows of a model: what is reported when the list turns into another one.

#include <QSignalSpy>
#include <QTest>
#include <random>

#include "KeyedModel.h"
#include "RowsWatch.h"

namespace {

struct Item {
  QString key;
  int value;
};

using Model = btqt::KeyedModel<Item>;

/// "a b=2 c": the value is 0 unless it is named.
std::vector<Model::RowPointer> rowsOf(const QString& text) {
  std::vector<Model::RowPointer> rows;
  for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    const QStringList halves = word.split(QLatin1Char('='));
    rows.push_back(std::make_shared<const Item>(Item{halves[0], halves.value(1).toInt()}));
  }
  return rows;
}

class ModelsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void reportsTheFewestChanges_data();
  void reportsTheFewestChanges();
  void reportsOnlyTheRolesThatChanged();
  void keepsRowsThatHaveTheSameKeyApart();
  void findsRowsAndTheirValues();
  void isInStepOverAnyChanges_data();
  void isInStepOverAnyChanges();

 private:
  std::unique_ptr<Model> makeModel();
  QString keysOf(const Model& model);
};

std::unique_ptr<Model> ModelsTest::makeModel() {
  return std::make_unique<Model>([](const Item& item) { return item.key; },
                                 std::vector<Model::Role>{
                                     {"key", [](const Item& item) { return QVariant(item.key); }},
                                     {"value", [](const Item& item) { return QVariant(item.value); }},
                                 },
                                 nullptr);
}

QString ModelsTest::keysOf(const Model& model) {
  QStringList keys;
  for (int row = 0; row < model.count(); ++row) {
    keys.append(model.at(row).key);
  }
  return keys.join(QLatin1Char(' '));
}

void ModelsTest::init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

void ModelsTest::reportsTheFewestChanges_data() {
  QTest::addColumn<QString>("before");
  QTest::addColumn<QString>("after");
  QTest::addColumn<QString>("reported");
  QTest::newRow("nothing") << "a b c"
                           << "a b c"
                           << "+0 -0 >0 =0";
  QTest::newRow("fills") << ""
                         << "a b c"
                         << "+1 -0 >0 =0";
  QTest::newRow("empties") << "a b c"
                           << ""
                           << "+0 -1 >0 =0";
  QTest::newRow("two runs go") << "a b c d e"
                               << "c"
                               << "+0 -2 >0 =0";
  QTest::newRow("two runs come") << "c"
                                 << "a b c d e"
                                 << "+2 -0 >0 =0";
  QTest::newRow("the first becomes the last") << "a b c d"
                                              << "b c d a"
                                              << "+0 -0 >1 =0";
  QTest::newRow("the last becomes the first") << "a b c d"
                                              << "d a b c"
                                              << "+0 -0 >1 =0";
  QTest::newRow("two swap") << "a b c d"
                            << "a c b d"
                            << "+0 -0 >1 =0";
  QTest::newRow("turned round") << "a b c d"
                                << "d c b a"
                                << "+0 -0 >3 =0";
  QTest::newRow("values side by side") << "a b c d"
                                       << "a b=1 c=1 d"
                                       << "+0 -0 >0 =1";
  QTest::newRow("values apart") << "a b c d"
                                << "a=1 b c d=1"
                                << "+0 -0 >0 =2";
  QTest::newRow("all at once") << "a b c d"
                               << "x d=1 b"
                               << "+1 -2 >1 =1";
}

void ModelsTest::reportsTheFewestChanges() {
  QFETCH(QString, before);
  QFETCH(QString, after);
  const auto model = makeModel();
  model->setRows(rowsOf(before));
  bttest::RowsWatch watch(*model);
  QSignalSpy counted(model.get(), &btqt::RowsModel::countChanged);
  const int countBefore = model->count();
  model->setRows(rowsOf(after));
  QTEST(watch.take(), "reported");
  QVERIFY(watch.isInStep());
  QCOMPARE(watch.resets, 0);
  QCOMPARE(counted.count(), model->count() != countBefore ? 1 : 0);
  QStringList keys;
  for (const QString& word : after.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    keys.append(word.section(QLatin1Char('='), 0, 0));
  }
  QCOMPARE(keysOf(*model), keys.join(QLatin1Char(' ')));
}

void ModelsTest::reportsOnlyTheRolesThatChanged() {
  const auto model = makeModel();
  model->setRows(rowsOf(QStringLiteral("a b")));
  QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
  model->setRows(rowsOf(QStringLiteral("a b=7")));
  QCOMPARE(changed.count(), 1);
  QCOMPARE(changed[0][0].toModelIndex().row(), 1);
  QCOMPARE(changed[0][1].toModelIndex().row(), 1);
  QCOMPARE(changed[0][2].value<QList<int>>(), QList<int>{Qt::UserRole + 1});
}

void ModelsTest::keepsRowsThatHaveTheSameKeyApart() {
  const auto model = makeModel();
  model->setRows(rowsOf(QStringLiteral("a=1 a=2 b")));
  bttest::RowsWatch watch(*model);
  QCOMPARE(model->count(), 3);
  model->setRows(rowsOf(QStringLiteral("a=1 b")));
  QCOMPARE(watch.take(), QStringLiteral("+0 -1 >0 =0"));
  QCOMPARE(keysOf(*model), QStringLiteral("a b"));
}

void ModelsTest::findsRowsAndTheirValues() {
  const auto model = makeModel();
  model->setRows(rowsOf(QStringLiteral("a b=7")));
  QCOMPARE(model->rowOf(QStringLiteral("b")), 1);
  QCOMPARE(model->rowOf(QStringLiteral("c")), -1);
  const QVariantMap values{{QStringLiteral("key"), QStringLiteral("b")}, {QStringLiteral("value"), 7}};
  QCOMPARE(model->get(1), values);
  QVERIFY(model->get(2).isEmpty());
  QVERIFY(model->get(-1).isEmpty());
  QVERIFY(!model->data(QModelIndex(), Qt::UserRole).isValid());
  QVERIFY(!model->data(model->index(0, 0), Qt::DisplayRole).isValid());
}

void ModelsTest::isInStepOverAnyChanges_data() {
  QTest::addColumn<int>("names");
  QTest::newRow("few names") << 8;
  QTest::newRow("many names") << 40;
}

void ModelsTest::isInStepOverAnyChanges() {
  QFETCH(int, names);
  const auto model = makeModel();
  bttest::RowsWatch watch(*model);
  std::mt19937 random(20240607);
  for (int step = 0; step < 400; ++step) {
    std::vector<Model::RowPointer> rows;
    for (int name = 0; name < names; ++name) {
      if (random() % 4 != 0) {
        rows.push_back(
            std::make_shared<const Item>(Item{QString::number(name), static_cast<int>(random() % 3)}));
      }
    }
    std::shuffle(rows.begin(), rows.end(), random);
    model->setRows(rows);
    QVERIFY2(watch.isInStep(), qPrintable(QStringLiteral("after step %1").arg(step)));
    QCOMPARE(model->count(), static_cast<int>(rows.size()));
    for (int row = 0; row < model->count(); ++row) {
      QCOMPARE(model->at(row).key, rows[static_cast<std::size_t>(row)]->key);
      QCOMPARE(model->at(row).value, rows[static_cast<std::size_t>(row)]->value);
    }
  }
  QCOMPARE(watch.resets, 0);
}

}  // namespace

QTEST_GUILESS_MAIN(ModelsTest)
#include "models_test.moc"
