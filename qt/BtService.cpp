#include "BtService.h"

#include <algorithm>

#include "Changes.h"
#include "LoopBridge.h"

namespace btqt {
namespace {

static_assert(static_cast<int>(btasync::Availability::NoBus) == BtService::NoBus &&
                  static_cast<int>(btasync::Availability::Present) == BtService::Present,
              "availability has the numbers of libbtasync's");

}  // namespace

BtService::BtService(QObject* parent)
    : QObject(parent),
      m_bridge(LoopBridge::ofThisThread()),
      m_own(std::make_unique<btasync::Service>(m_bridge != nullptr ? m_bridge->context() : nullptr)),
      m_service(*m_own),
      m_mirror(std::make_unique<btasync::Mirror>(
          m_service, btasync::PART_SERVICE,
          [this](const btasync::State& state, unsigned parts) { show(state, parts); })) {}

BtService::BtService(btasync::Service& service, QObject* parent)
    : QObject(parent),
      m_service(service),
      m_mirror(std::make_unique<btasync::Mirror>(
          m_service, btasync::PART_SERVICE,
          [this](const btasync::State& state, unsigned parts) { show(state, parts); })) {}

BtService::~BtService() = default;

void BtService::add(Subject& subject) {
  m_mirror->Want(subject.m_parts);
  m_subjects.push_back(&subject);
  setFresh();
}

void BtService::show(const btasync::State& state, unsigned parts) {
  Changes changes(*this);
  changes.set(m_availability, static_cast<Availability>(state.service), &BtService::availabilityChanged);
  // What is told may make further subjects, which show what is known by then.
  // NOLINTNEXTLINE(modernize-loop-convert): which is not for a vector that grows meanwhile
  for (std::size_t i = 0; i < m_subjects.size(); ++i) {
    Subject& subject = *m_subjects[i];
    if ((parts & subject.m_parts) != 0) {
      subject.show(state, parts);
    }
  }
  setFresh();
}

void BtService::setFresh() {
  const bool isFresh = state().service == btasync::Availability::Present &&
                       std::all_of(m_subjects.begin(), m_subjects.end(),
                                   [](const Subject* subject) { return subject->isFresh(); });
  Changes(*this).set(m_isFresh, isFresh, &BtService::freshChanged);
}

}  // namespace btqt
