#ifndef QT_CONTACTROW_H
#define QT_CONTACTROW_H

#include <QCollator>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <memory>

#include <btasync/Records.h>

namespace btqt {

/// A contact as a list shows it.
struct ContactRow {
  ContactRow(const MWPTypeContact& contact, bool favourite, const QCollator& collator);
  /// Whether it shows this contact.
  bool isOf(const MWPTypeContact& contact, bool favourite) const;
  /// Whether each of these words, as foldedWords makes them, begins a word of the name or is in a number.
  bool fits(const QStringList& words) const;

  MWPTypeContact contact;
  bool favourite;
  QString name;
  QString section;       ///< a letter without its accents, or # for all others
  QVariantList numbers;  ///< of maps: kind, number
  QCollatorSortKey order;

 private:
  QStringList m_words;   ///< of the name
  QStringList m_digits;  ///< of the numbers
};

/// The words of a text, without upper case and accents.
QStringList foldedWords(const QString& text);

}  // namespace btqt

#endif
