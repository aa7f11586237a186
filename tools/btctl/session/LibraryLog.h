#ifndef TOOLS_BTCTL_SESSION_LIBRARYLOG_H
#define TOOLS_BTCTL_SESSION_LIBRARYLOG_H

#include <string>

namespace btctl {

/// What the library logs. A request that fails is answered 0, as is one that the service refuses; only the
/// log tells why, so this program reads along.
///
/// The lines are those of the log's stand-in. Where the head unit's own log system has taken its place
/// nothing arrives here, and a failure is told by the state of the bus alone.
class LibraryLog {
 public:
  struct Display {
    bool isShown;  ///< on standard error; what GLib complains of is shown always
    bool isJson;
  };

  /// Takes the lines from now on, and those of GLib and others that use its log. To be called once, before
  /// there is a second thread.
  static void Take(Display display);

  /// Collects the errors that are logged on this thread while the object lives.
  class Errors {
   public:
    Errors();
    ~Errors();
    Errors(const Errors&) = delete;
    Errors& operator=(const Errors&) = delete;

    bool Any() const { return !m_first.empty(); }
    /// Why the first one happened.
    std::string Reason() const;

   private:
    friend class LibraryLog;

    std::string m_first;
  };

 private:
  static void Note(const std::string& error);
};

}  // namespace btctl

#endif
