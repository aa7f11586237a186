#include "VisibleTexts.h"

#include <QFont>
#include <QQuickItem>
#include <QRegularExpression>

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

/// Whether a text stands out of its parent, or of what that is in; what scrolls is longer than what shows it.
bool isOutside(const QQuickItem& text) {
  for (const QQuickItem* around = text.parentItem();
       around != nullptr && !around->inherits("QQuickFlickable"); around = around->parentItem()) {
    const QRectF place = text.mapRectToItem(around, QRectF(0, 0, text.width(), text.height()));
    const QRectF room = QRectF(0, 0, around->width(), around->height())
                            .adjusted(-kTolerance, -kTolerance, kTolerance, kTolerance);
    if (around->height() > 0 && !room.contains(place)) {
      return true;
    }
  }
  return false;
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
    if (isOutside(item)) {
      faults += QStringLiteral("outside of what it is in: ") + nameOf(item);
    }
  }
  const auto children = item.childItems();
  for (const QQuickItem* const child : children) {
    look(*child, faults, seen);
  }
}

void lookForLetters(const QQuickItem& item, QStringList& found) {
  static const QRegularExpression kLatin(QStringLiteral("[A-Za-z]"));
  static const QRegularExpression kArabic(QStringLiteral("[\\x{0600}-\\x{06FF}]"));
  if (!item.isVisible()) {
    return;
  }
  if (item.inherits("QQuickText")) {
    const QString text = item.property("text").toString();
    const bool isFromOutside = item.property("fromOutside").toBool();
    if (text.contains(kLatin) && !isFromOutside) {
      found += QStringLiteral("not translated: '%1'").arg(text);
    } else if (text.contains(kArabic) && isFromOutside) {
      found += QStringLiteral("translated, and marked as coming from outside: '%1'").arg(text);
    }
  }
  const auto children = item.childItems();
  for (const QQuickItem* const child : children) {
    lookForLetters(*child, found);
  }
}

}  // namespace

QStringList faultsOfVisibleTexts(const QQuickItem& root, int& seen) {
  QStringList faults;
  look(root, faults, seen);
  return faults;
}

QStringList untranslatedTexts(const QQuickItem& root) {
  QStringList found;
  lookForLetters(root, found);
  return found;
}
