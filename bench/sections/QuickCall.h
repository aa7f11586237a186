#ifndef BENCH_SECTIONS_QUICKCALL_H
#define BENCH_SECTIONS_QUICKCALL_H

/// While one of these lives, the D-Bus call that precedes the reading of the phone book succeeds at once,
/// without the service: what is left of GetContactList is the decoding.
class QuickCall {
 public:
  QuickCall();
  ~QuickCall();
  QuickCall(const QuickCall&) = delete;
  QuickCall& operator=(const QuickCall&) = delete;
};

#endif
