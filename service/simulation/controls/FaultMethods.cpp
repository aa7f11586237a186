#include <cstring>

#include <unistd.h>

#include "glib/Owned.h"
#include "service/frontend/WireLimits.h"
#include "service/simulation/controls/ControlMethods.h"

#define FAULTS_METHOD(stem)                                                       \
  btservice::MakeMethod("handle-" #stem, &BluetoothSimFaultsIface::handle_##stem, \
                        bluetooth_sim_faults_complete_##stem)

namespace btservice {
namespace {

void Corrupt(SegmentOwner& segments, unsigned id, unsigned offset, GVariant* value) {
  if (id >= std::size(kSegmentCatalogue)) {
    throw std::invalid_argument("there is no segment " + std::to_string(id));
  }
  const SegmentEntry& entry = kSegmentCatalogue[id];
  gsize size = 0;
  const gconstpointer bytes = g_variant_get_fixed_array(value, &size, 1);
  if (offset > entry.size || size > entry.size - offset) {
    throw std::invalid_argument(std::string(entry.name) + " has " + std::to_string(entry.size) + " bytes");
  }
  auto* const memory = static_cast<char*>(segments.Attach(entry.id));
  if (memory == nullptr) {
    throw std::invalid_argument(std::string(entry.name) + " cannot be had");
  }
  if (size > 0) {  // without any, bytes is null
    std::memcpy(memory + offset, bytes, size);
  }
}

/// The floating tuple of the values in an array of variants.
GVariant* ToTuple(GVariant* values) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE_TUPLE);
  for (gsize i = 0; i < g_variant_n_children(values); ++i) {
    OwnedVariant value;
    g_variant_get_child(values, i, "v", value.Out());
    g_variant_builder_add_value(&builder, value.get());
  }
  GVariant* const tuple = g_variant_builder_end(&builder);
  const std::size_t signature = std::strlen(g_variant_get_type_string(tuple)) - std::strlen("()");
  if (signature > kLongestSignature) {
    const OwnedVariant unused(tuple);
    throw std::invalid_argument("expected values whose types take at most " +
                                std::to_string(kLongestSignature) + " characters, got " +
                                std::to_string(signature));
  }
  return tuple;
}

}  // namespace

void BindFaultMethods(FaultsBinder binder, Breakables breakables) {
  using F = AnswerFaults;
  AnswerFaults& answers = breakables.answers;
  binder.Bind(FAULTS_METHOD(delay_answers), answers, &F::Delay);
  binder.Bind(FAULTS_METHOD(fail_answers), answers, &F::Fail);
  binder.Bind(FAULTS_METHOD(replace_answers), [&answers](const gchar* method, guint count, GVariant* values) {
    answers.Replace(method, count, ToTuple(values));
  });
  binder.Bind(FAULTS_METHOD(drop_answers), answers, &F::Drop);
  binder.Bind(FAULTS_METHOD(answer_again), answers, &F::Clear);

  binder.Bind(
      FAULTS_METHOD(emit_signal),
      [emit = breakables.emitSignal](const gchar* name, GVariant* values) { emit(name, ToTuple(values)); });
  binder.Bind(FAULTS_METHOD(corrupt_segment),
              [&segments = breakables.segments](guint id, guint offset, GVariant* bytes) {
                Corrupt(segments, id, offset, bytes);
              });
  binder.Bind(FAULTS_METHOD(leave_bus),
              [leave = breakables.leaveBus](guint milliseconds) { leave(milliseconds); });
  binder.Bind(FAULTS_METHOD(get_time), [&scheduler = breakables.scheduler, speed = breakables.speed] {
    return std::tuple(scheduler.Now().count(), speed);
  });
  binder.Bind(FAULTS_METHOD(die), [](guint exitCode) { _exit(static_cast<int>(exitCode & 0xFF)); });
}

}  // namespace btservice
