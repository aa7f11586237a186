#ifndef TESTS_CONTRACT_LISTS_FIXTURE_H
#define TESTS_CONTRACT_LISTS_FIXTURE_H

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ipc/BtClientIpcAdapter.h"
#include "protocol/Segments.h"
#include "support/BusDaemon.h"
#include "support/Recorder.h"
#include "support/Segments.h"

namespace bttest {

/// Packs items as a service does.
class Packer {
 public:
  Packer& Int(int value) {
    unsigned char bytes[4];
    std::memcpy(bytes, &value, sizeof bytes);
    m_bytes.insert(m_bytes.end(), bytes, bytes + sizeof bytes);
    return *this;
  }
  Packer& Text(const std::string& text) {
    m_bytes.insert(m_bytes.end(), text.begin(), text.end());
    m_bytes.push_back(0);
    return *this;
  }
  Packer& Raw(const std::string& bytes) {
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    return *this;
  }
  void Publish(ShareMemID id) const {
    std::vector<unsigned char> segment = m_bytes;
    segment.resize(kSegmentCatalogue[id].size);
    WriteSegment(id, 0, segment);
  }

 private:
  std::vector<unsigned char> m_bytes;
};

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
