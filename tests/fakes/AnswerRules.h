#ifndef TESTS_FAKES_ANSWERRULES_H
#define TESTS_FAKES_ANSWERRULES_H

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "glib/OwnedBus.h"

namespace fakes {

/// What becomes of the calls to a fake daemon instead of being carried out: they are refused, not answered,
/// or answered with nonsense. It sees each call before GLib does, on GLib's own thread; the rest is used on
/// the main loop's.
class AnswerRules {
 public:
  /// Only calls of interfaces that do not begin with `except` are looked at: those of the control.
  AnswerRules(GDBusConnection* connection, std::string except);

  // For calls of this method from now on. The setting of a property is the method "Set NAME".

  void Refuse(const std::string& method, const std::string& error, const std::string& message);
  void Hang(const std::string& method);
  void AnswerWith(const std::string& method, GVariant* tuple);
  void Clear();

  /// The methods that were called, in their order.
  std::vector<std::string> Calls();

 private:
  struct Rule {
    std::string error;  ///< empty: it is none
    std::string message;
    OwnedVariant answer;  ///< null, and no error: there is no answer
  };

  static GDBusMessage* OnMessage(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                 gpointer self);
  /// Whether a rule has taken the call.
  bool Take(GDBusConnection* connection, GDBusMessage* call);
  void SetRule(const std::string& method, Rule rule);

  const std::string m_except;
  std::mutex m_mutex;
  std::map<std::string, Rule> m_rules;
  std::vector<std::string> m_calls;
  OwnedFilter m_filter;
};

}  // namespace fakes

#endif
