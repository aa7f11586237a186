#include "ContactRow.h"

#include <algorithm>

#include "Texts.h"

namespace btqt {
namespace {

/// Without accents.
QString withoutMarks(const QString& text) {
  QString plain;
  for (const QChar character : text.normalized(QString::NormalizationForm_KD)) {
    if (!character.isMark()) {
      plain.append(character);
    }
  }
  return plain;
}

QString nameOf(const MWPTypeContact& contact) {
  return (toQt(contact.strText1) + QLatin1Char(' ') + toQt(contact.strText2)).trimmed();
}

QString sectionOf(const QString& name) {
  const QString plain = withoutMarks(name.left(1)).toUpper();
  return !plain.isEmpty() && plain[0].isLetter() ? plain.left(1) : QStringLiteral("#");
}

QString digitsOf(const QString& number) {
  QString digits;
  for (const QChar character : number) {
    if (character.isDigit() || character == QLatin1Char('+')) {
      digits.append(character);
    }
  }
  return digits;
}

bool isSameNumber(const MWPTypeContactNumber& one, const MWPTypeContactNumber& other) {
  return one.nType == other.nType && one.vecValues == other.vecValues;
}

}  // namespace

QStringList foldedWords(const QString& text) {
  return withoutMarks(text).toCaseFolded().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

ContactRow::ContactRow(const MWPTypeContact& from, bool isFavourite, const QCollator& collator)
    : contact(from),
      favourite(isFavourite),
      name(nameOf(from)),
      section(sectionOf(name)),
      order(collator.sortKey(name)),
      m_words(foldedWords(name)) {
  for (const MWPTypeContactNumber& ofKind : from.listNumbers) {
    for (const std::string& value : ofKind.vecValues) {
      const QString number = toQt(value);
      numbers.append(QVariantMap{{QStringLiteral("kind"), ofKind.nType}, {QStringLiteral("number"), number}});
      m_digits.append(digitsOf(number));
    }
  }
}

bool ContactRow::isOf(const MWPTypeContact& other, bool isFavourite) const {
  return contact.nContactId == other.nContactId && favourite == isFavourite &&
         contact.strText1 == other.strText1 && contact.strText2 == other.strText2 &&
         std::equal(contact.listNumbers.begin(), contact.listNumbers.end(), other.listNumbers.begin(),
                    other.listNumbers.end(), isSameNumber);
}

bool ContactRow::fits(const QStringList& words) const {
  return std::all_of(words.begin(), words.end(), [this](const QString& word) {
    const auto beginsWith = [&](const QString& own) { return own.startsWith(word); };
    const auto has = [&](const QString& digits) { return digits.contains(word); };
    return std::any_of(m_words.begin(), m_words.end(), beginsWith) ||
           std::any_of(m_digits.begin(), m_digits.end(), has);
  });
}

}  // namespace btqt
