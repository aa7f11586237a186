#ifndef TESTS_CONTRACT_LISTS_FIXTURE_H
#define TESTS_CONTRACT_LISTS_FIXTURE_H

#include <gtest/gtest.h>

#include "ipc/BtClientIpcAdapter.h"
#include "protocol/Segments.h"
#include "support/BusDaemon.h"
#include "support/Recorder.h"
#include "support/SegmentItems.h"

namespace bttest {

/// An adapter, and a service that answers as if it had published each list.
class Lists : public testing::Test {
 protected:
  Lists() {
    EXPECT_TRUE(m_adapter.InitDBusConnect());
    for (const char* method : {"GetContactList", "GetFavContactList", "GetCallLogList"}) {
      m_recorder.SetReply(method, g_variant_new("(b)", TRUE));
    }
    m_recorder.TakeCalls();
  }

  BusDaemon m_bus;
  Recorder m_recorder;
  BtClientIpcAdapter m_adapter;
};

}  // namespace bttest

#endif
