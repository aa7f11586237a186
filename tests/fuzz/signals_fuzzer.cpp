// libFuzzer target: the handler of each signal, with any body that the bus lets through. The first byte of an
// input chooses the signal, the others are its serialised arguments. The body takes the way of a real one,
// from the proxy's "g-signal" through the handler to a listener of each kind, and the listener receives just
// that.

#include <cstdint>
#include <string>
#include <vector>

#include "contract/RecordingListeners.h"
#include "fuzz/FuzzCheck.h"
#include "fuzz/LogCount.h"
#include "glib/Owned.h"
#include "ipc/BtClientIpcAdapter.h"
#include "ipc/BtProxy.h"

namespace {

using bttest::Check;
using bttest::Receptions;
using bttest::ValueText;

/// The library with a proxy that is on no bus, and a listener of each kind.
class Library {
 public:
  Library() {
    bttest::CountErrorsFromNowOn();
    g_BtProxy = COM_ZELK_LINUX_BLUETOOTH(g_object_new(TYPE_COM_ZELK_LINUX_BLUETOOTH_PROXY, nullptr));
    m_adapter.RegisterDBusSignal();
  }

  /// Delivers a signal as GDBus does once it has checked the types of the body.
  void Emit(const char* signal, GVariant* body) {
    m_receptions.all.clear();
    bttest::TakeErrors();
    g_signal_emit_by_name(g_BtProxy, "g-signal", ":1.1", signal, body);
  }

  const std::vector<bttest::Reception>& Heard() const { return m_receptions.all; }

 private:
  BtClientIpcAdapter m_adapter;
  Receptions m_receptions;
  bttest::RecordingComListener m_com{m_receptions};
  bttest::RecordingPhoneListener m_phone{m_receptions};
  bttest::RecordingMediaListener m_media{m_receptions};
  bttest::RecordingPbapListener m_pbap{m_receptions};
  bttest::RecordingMessageListener m_message{m_receptions};
  bttest::RecordingSppListener m_spp{m_receptions};
};

std::string TypeOf(const GDBusSignalInfo& signal) {
  std::string type = "(";
  for (GDBusArgInfo** arg = signal.args; arg != nullptr && *arg != nullptr; ++arg) {
    type += (*arg)->signature;
  }
  return type + ")";
}

/// The body that a message with these bytes would have: GDBus makes all values sound.
OwnedVariant MakeBody(const std::string& type, const std::uint8_t* data, std::size_t size) {
  const OwnedBytes bytes(g_bytes_new(data, size));
  const OwnedVariant raw(g_variant_new_from_bytes(G_VARIANT_TYPE(type.c_str()), bytes.get(), FALSE));
  return OwnedVariant(g_variant_get_normal_form(raw.get()));
}

/// What a listener has to receive of a body; false if it holds a variant without bytes, which is dropped.
bool Expect(GVariant* body, std::vector<std::string>& values) {
  bool isWhole = true;
  for (gsize i = 0; i < g_variant_n_children(body); ++i) {
    const OwnedVariant child(g_variant_get_child_value(body, i));
    GVariant* const value = child.get();
    switch (g_variant_classify(value)) {
      case G_VARIANT_CLASS_STRING:
        values.push_back(ValueText::Of(std::string(g_variant_get_string(value, nullptr))));
        break;
      case G_VARIANT_CLASS_BYTE:
        values.push_back(ValueText::Of(g_variant_get_byte(value)));
        break;
      case G_VARIANT_CLASS_BOOLEAN:
        values.push_back(ValueText::Of(g_variant_get_boolean(value)));
        break;
      case G_VARIANT_CLASS_INT32:
        values.push_back(ValueText::Of(g_variant_get_int32(value)));
        break;
      case G_VARIANT_CLASS_VARIANT: {
        const OwnedVariant bytes(g_variant_get_variant(value));
        isWhole = g_variant_is_of_type(bytes.get(), G_VARIANT_TYPE_BYTESTRING) != FALSE;
        const auto* const data = static_cast<const char*>(g_variant_get_data(bytes.get()));
        values.push_back(ValueText::Of(std::string(data, isWhole ? g_variant_get_size(bytes.get()) : 0)));
        break;
      }
      default:
        Check(false, "the interface has no arguments of other types");
    }
  }
  return isWhole;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Library& library = *new Library;  // as long as the process
  static const GDBusInterfaceInfo& interface = *com_zelk_linux_bluetooth_interface_info();
  static const std::size_t signals = g_strv_length(reinterpret_cast<gchar**>(interface.signals));
  if (size == 0) {
    return -1;
  }
  const GDBusSignalInfo& signal = *interface.signals[data[0] % signals];
  const OwnedVariant body = MakeBody(TypeOf(signal), data + 1, size - 1);
  std::vector<std::string> values;
  const bool isWhole = Expect(body.get(), values);
  library.Emit(signal.name, body.get());

  const bool isHeard = isWhole && std::string(signal.name) != "OnScanedDeviceChanged";
  Check(library.Heard().size() == (isHeard ? 1 : 0), "one listener is called, and only for what is whole");
  Check(!isHeard || library.Heard()[0].event == signal.name, "the event has the signal's name");
  Check(!isHeard || library.Heard()[0].values == values, "the event has the values of the signal");
  Check(bttest::TakeErrors() == (isWhole ? 0 : 1), "an event that is dropped is an error");
  return 0;
}
