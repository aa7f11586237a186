#ifndef BENCH_COUNTED_COUNTEDFUNCTIONS_H
#define BENCH_COUNTED_COUNTEDFUNCTIONS_H

/// The functions at whose begin and end callgrind begins to count, or ceases to if it is counting: what
/// stands in bench_counted() is counted, but for the generated calls in it. Outside of it these alone are
/// counted.
constexpr const char* kTogglingFunctions[] = {"bench_counted", "com_zelk_linux_bluetooth_call_*_sync"};

#endif
