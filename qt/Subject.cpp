#include "Subject.h"

#include "BtService.h"

namespace btqt {

Subject::Subject(BtService& service, unsigned parts) : m_owner(service), m_parts(parts) {
  // It belongs to the service, and never to the garbage collector.
  QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
}

btasync::Service& Subject::service() const { return m_owner.service(); }

const btasync::State& Subject::now() const { return m_owner.state(); }

}  // namespace btqt
