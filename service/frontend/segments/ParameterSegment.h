#ifndef SERVICE_FRONTEND_SEGMENTS_PARAMETERSEGMENT_H
#define SERVICE_FRONTEND_SEGMENTS_PARAMETERSEGMENT_H

#include "ipc/ShareMemory/SegmentOwner.h"
#include "service/stack/StackEvents.h"
#include "service/stack/StackStart.h"

namespace btservice {

/// SH_BT_PARAMETER, ten 32-bit words with the settings. A client that comes before this service fills it from
/// the persistence service, after it has set the loaded flag. This service does not rely on that: the client
/// may have been killed in between. Changes are written here and to the persistence service. All of it on the
/// thread of the main loop.
class ParameterSegment : public StackObserver {
 public:
  /// The owner of the segments must outlive it.
  explicit ParameterSegment(SegmentOwner& segments) : m_segments(segments) {}

  /// Takes the settings from the persistence service, fills the segment with them whatever it holds, and
  /// returns them. A setting that is not stored yet becomes its configured default, and is stored. Call it
  /// when the service owns its name: another one's segment is not to be touched. Without the segment, of
  /// which the log has an error, the settings are returned all the same.
  SettingsData Load();
  /// CapabilityChanged: writes that setting to the segment and, if it is another value there, to the
  /// persistence service. Other events are ignored.
  void OnStackEvent(const StackEvent& event) override;

 private:
  /// The words, filled anew from what is known if it is another segment than before; null if there is none.
  std::int32_t* Words();

  SegmentOwner& m_segments;
  SettingsData m_settings;
};

}  // namespace btservice

#endif
