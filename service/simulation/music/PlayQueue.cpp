#include "service/simulation/music/PlayQueue.h"

#include <algorithm>
#include <numeric>

namespace btservice {

const TrackData* PlayQueue::Current() const {
  return m_order.empty() ? nullptr : &m_tracks[m_order[m_place]];
}

int PlayQueue::CurrentNumber() const { return m_order.empty() ? 0 : static_cast<int>(m_order[m_place]) + 1; }

void PlayQueue::Set(const std::vector<TrackData>& tracks, std::size_t current) {
  m_tracks = tracks;
  m_order.resize(m_tracks.size());
  std::iota(m_order.begin(), m_order.end(), 0);
  m_place = std::min(current, m_tracks.empty() ? 0 : m_tracks.size() - 1);
  m_shuffle = SHUFFLE_OFF;
}

bool PlayQueue::Append(const TrackData& track) {
  if (m_tracks.size() >= kMostTracks) {
    return false;
  }
  m_order.push_back(m_tracks.size());
  m_tracks.push_back(track);
  return true;
}

bool PlayQueue::Select(const std::string& uid) {
  const auto place = std::find_if(m_order.begin(), m_order.end(),
                                  [&](std::size_t index) { return m_tracks[index].uid == uid; });
  if (place == m_order.end()) {
    return false;
  }
  m_place = static_cast<std::size_t>(place - m_order.begin());
  return true;
}

void PlayQueue::Next() {
  if (!m_order.empty()) {
    m_place = (m_place + 1) % m_order.size();
  }
}

void PlayQueue::Previous() {
  if (!m_order.empty()) {
    m_place = (m_place + m_order.size() - 1) % m_order.size();
  }
}

bool PlayQueue::IsAtEnd() const { return m_place + 1 >= m_order.size(); }

void PlayQueue::SetShuffle(ShuffleMode mode, std::mt19937& random) {
  m_shuffle = mode;
  if (m_order.empty()) {
    return;
  }
  const std::size_t current = m_order[m_place];
  std::sort(m_order.begin(), m_order.end());
  m_place = current;
  if (mode == SHUFFLE_ALL) {
    // The current track goes on; the others follow in any order.
    std::swap(m_order[0], m_order[current]);
    std::shuffle(m_order.begin() + 1, m_order.end(), random);
    m_place = 0;
  }
}

}  // namespace btservice
