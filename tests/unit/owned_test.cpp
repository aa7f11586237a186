// Owning what GLib makes.

#include <utility>

#include <gio/gio.h>
#include <gtest/gtest.h>

#include "glib/Owned.h"

namespace {

int g_releases = 0;

void CountRelease(int*) { ++g_releases; }

using OwnedNumber = Owned<int, CountRelease>;

class OwnedThing : public testing::Test {
 protected:
  OwnedThing() { g_releases = 0; }

  int m_first = 1;
  int m_second = 2;
};

void HandOut(int** place, int* result) {
  EXPECT_EQ(*place, nullptr);
  *place = result;
}

TEST_F(OwnedThing, IsReleasedOnceAtTheEnd) {
  {
    const OwnedNumber owned(&m_first);
    EXPECT_EQ(owned.get(), &m_first);
    EXPECT_TRUE(owned != nullptr);
    EXPECT_EQ(g_releases, 0);
  }
  EXPECT_EQ(g_releases, 1);
}

TEST_F(OwnedThing, MayBeNothing) {
  {
    const OwnedNumber nothing;
    const OwnedNumber null = nullptr;
    const OwnedNumber of_null(static_cast<int*>(nullptr));
    EXPECT_FALSE(nothing);
    EXPECT_TRUE(null == nullptr);
    EXPECT_TRUE(of_null == nullptr);
  }
  EXPECT_EQ(g_releases, 0);
}

TEST_F(OwnedThing, MovesToItsNextOwner) {
  OwnedNumber first(&m_first);
  {
    const OwnedNumber next(std::move(first));
    EXPECT_EQ(next.get(), &m_first);
    EXPECT_EQ(g_releases, 0);
  }
  EXPECT_EQ(g_releases, 1);
}

TEST_F(OwnedThing, IsReleasedWhenAnotherIsAssigned) {
  OwnedNumber owned(&m_first);
  owned = OwnedNumber(&m_second);
  EXPECT_EQ(owned.get(), &m_second);
  EXPECT_EQ(g_releases, 1);
  owned.reset();
  EXPECT_EQ(owned.get(), nullptr);
  EXPECT_EQ(g_releases, 2);
}

TEST_F(OwnedThing, SurvivesBeingAssignedToItself) {
  OwnedNumber owned(&m_first);
  OwnedNumber& same = owned;
  owned = std::move(same);
  EXPECT_EQ(owned.get(), &m_first);
  EXPECT_EQ(g_releases, 0);
}

TEST_F(OwnedThing, IsTheCallersAfterRelease) {
  OwnedNumber owned(&m_first);
  EXPECT_EQ(owned.release(), &m_first);
  EXPECT_EQ(owned.get(), nullptr);
  EXPECT_EQ(g_releases, 0);
}

TEST_F(OwnedThing, IsReleasedBeforeAFunctionHandsOutTheNext) {
  OwnedNumber owned;
  HandOut(owned.Out(), &m_first);
  EXPECT_EQ(owned.get(), &m_first);
  EXPECT_EQ(g_releases, 0);
  HandOut(owned.Out(), &m_second);
  EXPECT_EQ(owned.get(), &m_second);
  EXPECT_EQ(g_releases, 1);
}

/// A variant, floating as all new ones, that counts its end.
GVariant* NewVariant() {
  static const unsigned char bytes[] = {1, 2, 3};
  return g_variant_new_from_data(
      G_VARIANT_TYPE_BYTESTRING, bytes, sizeof bytes, TRUE, [](gpointer) { ++g_releases; }, nullptr);
}

using OwnedVariants = OwnedThing;

TEST_F(OwnedVariants, AreTakenFromAFloatingReference) {
  {
    const OwnedVariant owned(NewVariant());
    EXPECT_FALSE(g_variant_is_floating(owned.get()));
    // A function that takes floating references adds one of its own now.
    const OwnedVariant boxed(g_variant_new_variant(owned.get()));
  }
  EXPECT_EQ(g_releases, 1);
}

TEST_F(OwnedVariants, AreTakenFromAReferenceThatDoesNotFloat) {
  {
    OwnedVariant owned(g_variant_ref_sink(NewVariant()));
    owned.reset(NewVariant());
    EXPECT_FALSE(g_variant_is_floating(owned.get()));
    EXPECT_EQ(g_releases, 1);
  }
  EXPECT_EQ(g_releases, 2);
}

TEST_F(OwnedVariants, ThatFloatAreSunkByANewReference) {
  { const OwnedVariant owned = NewRef(NewVariant()); }
  EXPECT_EQ(g_releases, 1);
}

TEST_F(OwnedVariants, LiveAsLongAsTheLastReference) {
  OwnedVariant first(NewVariant());
  const OwnedVariant second = NewRef(first.get());
  EXPECT_EQ(second.get(), first.get());
  first.reset();
  EXPECT_EQ(g_releases, 0);
}

TEST(OwnedObjects, LiveAsLongAsTheLastReference) {
  OwnedObject<GCancellable> first(g_cancellable_new());
  gpointer watched = first.get();
  g_object_add_weak_pointer(G_OBJECT(first.get()), &watched);
  OwnedObject<GCancellable> second = NewRef(first.get());
  first.reset();
  EXPECT_EQ(watched, second.get());
  second.reset();
  EXPECT_EQ(watched, nullptr);
}

TEST(OwnedErrors, AreReceivedFromTheCallThatFailed) {
  OwnedError error;
  EXPECT_EQ(g_variant_parse(nullptr, "<", nullptr, nullptr, error.Out()), nullptr);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->domain, G_VARIANT_PARSE_ERROR);
  // The same place can be handed out again: GLib does not want an error on top of another.
  const OwnedVariant value(g_variant_parse(nullptr, "true", nullptr, nullptr, error.Out()));
  EXPECT_FALSE(error);
  EXPECT_TRUE(g_variant_get_boolean(value.get()));
}

}  // namespace
