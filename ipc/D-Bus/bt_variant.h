#ifndef IPC_DBUS_BT_VARIANT_H
#define IPC_DBUS_BT_VARIANT_H

#include <glib.h>

#include <bluetooth/MWPBtExport.h>

/// A new floating variant of type v that holds an ay with a copy of len bytes of data; an empty ay if len is
/// 0 or less. Null data with a length is logged as an error and taken as empty.
MWP_BT_API GVariant* bt_build_variant_data(void* data, int len);

/// Copies the bytes of value, a v that holds an ay, to dest and returns their number. dest must have room for
/// all of them. A value of another type is logged as an error, copies nothing and answers 0.
MWP_BT_API int bt_extract_variant_data(void* dest, GVariant* value);

#endif
