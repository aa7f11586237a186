#ifndef QT_KEYEDMODEL_H
#define QT_KEYEDMODEL_H

#include <QHash>
#include <QList>
#include <QVariant>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "RowsModel.h"
#include "Staying.h"

namespace btqt {

/// A row for each value.
template <typename Row>
std::vector<std::shared_ptr<const Row>> toRows(const std::vector<Row>& values) {
  std::vector<std::shared_ptr<const Row>> rows;
  rows.reserve(values.size());
  for (const Row& value : values) {
    rows.push_back(std::make_shared<const Row>(value));
  }
  return rows;
}

/// A list of rows that have a key. It is given the whole list each time, and turns into that by the fewest
/// removals, insertions and moves, and by changes of the roles whose values are others.
template <typename Row>
class KeyedModel final : public RowsModel {
 public:
  using RowPointer = std::shared_ptr<const Row>;
  struct Role {
    const char* name;
    QVariant (*value)(const Row& row);
  };

  KeyedModel(QString (*keyOf)(const Row&), std::vector<Role> roles, QObject* parent)
      : RowsModel(parent), m_keyOf(keyOf), m_roles(std::move(roles)) {
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
  }

  /// Rows that are shared with the list before are known to be the same without comparing their values.
  void setRows(std::vector<RowPointer> rows) {
    const int countBefore = count();
    std::vector<Entry> next = entriesOf(std::move(rows));
    removeOthersThan(next);
    arrangeAs(next);
    changeTo(next);
    if (count() != countBefore) {
      Q_EMIT countChanged();
    }
  }
  const Row& at(int row) const { return *m_entries[static_cast<std::size_t>(row)].row; }

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const int column = role - Qt::UserRole;
    if (!index.isValid() || !checkIndex(index) || column < 0 || column >= static_cast<int>(m_roles.size())) {
      return QVariant();
    }
    return m_roles[static_cast<std::size_t>(column)].value(at(index.row()));
  }
  QHash<int, QByteArray> roleNames() const override {
    QHash<int, QByteArray> names;
    for (std::size_t i = 0; i < m_roles.size(); ++i) {
      names.insert(Qt::UserRole + static_cast<int>(i), m_roles[i].name);
    }
    return names;
  }
  int rowOf(const QString& key) const override {
    const auto known = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.key == key; });
    return known != m_entries.end() ? static_cast<int>(known - m_entries.begin()) : -1;
  }

 private:
  struct Entry {
    QString key;
    RowPointer row;
    int place = -1;  ///< in the list that it turns into
  };
  using Entries = std::vector<Entry>;

  Entries entriesOf(std::vector<RowPointer> rows) const {
    Entries entries;
    entries.reserve(rows.size());
    QHash<QString, int> seen;
    for (RowPointer& row : rows) {
      QString key = m_keyOf(*row);
      // Nobody promises that a service names each thing once.
      const int earlier = seen[key]++;
      if (earlier > 0) {
        key += QStringLiteral("#%1").arg(earlier);
      }
      entries.push_back({std::move(key), std::move(row), static_cast<int>(entries.size())});
    }
    return entries;
  }

  void removeOthersThan(const Entries& next) {
    QHash<QString, int> places;
    places.reserve(static_cast<qsizetype>(next.size()));
    for (const Entry& entry : next) {
      places.insert(entry.key, entry.place);
    }
    for (Entry& entry : m_entries) {
      entry.place = places.value(entry.key, -1);
    }
    for (int end = count(); end > 0;) {
      int begin = end;
      while (begin > 0 && m_entries[static_cast<std::size_t>(begin - 1)].place < 0) {
        --begin;
      }
      if (begin == end) {
        --end;
        continue;
      }
      beginRemoveRows(QModelIndex(), begin, end - 1);
      m_entries.erase(m_entries.begin() + begin, m_entries.begin() + end);
      endRemoveRows();
      end = begin;
    }
  }

  /// Moves and inserts, from the first place on.
  void arrangeAs(const Entries& next) {
    const int size = static_cast<int>(next.size());
    std::vector<int> places;
    places.reserve(m_entries.size());
    std::vector<bool> isKnown(next.size(), false);
    for (const Entry& entry : m_entries) {
      places.push_back(entry.place);
      isKnown[static_cast<std::size_t>(entry.place)] = true;
    }
    const std::vector<bool> stays = rowsThatStay(places, size);

    int cursor = 0;  // behind the row that was put into its place last
    for (int place = 0; place < size;) {
      if (!isKnown[static_cast<std::size_t>(place)]) {
        const auto end = std::find(isKnown.begin() + place, isKnown.end(), true);
        const int added = static_cast<int>(end - isKnown.begin()) - place;
        beginInsertRows(QModelIndex(), cursor, cursor + added - 1);
        m_entries.insert(m_entries.begin() + cursor, next.begin() + place, next.begin() + place + added);
        endInsertRows();
        cursor += added;
        place += added;
        continue;
      }
      const int row = find(place, stays[static_cast<std::size_t>(place)] ? cursor : 0);
      if (stays[static_cast<std::size_t>(place)]) {
        cursor = row + 1;
      } else {
        cursor = move(row, cursor);
      }
      ++place;
    }
  }
  int find(int place, int from) const {
    const auto known = std::find_if(m_entries.begin() + from, m_entries.end(),
                                    [place](const Entry& entry) { return entry.place == place; });
    return static_cast<int>(known - m_entries.begin());
  }
  /// Moves a row to before another one. Gives back which row is behind it then.
  int move(int row, int before) {
    if (row == before || row == before - 1) {
      return std::max(before, row + 1);
    }
    beginMoveRows(QModelIndex(), row, row, QModelIndex(), before);
    const auto begin = m_entries.begin();
    if (row < before) {
      std::rotate(begin + row, begin + row + 1, begin + before);
    } else {
      std::rotate(begin + before, begin + row, begin + row + 1);
    }
    endMoveRows();
    return row < before ? before : before + 1;
  }

  /// Takes the values over. Rows side by side whose values are others are reported together.
  void changeTo(const Entries& next) {
    int begin = 0;
    QList<int> changed;
    const int size = count();
    for (int row = 0; row <= size; ++row) {
      const QList<int> here = row < size ? changeRow(row, next[static_cast<std::size_t>(row)]) : QList<int>();
      if (here.isEmpty()) {
        if (!changed.isEmpty()) {
          Q_EMIT dataChanged(index(begin, 0), index(row - 1, 0), changed);
          changed.clear();
        }
        begin = row + 1;
        continue;
      }
      for (const int role : here) {
        if (!changed.contains(role)) {
          changed.append(role);
        }
      }
    }
  }
  QList<int> changeRow(int row, const Entry& to) {
    Entry& entry = m_entries[static_cast<std::size_t>(row)];
    QList<int> changed;
    if (entry.row != to.row) {
      for (std::size_t i = 0; i < m_roles.size(); ++i) {
        if (m_roles[i].value(*entry.row) != m_roles[i].value(*to.row)) {
          changed.append(Qt::UserRole + static_cast<int>(i));
        }
      }
      entry.row = to.row;
    }
    return changed;
  }

  QString (*m_keyOf)(const Row&);
  std::vector<Role> m_roles;
  Entries m_entries;
};

}  // namespace btqt

#endif
