#ifndef BENCH_SECTIONS_SECTIONS_H
#define BENCH_SECTIONS_SECTIONS_H

#include "bench/harness/Report.h"
#include "bench/responder/Responder.h"

// Each measures one promise of the library and adds a section to the report. The library is started, and the
// responder is what it is connected to. std::runtime_error is thrown when something cannot be measured.

void MeasureRequests(Report& report, Responder& responder);
void MeasureEvents(Report& report, Responder& responder);
void MeasureStart(Report& report, Responder& responder);
void MeasureContacts(Report& report, Responder& responder);
void MeasureCommandLine(Report& report, Responder& responder);

#endif
