#ifndef QT_EXPORT_H
#define QT_EXPORT_H

/// Marks what libbtasyncqt.so exports.
#define BTASYNCQT_API __attribute__((visibility("default")))

#endif
