#ifndef TESTS_RECORDER_ZEROVALUE_H
#define TESTS_RECORDER_ZEROVALUE_H

#include <glib.h>

/// A floating value of that type: zeros, empty texts and arrays, a variant of an empty byte array.
GVariant* ZeroValue(const GVariantType* type);

#endif
