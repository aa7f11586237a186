#ifndef EXAMPLES_HEADUNIT_PSEUDOTRANSLATOR_H
#define EXAMPLES_HEADUNIT_PSEUDOTRANSLATOR_H

#include <QTranslator>

/// Makes up a translation of every text: 40 per cent longer, with Arabic letters, which run from right to
/// left. Shows what a real one will do to the screens before there is one.
class PseudoTranslator : public QTranslator {
  Q_OBJECT

 public:
  using QTranslator::QTranslator;

  QString translate(const char* context, const char* sourceText, const char* disambiguation,
                    int n) const override;
  bool isEmpty() const override { return false; }
};

#endif
