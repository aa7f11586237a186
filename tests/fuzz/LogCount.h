#ifndef TESTS_FUZZ_LOGCOUNT_H
#define TESTS_FUZZ_LOGCOUNT_H

namespace bttest {

/// From now on what is logged at error level is counted, and nothing of the log is shown. For good, since a
/// process can set its log writer once.
void CountErrorsFromNowOn();

/// The number of errors that were logged since the last time this was asked.
int TakeErrors();

}  // namespace bttest

#endif
