#ifndef SERVICE_FRONTEND_SEGMENTS_TEXTCUT_H
#define SERVICE_FRONTEND_SEGMENTS_TEXTCUT_H

#include <cstddef>
#include <string>

namespace btservice {

/// At most that many bytes of a text, cut between two characters of UTF-8, so that up to three bytes more are
/// left out. What is not UTF-8 is cut anywhere.
std::string CutText(const std::string& text, std::size_t mostBytes);

}  // namespace btservice

#endif
