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

void HeldList::Add(Held& held) {
  held.m_list = this;
  held.m_previous = nullptr;
  held.m_next = m_first;
  if (m_first != nullptr) {
    m_first->m_previous = &held;
  }
  m_first = &held;
}

void HeldList::Remove(Held& held) {
  (held.m_previous != nullptr ? held.m_previous->m_next : m_first) = held.m_next;
  if (held.m_next != nullptr) {
    held.m_next->m_previous = held.m_previous;
  }
  held.m_list = nullptr;
  held.m_previous = held.m_next = nullptr;
  if (m_first == nullptr && m_isAbandoned && m_drops == 0) {
    delete this;
  }
}

void HeldList::DropAll() {
  ++m_drops;
  while (m_first != nullptr) {
    Held& held = *m_first;
    Remove(held);
    held.Drop();
  }
  --m_drops;
  if (m_isAbandoned && m_drops == 0) {
    delete this;
  }
}

void HeldList::Abandon() {
  if (!IsOwnThread() && !IsEmpty()) {
    LogWarning("another thread than the loop's has destroyed a scope; what it held does not run any more");
    m_isAbandoned = true;
    return;
  }
  m_isAbandoned = true;
  DropAll();
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
    detail::LogWarning("another thread than the loop's wants to clear a scope: refused");
    return;
  }
  m_list->DropAll();
}

bool Scope::IsEmpty() const { return m_list == nullptr || m_list->IsEmpty(); }

void Scope::Hold(detail::Held& held) {
  if (m_list == nullptr) {
    m_list = new detail::HeldList;
  }
  m_list->Add(held);
}

}  // namespace v0
}  // namespace btasync
