#include <btasync/Scope.h>

#include "libbtasync/HeldList.h"
#include "libbtasync/Log.h"

namespace btasync {
inline namespace v0 {
namespace detail {

Held::~Held() { Leave(); }

void Held::Leave() {
  if (m_list != nullptr) {
    m_list->Remove(*this);
  }
}

bool Held::MayRun() const { return m_list == nullptr || !m_list->IsAbandoned(); }

bool HeldList::IsEmpty() const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return m_first == nullptr;
}

bool HeldList::IsOwnThread() const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return (m_first == nullptr && m_drops == 0) || m_thread == std::this_thread::get_id();
}

void HeldList::Add(Held& held) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_thread = std::this_thread::get_id();
  held.m_list = this;
  held.m_previous = nullptr;
  held.m_next = m_first;
  if (m_first != nullptr) {
    m_first->m_previous = &held;
  }
  m_first = &held;
}

void HeldList::Remove(Held& held) {
  std::unique_lock<std::mutex> lock(m_mutex);
  (held.m_previous != nullptr ? held.m_previous->m_next : m_first) = held.m_next;
  if (held.m_next != nullptr) {
    held.m_next->m_previous = held.m_previous;
  }
  held.m_list = nullptr;
  held.m_previous = held.m_next = nullptr;
  const bool isUnused = IsUnused();
  lock.unlock();
  if (isUnused) {
    delete this;
  }
}

void HeldList::DropAll() {
  std::unique_lock<std::mutex> lock(m_mutex);
  ++m_drops;
  while (m_first != nullptr) {
    Held& held = *m_first;
    lock.unlock();
    Remove(held);
    held.Drop();
    lock.lock();
  }
  --m_drops;
  const bool isUnused = IsUnused();
  lock.unlock();
  if (isUnused) {
    delete this;
  }
}

void HeldList::Abandon() {
  std::unique_lock<std::mutex> lock(m_mutex);
  const bool isForeign = (m_first != nullptr || m_drops > 0) && m_thread != std::this_thread::get_id();
  m_isAbandoned = true;
  lock.unlock();
  if (isForeign) {
    LogWarning("another thread than the loop's has destroyed a scope; what it held does not run any more");
  } else {
    DropAll();
  }
}

}  // namespace detail

Scope::~Scope() {
  if (m_list != nullptr) {
    m_list->Abandon();
  }
}

void Scope::Clear() {
  if (m_list == nullptr) {
    return;
  }
  if (!m_list->IsOwnThread()) {
    detail::LogForeignThread("clearing a scope");
    return;
  }
  m_list->DropAll();
}

bool Scope::IsEmpty() const { return m_list == nullptr || m_list->IsEmpty(); }

bool Scope::MayHold() const {
  if (m_list == nullptr || m_list->IsOwnThread()) {
    return true;
  }
  detail::LogForeignThread("a place in a scope");
  return false;
}

void Scope::Hold(detail::Held& held) {
  if (m_list == nullptr) {
    m_list = new detail::HeldList;
  }
  m_list->Add(held);
}

}  // namespace v0
}  // namespace btasync
