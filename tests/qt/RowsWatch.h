#ifndef TESTS_QT_ROWSWATCH_H
#define TESTS_QT_ROWSWATCH_H

#include <QAbstractItemModel>
#include <QAbstractItemModelTester>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include "RowsModel.h"

namespace bttest {

/// Watches a model as a view does: keeps a copy of its rows by nothing but its signals, and counts these.
class RowsWatch : public QObject {
 public:
  explicit RowsWatch(btqt::RowsModel& model)
      : m_model(model), m_tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest) {
    for (int row = 0; row < model.count(); ++row) {
      m_rows.append(model.get(row));
    }
    connect(&model, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int first, int last) {
      ++insertions;
      for (int row = first; row <= last; ++row) {
        m_rows.insert(row, m_model.get(row));
      }
    });
    connect(&model, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex&, int first, int last) {
      ++removals;
      m_rows.remove(first, last - first + 1);
    });
    connect(&model, &QAbstractItemModel::rowsMoved, this,
            [this](const QModelIndex&, int first, int, const QModelIndex&, int before) {
              ++moves;
              m_rows.move(first, before > first ? before - 1 : before);
            });
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
              ++changes;
              for (int row = first.row(); row <= last.row(); ++row) {
                for (const int role : roles) {
                  m_rows[row].insert(QString::fromUtf8(m_model.roleNames().value(role)),
                                     m_model.data(m_model.index(row, 0), role));
                }
              }
            });
    connect(&model, &QAbstractItemModel::modelReset, this, [this] { ++resets; });
    connect(&model, &QAbstractItemModel::layoutChanged, this, [this] { ++resets; });
  }

  /// Whether the signals have reported all that changed.
  bool isInStep() const {
    bool same = m_rows.size() == m_model.count();
    for (int row = 0; same && row < m_model.count(); ++row) {
      same = m_rows[row] == m_model.get(row);
    }
    return same;
  }
  /// What has happened since the last time: "+" for a run of insertions, and so on.
  QString take() {
    QString text = QStringLiteral("+%1 -%2 >%3 =%4").arg(insertions).arg(removals).arg(moves).arg(changes);
    insertions = removals = moves = changes = 0;
    return text;
  }

  int insertions = 0;
  int removals = 0;
  int moves = 0;
  int changes = 0;
  int resets = 0;

 private:
  btqt::RowsModel& m_model;
  QAbstractItemModelTester m_tester;
  QList<QVariantMap> m_rows;
};

}  // namespace bttest

#endif
