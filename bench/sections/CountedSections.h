#ifndef BENCH_SECTIONS_COUNTEDSECTIONS_H
#define BENCH_SECTIONS_COUNTEDSECTIONS_H

#include "bench/harness/Report.h"

// As the sections of Sections.h, but each counts instructions in processes of its own. std::runtime_error is
// thrown when something cannot be counted.

/// Requests, events and the phone book.
void CountLibrary(Report& report);
void CountStart(Report& report);
void CountService(Report& report);
void CountPublishing(Report& report);
/// Requests of libbtasync.
void CountAsync(Report& report);

#endif
