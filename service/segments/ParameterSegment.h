#ifndef SERVICE_SEGMENTS_PARAMETERSEGMENT_H
#define SERVICE_SEGMENTS_PARAMETERSEGMENT_H

#include "ipc/ShareMemory/SegmentOwner.h"
#include "service/model/World.h"
#include "service/stack/StackEvents.h"

namespace btservice {

/// SH_BT_PARAMETER, ten 32-bit words with the settings. Whoever comes first, this service or a client, fills
/// it from the persistence service and sets the loaded flag. Changes are written here and there.
class ParameterSegment : public StackObserver {
 public:
  explicit ParameterSegment(SegmentOwner& segments) : m_segments(segments) {}

  /// Fills the segment if nobody has yet, and returns the settings that are in it.
  SettingsData Load();
  void OnStackEvent(const StackEvent& event) override;

 private:
  /// The words, filled anew from what is known if it is another segment than before; null if there is none.
  std::int32_t* Words();

  SegmentOwner& m_segments;
  SettingsData m_settings;
};

}  // namespace btservice

#endif
