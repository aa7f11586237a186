#ifndef QT_TEXTS_H
#define QT_TEXTS_H

#include <QString>
#include <string>

#include <btasync/Text.h>

// Texts and addresses on their way between the two libraries.

namespace btqt {

inline QString toQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline QString toQt(const btasync::Address& address) { return toQt(address.ToText()); }
inline btasync::Address toAddress(const QString& text) { return btasync::Address(text.toStdString()); }
/// The same for each way to write an address.
inline QString keyOf(const btasync::Address& address) { return toQt(address).toUpper(); }

}  // namespace btqt

#endif
