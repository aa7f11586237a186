#ifndef TESTS_DRIVE_DRIVECLIENT_H
#define TESTS_DRIVE_DRIVECLIENT_H

#include <filesystem>
#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace btservice {

/// One of the applications on a drive: a process of drive_client, its input and its output.
class DriveClient {
 public:
  /// Starts the process, with files for its input and output in a directory. Throws if the library does not
  /// start there.
  explicit DriveClient(const std::filesystem::path& directory);
  ~DriveClient();
  DriveClient(const DriveClient&) = delete;
  DriveClient& operator=(const DriveClient&) = delete;

  /// Has it do a request and waits for the answer, which is -1000 if none comes.
  int Ask(const std::string& request);
  /// Closes its input, so that it ends.
  void Dismiss();

  /// The events that its listeners have received so far: "OnHangupCallChanged()".
  const std::vector<std::string>& Events();
  bool HasSeen(const std::string& event);
  bttest::ChildProcess& Process() { return m_process; }

 private:
  void ReadOutput();

  std::filesystem::path m_inputPath;
  std::filesystem::path m_outputPath;
  int m_input;  ///< before m_process: to open it needs another that has it open
  bttest::ChildProcess m_process;
  int m_output = -1;
  std::string m_unread;  ///< a line whose end is not there yet
  std::vector<std::string> m_events;
  std::vector<std::string> m_answers;
};

}  // namespace btservice

#endif
