#include "service/simulation/controls/AnswerFaults.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <bt_dbus.h>

#include "service/files/Quote.h"
#include "service/frontend/WireLimits.h"

namespace btservice {
namespace {

constexpr const char* kAnyMethod = "*";
constexpr std::size_t kMostFaults = 1000;
constexpr std::size_t kMostLateAnswers = 1000;

void Require(bool condition, const std::string& problem) {
  if (!condition) {
    throw std::invalid_argument(problem);
  }
}

/// Sends a reply without a look at what the method declares.
void Reply(GDBusMethodInvocation* invocation, GVariant* tuple) {
  const OwnedObject<GDBusMessage> reply(
      g_dbus_message_new_method_reply(g_dbus_method_invocation_get_message(invocation)));
  g_dbus_message_set_body(reply.get(), tuple);
  g_dbus_connection_send_message(g_dbus_method_invocation_get_connection(invocation), reply.get(),
                                 G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
}

}  // namespace

void AnswerFaults::Delay(const std::string& method, unsigned count, unsigned milliseconds) {
  Fault fault{Kind::DELAY, method, count};
  fault.milliseconds = milliseconds;
  Add(std::move(fault));
}

void AnswerFaults::Fail(const std::string& method, unsigned count, const std::string& errorName,
                        const std::string& message) {
  Require(errorName.size() <= kLongestName && g_dbus_is_interface_name(errorName.c_str()) != FALSE,
          Quote(errorName) + " is not a D-Bus error name");
  Fault fault{Kind::FAIL, method, count};
  fault.errorName = errorName;
  fault.message = message;
  Add(std::move(fault));
}

void AnswerFaults::Replace(const std::string& method, unsigned count, GVariant* tuple) {
  Fault fault{Kind::REPLACE, method, count};
  fault.tuple = NewRef(tuple);
  Add(std::move(fault));
}

void AnswerFaults::Drop(const std::string& method, unsigned count) { Add({Kind::DROP, method, count}); }

void AnswerFaults::Add(Fault fault) {
  const bool exists = fault.method == kAnyMethod ||
                      g_dbus_interface_info_lookup_method(com_zelk_linux_bluetooth_interface_info(),
                                                          fault.method.c_str()) != nullptr;
  Require(exists, "the service has no method " + Quote(fault.method));
  Require(m_faults.size() < kMostFaults,
          "there are " + std::to_string(kMostFaults) +
              " faults already that wait for a call; AnswerAgain removes them");
  if (fault.count > 0) {
    m_faults.push_back(std::make_shared<Fault>(std::move(fault)));
  }
}

std::shared_ptr<AnswerFaults::Fault> AnswerFaults::Use(GDBusMethodInvocation* invocation, bool delays) {
  const std::string method = g_dbus_method_invocation_get_method_name(invocation);
  const auto place = std::find_if(m_faults.begin(), m_faults.end(), [&](const auto& fault) {
    return fault->method == kAnyMethod || fault->method == method;
  });
  if (place == m_faults.end() || ((*place)->kind == Kind::DELAY) != delays) {
    return nullptr;
  }
  std::shared_ptr<Fault> fault = *place;
  if (--fault->count == 0) {
    m_faults.erase(place);
  }
  return fault;
}

bool AnswerFaults::TakeOver(GDBusMethodInvocation* invocation) {
  const std::shared_ptr<Fault> fault = Use(invocation, false);
  if (fault == nullptr) {
    return false;
  }
  if (fault->kind == Kind::FAIL) {
    g_dbus_method_invocation_return_dbus_error(invocation, fault->errorName.c_str(), fault->message.c_str());
    return true;
  }
  const OwnedObject<GDBusMethodInvocation> unanswered(invocation);
  if (fault->kind == Kind::REPLACE) {
    Reply(invocation, fault->tuple.get());
  }
  return true;
}

void AnswerFaults::Pass(GDBusMethodInvocation* invocation, std::function<void()> answer) {
  const std::shared_ptr<Fault> fault = Use(invocation, true);
  if (fault == nullptr || m_pending.size() >= kMostLateAnswers) {
    answer();
    return;
  }
  struct Late {
    AnswerFaults* faults;
    std::function<void()> answer;
    OwnedObject<GDBusMethodInvocation> unanswered;  ///< an answer takes it; without one it is released
    guint source;
  };
  auto* const late = new Late{this, std::move(answer), OwnedObject<GDBusMethodInvocation>(invocation), 0};
  late->source = g_timeout_add_full(
      G_PRIORITY_DEFAULT, fault->milliseconds,
      [](gpointer data) -> gboolean {
        auto* const self = static_cast<Late*>(data);
        self->faults->Forget(self->source);
        static_cast<void>(self->unanswered.release());
        self->answer();
        return G_SOURCE_REMOVE;
      },
      late, [](gpointer data) { delete static_cast<Late*>(data); });
  m_pending.emplace_back(late->source);
}

void AnswerFaults::Forget(guint ended) {
  const auto place = std::find_if(m_pending.begin(), m_pending.end(),
                                  [ended](const OwnedSourceId& source) { return source.get() == ended; });
  place->release();
  m_pending.erase(place);
}

}  // namespace btservice
