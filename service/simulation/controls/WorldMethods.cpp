#include "service/files/Limits.h"
#include "service/files/Quote.h"
#include "service/simulation/controls/ControlMethods.h"
#include "service/simulation/world/Words.h"
#include "service/simulation/world/WorldFile.h"

namespace btservice {
namespace {

template <typename Enum>
Enum FromWord(const gchar* word) {
  const Enum* const value = FindWord<Enum>(word);
  if (value == nullptr) {
    throw std::invalid_argument(std::string("expected one of ") + Choices<Enum>() + ", got " + Quote(word));
  }
  return *value;
}

DeviceData DeviceFromJson(const gchar* json) {
  try {
    return ParseDevice(json);
  } catch (const std::runtime_error& problem) {
    throw std::invalid_argument(problem.what());
  }
}

Bytes ToBytes(GVariant* value) {
  gsize size = 0;
  const auto* const bytes = static_cast<const std::uint8_t*>(g_variant_get_fixed_array(value, &size, 1));
  return Bytes(bytes, bytes + size);
}

/// A floating list of devices.
GVariant* ToVariant(const std::vector<Outside::Glimpse>& devices) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE("a(ssbbb)"));
  for (const Outside::Glimpse& device : devices) {
    g_variant_builder_add(&builder, "(ssbbb)", device.address.c_str(), device.name.c_str(), device.inRange,
                          device.paired, device.connected);
  }
  return g_variant_builder_end(&builder);
}

}  // namespace

void BindWorldMethods(ControlBinder binder, Outside& outside) {
  using O = Outside;
  binder.Bind(SIM_METHOD(add_device), [&outside](const gchar* json) {
    if (outside.Devices().size() >= kMostDevices) {
      throw std::invalid_argument("there are " + std::to_string(kMostDevices) + " devices already");
    }
    const DeviceData device = DeviceFromJson(json);
    const std::size_t contacts =
        outside.ContactCount() + device.phone.contacts.size() + device.phone.simContacts.size();
    if (contacts > kMostContactsInAll) {
      throw std::invalid_argument("expected at most " + std::to_string(kMostContactsInAll) +
                                  " contacts in all phone books, got " + std::to_string(contacts));
    }
    return outside.AddDevice(device);
  });
  binder.Bind(SIM_METHOD(set_in_range), outside, &O::SetInRange);
  binder.Bind(SIM_METHOD(lose_link), outside, &O::LoseLink);
  binder.Bind(SIM_METHOD(request_pairing), outside, &O::RequestPairing);
  binder.Bind(SIM_METHOD(reject_pairing), outside, &O::RejectPairing);
  binder.Bind(SIM_METHOD(request_connection), [&outside](const gchar* address, const gchar* profile) {
    return outside.RequestConnection(address, FromWord<ProfileId>(profile));
  });
  binder.Bind(SIM_METHOD(request_disconnection), [&outside](const gchar* address, const gchar* profile) {
    return outside.RequestDisconnection(address, FromWord<ProfileId>(profile));
  });
  binder.Bind(SIM_METHOD(request_projection), outside, &O::RequestProjection);

  binder.Bind(SIM_METHOD(set_signal), outside, &O::SetSignal);
  binder.Bind(SIM_METHOD(set_battery), outside, &O::SetBattery);
  binder.Bind(SIM_METHOD(set_operator), outside, &O::SetOperator);
  binder.Bind(SIM_METHOD(set_roaming), outside, &O::SetRoaming);

  binder.Bind(SIM_METHOD(call), outside, &O::Call);
  binder.Bind(SIM_METHOD(answer_call), outside, &O::AnswerCall);
  binder.Bind(SIM_METHOD(hang_up), outside, &O::HangUp);
  binder.Bind(SIM_METHOD(set_called_party), [&outside](const gchar* address, const gchar* behaviour,
                                                       guint answersAfter) {
    return outside.SetCalledParty(address, FromWord<CalledParty>(behaviour), Milliseconds(answersAfter));
  });

  binder.Bind(SIM_METHOD(play), outside, &O::Play);
  binder.Bind(SIM_METHOD(pause), outside, &O::Pause);
  binder.Bind(SIM_METHOD(send_message),
              [&outside](const gchar* address, const gchar* handle, const gchar* sender, const gchar* text) {
                return outside.SendMessage(address, {handle, sender, text});
              });
  binder.Bind(SIM_METHOD(change_message),
              [&outside](const gchar* address, const gchar* handle, const gchar* status) {
                return outside.ChangeMessage(address, handle, FromWord<MsgStatus>(status));
              });
  binder.Bind(SIM_METHOD(set_message_property), outside, &O::SetMessageProperty);
  binder.Bind(SIM_METHOD(send_serial), [&outside](const gchar* address, GVariant* data) {
    return outside.SendSerial(address, ToBytes(data));
  });

  binder.Bind(SIM_METHOD(list_devices), [&outside] { return ToVariant(outside.Devices()); });
}

}  // namespace btservice
