#ifndef QT_ROWSMODEL_H
#define QT_ROWSMODEL_H

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>
#include <QVariantMap>

#include "Export.h"

namespace btqt {

/// What is behind each RowsModel of this library.
template <typename Row>
class KeyedModel;

/// A list whose rows are inserted, removed, moved and changed, each with its signal: it is never reset, so a
/// view keeps its place and its delegates.
class BTASYNCQT_API RowsModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("the subjects of a BtService have them")
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  using QAbstractListModel::QAbstractListModel;

  int count() const { return rowCount(QModelIndex()); }
  /// The row with a key, -1 if there is none: an address, an id as text.
  Q_INVOKABLE virtual int rowOf(const QString& key) const = 0;
  /// The values of a row by the names of the roles; empty if there is no such row.
  Q_INVOKABLE QVariantMap get(int row) const;

 Q_SIGNALS:
  void countChanged();
};

}  // namespace btqt

#endif
