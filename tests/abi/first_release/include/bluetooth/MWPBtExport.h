#ifndef BLUETOOTH_MWPBTEXPORT_H
#define BLUETOOTH_MWPBTEXPORT_H

/// Marks what libbt.so exports. Everything without it stays inside the library.
#define MWP_BT_API __attribute__((visibility("default")))

#endif
