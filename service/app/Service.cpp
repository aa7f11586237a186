#include "service/app/Service.h"

#include "service/app/EndEvents.h"
#include "service/frontend/Methods.h"

namespace btservice {

Service::Service(const Options& options, StackProvider& provider, ComZelkLinuxBluetooth* object,
                 ServiceBus& bus)
    : m_options(options),
      m_parameters(m_segments),
      m_state(options.statePath),
      m_scheduler(provider.Speed(), [&bus] { return bus.HasRoom(); }),
      m_emitter(object),
      m_provided(provider.MakeStack({m_scheduler, m_segments, bus}, LoadStart())),
      m_publisher(m_segments, *m_provided.stack) {
  BluetoothStack& stack = *m_provided.stack;
  BindAllMethods(ServiceBinder(object, m_provided.gate), stack, m_publisher);
  // Signals to clients go out last, when everything that clients may read is there.
  stack.AddObserver(m_parameters);
  m_state.Follow(stack);
  stack.AddObserver(m_publisher);
  stack.AddObserver(m_emitter);
}

StackStart Service::LoadStart() { return {m_parameters.Load(), m_state.Load()}; }

void Service::Start() {
  const LeftBehind left = ReadLeftBehind(m_segments);
  m_publisher.PublishAll();
  for (const StackEvent& event : EndEvents(left)) {
    m_emitter.OnStackEvent(event);
  }
  m_provided.stack->Start();
}

void Service::Stop() {
  m_provided.stack->Stop();
  if (m_options.removeSegments) {
    m_segments.Remove();
  }
}

}  // namespace btservice
