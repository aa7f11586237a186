#ifndef LIBBTASYNC_MIRROR_QUESTION_H
#define LIBBTASYNC_MIRROR_QUESTION_H

#include <functional>
#include <utility>

#include <btasync/Service.h>

namespace btasync {
inline namespace v0 {
namespace detail {

constexpr std::chrono::seconds kMirrorAsksWithin{10};
constexpr std::chrono::seconds kMirrorAsksAgainAfter{5};

/// A question of a mirror. While it is under way it is not asked a second time, but once more afterwards:
/// events come faster than answers. If it fails it is asked again after some seconds.
template <typename T>
class Question {
 public:
  using Make = std::function<Request<T>(Service&)>;
  /// A refusal means that there is nothing of it: the value is the default one.
  using Take = std::function<void(T)>;

  /// take may ask again, but not destroy the question.
  Question(Service& service, Make make, Take take)
      : m_service(service), m_make(std::move(make)), m_take(std::move(take)), m_again(service) {}

  void Ask() {
    if (m_isUnderWay) {
      m_isWantedAgain = true;
      return;
    }
    m_again.Stop();
    m_isUnderWay = true;
    m_make(m_service).Within(kMirrorAsksWithin).Then(m_scope, [this](Answer<T> answer) {
      OnAnswer(std::move(answer));
    });
  }
  /// What it was answered is void.
  void Forget() {
    m_scope.Clear();
    m_again.Stop();
    m_isUnderWay = m_isWantedAgain = m_isAnswered = false;
  }
  /// Whether it has been answered since Forget().
  bool IsAnswered() const { return m_isAnswered; }

 private:
  void OnAnswer(Answer<T> answer) {
    m_isUnderWay = false;
    if (answer.Failed()) {
      m_again.Start(kMirrorAsksAgainAfter, [this] { Ask(); });
    } else {
      m_isAnswered = true;
      m_take(answer.Accepted() ? *std::move(answer) : T());
    }
    if (std::exchange(m_isWantedAgain, false)) {
      Ask();
    }
  }

  Service& m_service;
  Make m_make;
  Take m_take;
  bool m_isUnderWay = false;
  bool m_isWantedAgain = false;
  bool m_isAnswered = false;
  Timer m_again;
  Scope m_scope;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
