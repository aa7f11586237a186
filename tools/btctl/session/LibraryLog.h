#ifndef TOOLS_BTCTL_SESSION_LIBRARYLOG_H
#define TOOLS_BTCTL_SESSION_LIBRARYLOG_H

#include <functional>
#include <string>

namespace btctl {

/// What the library logs. A request that fails is answered 0, as is one that the service refuses; only the
/// log says why, so this program reads along.
///
/// The lines are those of the log's stand-in. Where the head unit's own log system has taken its place
/// nothing arrives here, and only the state of the bus shows that a request failed.
class LibraryLog {
 public:
  struct Display {
    bool isShown;  ///< on standard error; what GLib complains of is shown always
    bool isJson;
  };

  /// Takes the lines from now on, and those of GLib and others that use its log. To be called once, before
  /// there is a second thread.
  static void Take(Display display);
  using Printer = std::function<void(const std::string& line)>;
  /// Lets the main loop hand over what would go to standard error at once; nothing ends that.
  static void SetPrinter(const Printer& printer);
  /// Changes what becomes of them; answers what did until then.
  static Display Exchange(Display display);

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
