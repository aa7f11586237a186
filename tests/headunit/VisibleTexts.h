#ifndef TESTS_HEADUNIT_VISIBLETEXTS_H
#define TESTS_HEADUNIT_VISIBLETEXTS_H

#include <QStringList>

class QQuickItem;

/// What is wrong with the texts that are visible below an item: those that are cut, unless they are marked as
/// coming from outside, those that stand out of what they are in, and those in another font than the head
/// unit's. seen counts the texts.
QStringList faultsOfVisibleTexts(const QQuickItem& root, int& seen);

/// The visible texts below an item that a translation into Arabic letters should have changed: those with
/// Latin ones, unless they are marked as coming from outside.
QStringList untranslatedTexts(const QQuickItem& root);

#endif
