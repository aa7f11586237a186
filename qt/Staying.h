#ifndef QT_STAYING_H
#define QT_STAYING_H

#include <vector>

#include "Export.h"

namespace btqt {

/// places: for each row of a list, its place in the new order, each at most once. Gives back, by the new
/// places, which rows can stay where they are while the others are moved around them: as many as possible.
BTASYNCQT_API std::vector<bool> rowsThatStay(const std::vector<int>& places, int count);

}  // namespace btqt

#endif
