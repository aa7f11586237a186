#include "PseudoTranslator.h"

QString PseudoTranslator::translate(const char*, const char* sourceText, const char*, int) const {
  static const QString kLetters = QStringLiteral("ابتثجحخدذرزسشصضطظعغفقكلمنهوي");
  const QString source = QString::fromUtf8(sourceText);
  const qsizetype wanted = (source.size() * 7 + 4) / 5;
  QString made;
  for (qsizetype i = 0; i < wanted; ++i) {
    // The words stay as long as they were, one after the other, so that lines break where they would.
    const QChar original = source.at(i % source.size());
    // Places for values, as "%1", are Qt's to fill in.
    const bool isPlace = original == u'%' || (original.isDigit() && i > 0 && made.back() == u'%');
    made +=
        original.isSpace() || isPlace ? original : kLetters.at((original.unicode() + i) % kLetters.size());
  }
  return made;
}
