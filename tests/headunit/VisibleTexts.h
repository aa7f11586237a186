#ifndef TESTS_HEADUNIT_VISIBLETEXTS_H
#define TESTS_HEADUNIT_VISIBLETEXTS_H

#include <QStringList>

class QQuickItem;

/// What is wrong with the texts that are visible below an item: those that are cut, unless they are marked as
/// coming from outside, those that stand out of what they are in, and those in another font than the head
/// unit's. seen counts the texts.
QStringList faultsOfVisibleTexts(const QQuickItem& root, int& seen);

/// What a translation into Arabic letters shows of the visible texts below an item: those with Latin ones,
/// unless they are marked as coming from outside, were not translated; those that are marked so and were
/// translated are the head unit's own.
QStringList untranslatedTexts(const QQuickItem& root);

#endif
