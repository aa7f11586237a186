#include "service/files/Limits.h"
#include "service/files/Quote.h"
#include "service/phonebook/VCard.h"
#include "service/simulation/controls/ControlMethods.h"
#include "service/simulation/world/Words.h"
#include "service/simulation/world/WorldFile.h"

#define OUTSIDE_METHOD(stem)                                                       \
  btservice::MakeMethod("handle-" #stem, &BluetoothSimOutsideIface::handle_##stem, \
                        bluetooth_sim_outside_complete_##stem)

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

/// What is written in an argument: as parse reads it, or std::invalid_argument with what is wrong there.
template <typename Value>
Value FromText(Value (*parse)(const std::string&), const gchar* text) {
  try {
    return parse(text);
  } catch (const std::runtime_error& problem) {
    throw std::invalid_argument(problem.what());
  }
}

std::vector<Contact> ContactsOf(const gchar* text) {
  VCards cards = ParseVCards(text, "vcards");
  if (!cards.problems.empty()) {
    throw std::invalid_argument(cards.problems.front());
  }
  return std::move(cards.contacts);
}

/// How many contacts there may be yet, in one phone book and in all of them.
void ExpectRoomFor(std::size_t contacts, std::size_t inAll) {
  const auto expectAtMost = [](std::size_t most, const char* where, std::size_t got) {
    if (got > most) {
      throw std::invalid_argument("expected at most " + std::to_string(most) + " contacts in " + where +
                                  ", got " + std::to_string(got));
    }
  };
  expectAtMost(kMostContacts, "a phone book", contacts);
  expectAtMost(kMostContactsInAll, "all phone books", inAll);
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

void BindOutsideMethods(OutsideBinder binder, Outside& outside) {
  using O = Outside;
  binder.Bind(OUTSIDE_METHOD(add_device), [&outside](const gchar* json) {
    if (outside.Devices().size() >= kMostDevices) {
      throw std::invalid_argument("there are " + std::to_string(kMostDevices) + " devices already");
    }
    const DeviceData device = FromText(ParseDevice, json);
    const std::size_t contacts = device.phone.contacts.size() + device.phone.simContacts.size();
    ExpectRoomFor(contacts, outside.ContactCount() + contacts);
    return outside.AddDevice(device);
  });
  binder.Bind(OUTSIDE_METHOD(set_in_range), outside, &O::SetInRange);
  binder.Bind(OUTSIDE_METHOD(lose_link), outside, &O::LoseLink);
  binder.Bind(OUTSIDE_METHOD(request_pairing), outside, &O::RequestPairing);
  binder.Bind(OUTSIDE_METHOD(accept_pairing), outside, &O::AcceptPairing);
  binder.Bind(OUTSIDE_METHOD(reject_pairing), outside, &O::RejectPairing);
  binder.Bind(OUTSIDE_METHOD(request_connection), [&outside](const gchar* address, const gchar* profile) {
    return outside.RequestConnection(address, FromWord<ProfileId>(profile));
  });
  binder.Bind(OUTSIDE_METHOD(request_disconnection), [&outside](const gchar* address, const gchar* profile) {
    return outside.RequestDisconnection(address, FromWord<ProfileId>(profile));
  });
  binder.Bind(OUTSIDE_METHOD(request_projection), outside, &O::RequestProjection);

  binder.Bind(OUTSIDE_METHOD(set_signal), outside, &O::SetSignal);
  binder.Bind(OUTSIDE_METHOD(set_battery), outside, &O::SetBattery);
  binder.Bind(OUTSIDE_METHOD(set_operator), outside, &O::SetOperator);
  binder.Bind(OUTSIDE_METHOD(set_roaming), outside, &O::SetRoaming);

  binder.Bind(OUTSIDE_METHOD(call), outside, &O::Call);
  binder.Bind(OUTSIDE_METHOD(answer_call), outside, &O::AnswerCall);
  binder.Bind(OUTSIDE_METHOD(hang_up), outside, &O::HangUp);
  binder.Bind(OUTSIDE_METHOD(set_called_party), [&outside](const gchar* address, const gchar* behaviour,
                                                           guint answersAfter) {
    return outside.SetCalledParty(address, FromWord<CalledParty>(behaviour), Milliseconds(answersAfter));
  });

  binder.Bind(OUTSIDE_METHOD(set_contacts), [&outside](const gchar* address, const gchar* vcards) {
    std::vector<Contact> contacts = ContactsOf(vcards);
    const std::size_t others = outside.ContactCount() - outside.ReplaceableContactCount(address);
    ExpectRoomFor(contacts.size(), others + contacts.size());
    return outside.SetContacts(address, std::move(contacts));
  });
  binder.Bind(OUTSIDE_METHOD(add_call_log), [&outside](const gchar* address, const gchar* entry) {
    return outside.AddCallLog(address, FromText(ParseCallLog, entry));
  });

  binder.Bind(OUTSIDE_METHOD(set_tracks), [&outside](const gchar* address, const gchar* tracks) {
    return outside.SetTracks(address, FromText(ParseTracks, tracks));
  });
  binder.Bind(OUTSIDE_METHOD(play), outside, &O::Play);
  binder.Bind(OUTSIDE_METHOD(pause), outside, &O::Pause);
  binder.Bind(OUTSIDE_METHOD(send_message),
              [&outside](const gchar* address, const gchar* handle, const gchar* sender, const gchar* text) {
                return outside.SendMessage(address, {handle, sender, text});
              });
  binder.Bind(OUTSIDE_METHOD(change_message),
              [&outside](const gchar* address, const gchar* handle, const gchar* status) {
                return outside.ChangeMessage(address, handle, FromWord<MsgStatus>(status));
              });
  binder.Bind(OUTSIDE_METHOD(set_message_property), outside, &O::SetMessageProperty);
  binder.Bind(OUTSIDE_METHOD(send_serial), [&outside](const gchar* address, GVariant* data) {
    return outside.SendSerial(address, ToBytes(data));
  });

  binder.Bind(OUTSIDE_METHOD(list_devices), [&outside] { return ToVariant(outside.Devices()); });
}

}  // namespace btservice
