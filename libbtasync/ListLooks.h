#ifndef LIBBTASYNC_LISTLOOKS_H
#define LIBBTASYNC_LISTLOOKS_H

#include <utility>

#include <btasync/Answer.h>
#include <btasync/Request.h>

#include "libbtasync/SharedMemory.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// What a list is judged by.
struct ListQuestion {
  int argument = 0;        ///< of the request: the type, index or id; 0 if it has none
  int serviceCount = 0;    ///< how many records the service has, or what else it was asked for
  bool isLastLook = true;  ///< nobody will look again
};

/// Two looks at a segment, and what comes of them. May be used in any thread, by one at a time.
class ListLooks {
 public:
  ListLooks(ShareMemID id, FindEnd findEnd) : m_id(id), m_findEnd(findEnd) {}
  ListLooks(const ListLooks&) = delete;
  ListLooks& operator=(const ListLooks&) = delete;
  virtual ~ListLooks() = default;

  /// Copies what is there now.
  void LookFirst();
  /// Copies it again, compares the two, and decodes it.
  void LookAgain(const ListQuestion& question);

  /// Whether something was wrong with what was seen.
  virtual bool HasFailed() const = 0;
  /// The service refuses to publish it.
  virtual void Refuse() = 0;
  /// Lends the answer.
  virtual void PutInto(Reply& reply) = 0;

 private:
  virtual void Decode(const SegmentCopy& copy, const ListQuestion& question) = 0;
  virtual void Fail(Failure failure) = 0;
  template <typename Function>
  void Guard(Function function);

  const ShareMemID m_id;
  const FindEnd m_findEnd;
  SegmentCopy m_first;
};

/// Makes an answer of a segment; Malformed if what lies there cannot be what was asked for.
template <typename Value>
using Judge = Answer<Value> (*)(const SegmentCopy& copy, const ListQuestion& question);

template <typename Value>
class ListLooksFor final : public ListLooks {
 public:
  ListLooksFor(ShareMemID id, FindEnd findEnd, Judge<Value> judge) : ListLooks(id, findEnd), m_judge(judge) {}

  bool HasFailed() const override { return m_answer.Failed(); }
  void Refuse() override { m_answer = Refusal(); }
  void PutInto(Reply& reply) override { reply.answer = &m_answer; }

 private:
  void Decode(const SegmentCopy& copy, const ListQuestion& question) override {
    m_answer = m_judge(copy, question);
  }
  void Fail(Failure failure) override { m_answer = std::move(failure); }

  const Judge<Value> m_judge;
  Answer<Value> m_answer = Failure();
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
