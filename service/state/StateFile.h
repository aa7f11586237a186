#ifndef SERVICE_STATE_STATEFILE_H
#define SERVICE_STATE_STATEFILE_H

#include <optional>
#include <string>

#include "service/stack/BluetoothStack.h"

namespace btservice {

/// What survives a restart beside the settings: paired devices in their order, and the attributes that can be
/// changed. Written whenever one of them changes, so that a power cut leaves the old or the new file.
class StateFile : public StackObserver {
 public:
  /// An empty path: nothing is kept, and nothing is read. The file need not be there, nor its folder, which
  /// is made when something is to be kept.
  explicit StateFile(const std::string& path) : m_path(path) {}

  /// What was kept; nothing if there is no file. If the file is there and cannot be read or makes no sense,
  /// an empty state is returned: nothing is paired. Then an error in the log says why, and the file is not
  /// written in this run: it may hold pairings that somebody can still save.
  std::optional<KeptState> Load();
  /// From now on changes of this stack are kept: whenever it reports one, on its thread, and before the
  /// report returns. Call it once; this must outlive the stack. A file that cannot be written is an error in
  /// the log, and tried again at the next change.
  void Follow(BluetoothStack& stack);

  void OnStackEvent(const StackEvent& event) override;

 private:
  void Save();
  void FollowLinks();
  KeptState GiveUp(const char* problem);

  std::string m_path;  ///< empty: nothing is kept
  BluetoothStack* m_stack = nullptr;
  std::string m_saved;  ///< what the file holds
};

/// Where the state is kept unless an option says otherwise.
std::string DefaultStatePath();

}  // namespace btservice

#endif
