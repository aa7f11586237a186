#include "service/time/TaskQueue.h"

namespace btservice {

Scheduler::TaskId TaskQueue::Add(Milliseconds due, Scheduler::Task task) {
  const Scheduler::TaskId id = ++m_lastId;
  m_tasks.emplace(Place(due, id), std::move(task));
  m_dueTimes.emplace(id, due);
  return id;
}

void TaskQueue::Cancel(Scheduler::TaskId id) {
  const auto entry = m_dueTimes.find(id);
  if (entry != m_dueTimes.end()) {
    m_tasks.erase(Place(entry->second, id));
    m_dueTimes.erase(entry);
  }
}

std::optional<Milliseconds> TaskQueue::NextDue() const {
  if (m_tasks.empty()) {
    return std::nullopt;
  }
  return m_tasks.begin()->first.first;
}

bool TaskQueue::RunNext(Milliseconds until, Milliseconds& now) {
  const auto next = m_tasks.begin();
  if (next == m_tasks.end() || next->first.first > until) {
    return false;
  }
  const Scheduler::Task task = std::move(next->second);
  now = next->first.first;
  m_dueTimes.erase(next->first.second);
  m_tasks.erase(next);
  task();
  return true;
}

}  // namespace btservice
