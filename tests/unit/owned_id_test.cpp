// Owning what GLib knows by a number.

#include <utility>
#include <vector>

#include <gio/gio.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "glib/OwnedId.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<guint> g_ended;

void NoteEnd(guint id) { g_ended.push_back(id); }

using OwnedNumber = OwnedId<NoteEnd>;

class OwnedIds : public testing::Test {
 protected:
  OwnedIds() { g_ended.clear(); }
};

TEST_F(OwnedIds, EndOnceWithTheirOwner) {
  {
    const OwnedNumber owned(7);
    EXPECT_TRUE(owned);
    EXPECT_EQ(owned.get(), 7u);
    EXPECT_THAT(g_ended, IsEmpty());
  }
  EXPECT_THAT(g_ended, ElementsAre(7u));
}

TEST_F(OwnedIds, MayBeNone) {
  {
    const OwnedNumber none;
    EXPECT_FALSE(none);
  }
  EXPECT_THAT(g_ended, IsEmpty());
}

TEST_F(OwnedIds, MoveToTheirNextOwner) {
  {
    OwnedNumber first(7);
    const OwnedNumber next(std::move(first));
    EXPECT_EQ(next.get(), 7u);
    EXPECT_THAT(g_ended, IsEmpty());
  }
  EXPECT_THAT(g_ended, ElementsAre(7u));
}

TEST_F(OwnedIds, EndWhenAnotherIsAssigned) {
  OwnedNumber owned(7);
  owned = OwnedNumber(8);
  EXPECT_THAT(g_ended, ElementsAre(7u));
  owned.reset();
  EXPECT_THAT(g_ended, ElementsAre(7u, 8u));
  EXPECT_FALSE(owned);
}

TEST_F(OwnedIds, ThatEndedByThemselvesAreForgotten) {
  {
    OwnedNumber owned(7);
    owned.release();
    EXPECT_FALSE(owned);
  }
  EXPECT_THAT(g_ended, IsEmpty());
}

TEST(OwnedSourceIds, TakeTheSourceOutOfTheMainLoop) {
  guint id = 0;
  {
    const OwnedSourceId source(g_timeout_add(
        1, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr));
    id = source.get();
    EXPECT_NE(g_main_context_find_source_by_id(nullptr, id), nullptr);
  }
  EXPECT_EQ(g_main_context_find_source_by_id(nullptr, id), nullptr);
}

class OwnedHandlers : public testing::Test {
 protected:
  static void Count(GCancellable*, gpointer count) { ++*static_cast<int*>(count); }

  OwnedHandler Connect() {
    return OwnedHandler(G_OBJECT(m_object.get()),
                        g_signal_connect(m_object.get(), "cancelled", G_CALLBACK(Count), &m_count));
  }
  void Emit() {
    g_cancellable_cancel(m_object.get());
    g_cancellable_reset(m_object.get());
  }

  OwnedObject<GCancellable> m_object{g_cancellable_new()};
  int m_count = 0;
};

TEST_F(OwnedHandlers, AreCalledUntilTheirOwnerEnds) {
  {
    const OwnedHandler handler = Connect();
    Emit();
    EXPECT_EQ(m_count, 1);
  }
  Emit();
  EXPECT_EQ(m_count, 1);
}

TEST_F(OwnedHandlers, GoOnWithTheNextOwner) {
  OwnedHandler handler;
  EXPECT_FALSE(handler);
  handler = Connect();
  EXPECT_TRUE(handler);
  Emit();
  EXPECT_EQ(m_count, 1);
  handler = OwnedHandler();
  Emit();
  EXPECT_EQ(m_count, 1);
}

TEST_F(OwnedHandlers, KeepTheirObject) {
  gpointer watched = m_object.get();
  g_object_add_weak_pointer(G_OBJECT(m_object.get()), &watched);
  OwnedHandler handler = Connect();
  m_object.reset();
  EXPECT_NE(watched, nullptr);
  handler.reset();
  EXPECT_EQ(watched, nullptr);
}

}  // namespace
