#ifndef BENCH_RESPONDER_BENCHINTERFACE_H
#define BENCH_RESPONDER_BENCHINTERFACE_H

// Names that the benchmark and its responder agree on, beside those of the service.

constexpr const char* kBenchPath = "/bench/control";
constexpr const char* kBenchInterface = "bench.Control";

#endif
