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
                       fake->m_adapters[name] = std::make_unique<FakeAdapter>(fake->m_manager.get(), name,
                                                                              address, powered != FALSE);
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
