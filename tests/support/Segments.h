#ifndef TESTS_SUPPORT_SEGMENTS_H
#define TESTS_SUPPORT_SEGMENTS_H

#include <cstddef>
#include <optional>
#include <vector>

#include <bluetooth/ShareMemID.h>

// A look at the System V segments from outside, without the library's own code.

namespace bttest {

struct SegmentStatus {
  int identifier;  ///< what shmget answers
  std::size_t size;
  unsigned mode;         ///< permission bits
  unsigned attachments;  ///< how often it is attached, in all processes
};

/// The segment that the key of id names now; nothing if there is none, or no file to make the key from.
std::optional<SegmentStatus> FindSegment(ShareMemID id);
/// The segment of that identifier; nothing if there is none, true for one marked for removal but still
/// attached.
bool SegmentExists(int identifier);

/// How many segments there are in this IPC namespace, whoever made them.
int CountSegments();

/// Makes a segment that must not exist yet, and answers its identifier.
int CreateSegment(ShareMemID id, std::size_t size, unsigned mode = 0666);
/// Marks it for removal: its key is free at once.
void RemoveSegment(ShareMemID id);

/// Bytes of a segment that exists. Throws if they are not within it.
std::vector<unsigned char> ReadSegment(ShareMemID id, std::size_t offset, std::size_t length);
void WriteSegment(ShareMemID id, std::size_t offset, const std::vector<unsigned char>& bytes);

/// Makes count segments of no use, so that those made afterwards do not have the small identifiers that the
/// values of ShareMemID could be mistaken for. Answers their identifiers; in a fresh namespace 0 to count
/// - 1.
std::vector<int> MakeDummySegments(int count = 8);

/// Takes /app/bin/btservice away and puts an empty file there. A new file means new keys.
void RemoveServiceFile();
void MakeServiceFile();

}  // namespace bttest

#endif
