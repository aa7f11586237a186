#ifndef BENCH_RESPONDER_BENCHINTERFACE_H
#define BENCH_RESPONDER_BENCHINTERFACE_H

// Names that the benchmark and its responder agree on.

constexpr const char* kServiceName = "com.zelk.linux.bluetooth";  ///< the interface's name as well
constexpr const char* kServicePath = "/com/zelk/linux/bluetooth";

constexpr const char* kControlPath = "/bench/control";
constexpr const char* kControlInterface = "bench.Control";

#endif
