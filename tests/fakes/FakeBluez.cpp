#include "fakes/FakeBluez.h"

#include <stdexcept>
#include <utility>

#include "fakes/Answering.h"
#include "support/GlibHelpers.h"

namespace fakes {
namespace {

constexpr const char* kControlPath = "/test/fake_bluez";
constexpr const char* kControlInterfaces = "test.";

GVariant* NewTexts(const std::vector<std::string>& texts) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE("(as)"));
  g_variant_builder_open(&builder, G_VARIANT_TYPE("as"));
  for (const std::string& text : texts) {
    g_variant_builder_add(&builder, "s", text.c_str());
  }
  g_variant_builder_close(&builder);
  return g_variant_builder_end(&builder);
}

/// What a variant holds that came as an argument.
OwnedVariant Inside(GVariant* argument) { return OwnedVariant(g_variant_get_variant(argument)); }

}  // namespace

FakeBluez::FakeBluez(GDBusConnection* connection)
    : m_connection(NewRef(connection)),
      m_rules(connection, kControlInterfaces),
      m_manager(g_dbus_object_manager_server_new("/")),
      m_control(fakes_test_fake_bluez_skeleton_new()) {
  BindAdapterControls();
  BindDeviceControls();
  BindAnswerControls();
  OwnedError error;
  g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(m_control.get()), connection, kControlPath,
                                   error.Out());
  bttest::ThrowIfSet(error, "exporting the control interface");
  g_dbus_object_manager_server_set_connection(m_manager.get(), connection);
}

FakeBluez::~FakeBluez() { g_dbus_interface_skeleton_unexport(G_DBUS_INTERFACE_SKELETON(m_control.get())); }

FakeAdapter& FakeBluez::Adapter(const std::string& name) {
  const auto found = m_adapters.find(name);
  if (found == m_adapters.end()) {
    throw std::invalid_argument("there is no adapter " + name);
  }
  return *found->second;
}

void FakeBluez::BindAdapterControls() {
  g_signal_connect(m_control.get(), "handle-add-adapter",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* name,
                                  const gchar* address, gboolean powered, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       auto* const fake = static_cast<FakeBluez*>(self);
                       fake->m_adapters[name] = std::make_unique<FakeAdapter>(
                           fake->m_manager.get(), fake->m_air, name, address, powered != FALSE);
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(
      m_control.get(), "handle-remove-adapter",
      G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* name, gpointer self) {
        return AnswerBy(call, [&]() -> GVariant* {
          auto* const fake = static_cast<FakeBluez*>(self);
          fake->Adapter(name);
          fake->m_adapters.erase(name);
          return nullptr;
        });
      }),
      this);
  g_signal_connect(m_control.get(), "handle-change-adapter",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* name,
                                  const gchar* property, GVariant* value, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       static_cast<FakeBluez*>(self)->Adapter(name).Change(property, Inside(value).get());
                       return nullptr;
                     });
                   }),
                   this);
}

FakeDevice& FakeBluez::Device(const std::string& address) {
  for (const auto& [name, adapter] : m_adapters) {
    if (FakeDevice* const device = adapter->Find(address)) {
      return *device;
    }
  }
  throw std::invalid_argument("no adapter has found " + address);
}

void FakeBluez::Inquire() {
  for (const auto& [name, adapter] : m_adapters) {
    adapter->Inquire();
  }
}

void FakeBluez::BindDeviceControls() {
  g_signal_connect(m_control.get(), "handle-put-in-reach",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* address,
                                  const gchar* name, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       auto* const fake = static_cast<FakeBluez*>(self);
                       fake->m_air[address] = name;
                       fake->Inquire();
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(
      m_control.get(), "handle-take-away",
      G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* address, gpointer self) {
        return AnswerBy(call, [&]() -> GVariant* {
          static_cast<FakeBluez*>(self)->m_air.erase(address);
          return nullptr;
        });
      }),
      this);
  g_signal_connect(
      m_control.get(), "handle-hear",
      G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* address, gpointer self) {
        return AnswerBy(call, [&]() -> GVariant* {
          static_cast<FakeBluez*>(self)->Device(address).Hear();
          return nullptr;
        });
      }),
      this);
  g_signal_connect(m_control.get(), "handle-name-device",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* address,
                                  const gchar* name, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       static_cast<FakeBluez*>(self)->Device(address).SetName(name);
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(m_control.get(), "handle-forget-devices",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       for (const auto& [name, adapter] : static_cast<FakeBluez*>(self)->m_adapters) {
                         adapter->ForgetDevices();
                       }
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(m_control.get(), "handle-set-paired",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* address,
                                  gboolean paired, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       static_cast<FakeBluez*>(self)->Device(address).SetPaired(paired != FALSE);
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(m_control.get(), "handle-devices",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, gpointer self) {
                     return AnswerBy(call, [&] {
                       std::vector<std::string> addresses;
                       for (const auto& [name, adapter] : static_cast<FakeBluez*>(self)->m_adapters) {
                         for (const auto& [address, device] : adapter->Devices()) {
                           addresses.push_back(address);
                         }
                       }
                       return NewTexts(addresses);
                     });
                   }),
                   this);
  g_signal_connect(
      m_control.get(), "handle-filter",
      G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, gpointer self) {
        return AnswerBy(call, [&] {
          GVariant* const filter = static_cast<FakeBluez*>(self)->m_adapters.begin()->second->Filter();
          return filter != nullptr ? g_variant_new("(@a{sv})", filter) : g_variant_new("(a{sv})", nullptr);
        });
      }),
      this);
}

void FakeBluez::BindAnswerControls() {
  g_signal_connect(m_control.get(), "handle-refuse",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* method,
                                  const gchar* error, const gchar* message, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       static_cast<FakeBluez*>(self)->m_rules.Refuse(method, error, message);
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(
      m_control.get(), "handle-hang",
      G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* method, gpointer self) {
        return AnswerBy(call, [&]() -> GVariant* {
          static_cast<FakeBluez*>(self)->m_rules.Hang(method);
          return nullptr;
        });
      }),
      this);
  g_signal_connect(m_control.get(), "handle-answer-with",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* method,
                                  GVariant* answer, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       static_cast<FakeBluez*>(self)->m_rules.AnswerWith(method, Inside(answer).get());
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(m_control.get(), "handle-behave",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, gpointer self) {
                     return AnswerBy(call, [&]() -> GVariant* {
                       static_cast<FakeBluez*>(self)->m_rules.Clear();
                       return nullptr;
                     });
                   }),
                   this);
  g_signal_connect(
      m_control.get(), "handle-emit",
      G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, const gchar* path,
                     const gchar* interface, const gchar* signal, GVariant* values, gpointer self) {
        return AnswerBy(call, [&]() -> GVariant* {
          g_dbus_connection_emit_signal(static_cast<FakeBluez*>(self)->m_connection.get(), nullptr, path,
                                        interface, signal, Inside(values).get(), nullptr);
          return nullptr;
        });
      }),
      this);
  g_signal_connect(m_control.get(), "handle-calls",
                   G_CALLBACK(+[](FakesTestFakeBluez*, GDBusMethodInvocation* call, gpointer self) {
                     return AnswerBy(
                         call, [&] { return NewTexts(static_cast<FakeBluez*>(self)->m_rules.Calls()); });
                   }),
                   this);
}

}  // namespace fakes
