#include "RowsModel.h"

namespace btqt {

QVariantMap RowsModel::get(int row) const {
  QVariantMap values;
  const QModelIndex place = index(row, 0);
  if (place.isValid()) {
    const QHash<int, QByteArray> names = roleNames();
    for (auto name = names.cbegin(); name != names.cend(); ++name) {
      values.insert(QString::fromUtf8(name.value()), data(place, name.key()));
    }
  }
  return values;
}

}  // namespace btqt
