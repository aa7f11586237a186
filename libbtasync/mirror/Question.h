#ifndef LIBBTASYNC_MIRROR_QUESTION_H
#define LIBBTASYNC_MIRROR_QUESTION_H

#include <functional>
#include <utility>

#include <btasync/Service.h>

#include "libbtasync/mirror/Keeper.h"

namespace btasync {
inline namespace v0 {
namespace detail {

constexpr std::chrono::seconds kMirrorAsksWithin{10};
constexpr std::chrono::seconds kMirrorAsksAgainAfter{5};

/// A question of a part of a mirror. While it is under way it is not asked a second time, but once more
/// afterwards: events come faster than answers. If it fails it is asked again after some seconds. Whenever it
/// has ended, the part sets its freshness.
template <typename T>
class Question {
 public:
  using Make = std::function<Request<T>(Service&)>;
  /// A refusal means that there is nothing of it: the value is the default one.
  using Take = std::function<void(T)>;

  /// take may ask again, but not destroy the question.
  Question(MirrorPart& part, Make make, Take take)
      : m_part(part), m_make(std::move(make)), m_take(std::move(take)), m_again(part.Source()) {}

  void Ask() {
    if (m_isUnderWay) {
      m_isWantedAgain = true;
      return;
    }
    m_again.Stop();
    m_isUnderWay = true;
    m_make(m_part.Source()).Within(kMirrorAsksWithin).Then(m_scope, [this](Answer<T> answer) {
      OnAnswer(std::move(answer));
    });
  }
  /// What it was answered is void.
  void Forget() {
    m_scope.Clear();
    m_again.Stop();
    m_isUnderWay = m_isWantedAgain = false;
    m_last = Last::None;
  }
  /// Whether the last answer since Forget() was one: if that failed, the one before holds no longer.
  bool IsAnswered() const { return m_last != Last::None; }
  /// Whether it was answered, but refused.
  bool IsRefused() const { return m_last == Last::Refused; }

 private:
  /// What the last answer was.
  enum class Last { None, Refused, Accepted };

  void OnAnswer(Answer<T> answer) {
    m_isUnderWay = false;
    if (answer.Failed()) {
      m_last = Last::None;
      m_again.Start(kMirrorAsksAgainAfter, [this] { Ask(); });
    } else {
      m_last = answer.Accepted() ? Last::Accepted : Last::Refused;
      m_take(answer.Accepted() ? *std::move(answer) : T());
    }
    m_part.SetFreshness();
    if (std::exchange(m_isWantedAgain, false)) {
      Ask();
    }
  }

  MirrorPart& m_part;
  Make m_make;
  Take m_take;
  bool m_isUnderWay = false;
  bool m_isWantedAgain = false;
  Last m_last = Last::None;
  Timer m_again;
  Scope m_scope;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
