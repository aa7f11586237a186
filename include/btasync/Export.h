#ifndef BTASYNC_EXPORT_H
#define BTASYNC_EXPORT_H

/// Marks what libbtasync.so exports.
#define BTASYNC_API __attribute__((visibility("default")))

#endif
