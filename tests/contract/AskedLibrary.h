#ifndef TESTS_CONTRACT_ASKEDLIBRARY_H
#define TESTS_CONTRACT_ASKEDLIBRARY_H

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/RequestCases.h"
#include "contract/StartedLibrary.h"
#include "support/LogCapture.h"

namespace bttest {

/// For tests that make requests of the started library, and look at what the service receives.
class AskedLibrary : public testing::Test {
 protected:
  AskedLibrary() { log.Clear(); }

  /// Ends the library's work. The connection to the service stays, so that a request that should not be made
  /// would arrive.
  void Stop() {
    MWP_DestroyBlueTooth();
    log.Clear();
  }

  /// Makes the request; the service replies as the case says. Fails unless it receives just what it should,
  /// and the answer is the expected one.
  void ExpectAsked(const RequestCase& request, const RequestCall& call);
  /// Makes the request. Fails if the service receives anything, or the answer is another one.
  void ExpectNotAsked(const RequestCase& request, const RequestCall& call, const std::string& answer);

  /// Sets how the service replies, as GVariant text without types.
  void SetReply(const std::string& method, const std::string& reply);

  /// The lines with this source.
  std::vector<LogRecord> LinesOf(const std::string& source) const;

  LogCapture log;
  StartedLibrary library;
};

}  // namespace bttest

#endif
