#ifndef SERVICE_SIMULATION_STAGE_H
#define SERVICE_SIMULATION_STAGE_H

#include "service/app/StackProvider.h"
#include "service/simulation/SimulatedStack.h"
#include "service/simulation/Timeline.h"
#include "service/simulation/controls/AnswerFaults.h"
#include "service/simulation/controls/CallLimit.h"
#include "service/simulation/controls/ControlMethods.h"
#include "service/simulation/world/WorldFile.h"

namespace btservice {

/// The controls on the bus, of which each interface has a skeleton.
struct ControlObjects {
  BluetoothSimOutside* outside;
  BluetoothSimFaults* faults;
};

/// The simulated stack in a world that somebody directs: by the world's timeline, and by the controls on the
/// bus.
class Stage : public SimulatedStack {
 public:
  /// The objects of the controls must outlive this.
  Stage(const ServiceParts& parts, WorldFile file, const StackStart& start, double speed,
        ControlObjects controls);

  /// As that of the stack, and the timeline begins.
  void Start() override;
  /// For the answers of the service's methods: Faults spoils them here.
  AnswerGate& Gate() { return m_answers; }

 private:
  void BindControls(const ServiceParts& parts, double speed, ControlObjects controls);

  std::vector<Happening> m_happenings;
  Timeline m_timeline;
  AnswerFaults m_answers;
  CallLimit m_controlLimit;
};

}  // namespace btservice

#endif
