#include "VisibleTexts.h"

#include <QFont>
#include <QQuickItem>

namespace {

const QString kFamily = QStringLiteral("DejaVu Sans");
constexpr qreal kTolerance = 1.5;  // pixels: positions of texts are rounded

QString nameOf(const QQuickItem& text) {
  return QStringLiteral("'%1' (%2 x %3 in %4 x %5)")
      .arg(text.property("text").toString())
      .arg(text.property("contentWidth").toReal())
      .arg(text.property("contentHeight").toReal())
      .arg(text.width())
      .arg(text.height());
}

void look(const QQuickItem& item, QStringList& faults, int& seen) {
  if (!item.isVisible()) {
    return;
  }
  if (item.inherits("QQuickText") && !item.property("text").toString().isEmpty()) {
    ++seen;
    const bool isFromOutside = item.property("fromOutside").toBool();
    const bool isCut = item.property("truncated").toBool() ||
                       item.property("contentWidth").toReal() > item.width() + kTolerance ||
                       item.property("contentHeight").toReal() > item.height() + kTolerance;
    if (isCut && !isFromOutside) {
      faults += QStringLiteral("cut: ") + nameOf(item);
    }
    const QString family = item.property("font").value<QFont>().family();
    if (family != kFamily) {
      faults += QStringLiteral("in %1: ").arg(family) + nameOf(item);
    }
    const QQuickItem& parent = *item.parentItem();
    const QRectF place = item.mapRectToItem(&parent, QRectF(0, 0, item.width(), item.height()));
    const QRectF room = QRectF(0, 0, parent.width(), parent.height())
                            .adjusted(-kTolerance, -kTolerance, kTolerance, kTolerance);
    // What scrolls is longer than what shows it.
    if (!room.contains(place) && !parent.inherits("QQuickFlickable") && parent.height() > 0) {
      faults += QStringLiteral("outside its parent: ") + nameOf(item);
    }
  }
  const auto children = item.childItems();
  for (const QQuickItem* const child : children) {
    look(*child, faults, seen);
  }
}

}  // namespace

QStringList faultsOfVisibleTexts(const QQuickItem& root, int& seen) {
  QStringList faults;
  look(root, faults, seen);
  return faults;
}
