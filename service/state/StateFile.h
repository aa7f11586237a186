#ifndef SERVICE_STATE_STATEFILE_H
#define SERVICE_STATE_STATEFILE_H

#include <string>

#include "service/model/World.h"
#include "service/stack/BluetoothStack.h"

namespace btservice {

/// What survives a restart beside the settings: paired devices in their order, and the attributes that can be
/// changed. Written whenever one of them changes, so that a power cut leaves the old or the new file.
class StateFile : public StackObserver {
 public:
  /// An empty path: nothing is kept.
  explicit StateFile(const std::string& path) : m_path(path) {}

  /// Brings a world to the state that was kept: the file alone decides who is paired. Paired devices that the
  /// world does not have are added, out of range. Without a file the world stays as it is. If the file is
  /// there and cannot be read or makes no sense, nothing is paired, an error in the log says why, and the
  /// file is not written in this run: it may hold pairings that somebody can still save.
  void Restore(World& world);
  /// From now on changes of this stack are kept.
  void Follow(BluetoothStack& stack);

  void OnStackEvent(const StackEvent& event) override;

 private:
  void Save();
  void GiveUp(const char* problem, World& world);

  std::string m_path;  ///< empty: nothing is kept
  BluetoothStack* m_stack = nullptr;
  std::string m_saved;  ///< what the file holds
};

/// Where the state is kept unless an option says otherwise.
std::string DefaultStatePath();

}  // namespace btservice

#endif
