#ifndef TESTS_ABI_WITNESS_H
#define TESTS_ABI_WITNESS_H

/// An exported function for a type, which so becomes part of the record. Its size is asked for because a
/// pointer alone makes no instance of a template.
#define WITNESS(...)                                                             \
  __attribute__((visibility("default"))) void Witness(__VA_ARGS__* /*unused*/) { \
    static_assert(sizeof(__VA_ARGS__) >= 1, "");                                 \
  }

#endif
