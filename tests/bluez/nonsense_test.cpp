// A daemon that answers nonsense, and bytes from the air that are no text: nothing of it ends the service or
// reaches an application.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/bluez/AirText.h"
#include "tests/bluez/BluezTest.h"

namespace btservice {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kPropertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* kObjectManager = "org.freedesktop.DBus.ObjectManager";
constexpr const char* kAdapterPath = "/org/bluez/hci0";

class BluezNonsenseTest : public BluezTest {
 protected:
  void Change(const char* property, GVariant* value) {
    GVariantBuilder changed;
    g_variant_builder_init(&changed, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&changed, "{sv}", property, value);
    Daemons().Emit(kAdapterPath, kPropertiesInterface, "PropertiesChanged",
                   g_variant_new("(sa{sv}as)", "org.bluez.Adapter1", &changed, nullptr));
  }
};

TEST_F(BluezNonsenseTest, AListOfObjectsThatIsNoneIsLoggedOnceAndAskedForAgain) {
  StartDaemons();
  Daemons().AnswerWith("GetManagedObjects", g_variant_new("(s)", "no list"));
  StartService();
  EXPECT_TRUE(Logs("org.bluez does not say what objects it has"));
  EXPECT_EQ(Power(), kOff);
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().CountCalls("GetManagedObjects") >= 2; }));
  Daemons().Behave();
  EXPECT_TRUE(PowerBecomes(kOn));
  const std::string log = Service().Process().Errors();
  const std::size_t first = log.find("does not say what objects");
  EXPECT_EQ(log.find("does not say what objects", first + 1), std::string::npos) << log;
}

TEST_F(BluezNonsenseTest, ARefusedListOfObjectsIsAskedForAgain) {
  StartDaemons();
  Daemons().Refuse("GetManagedObjects", "org.freedesktop.DBus.Error.AccessDenied", "not for you\x1b[31m");
  StartService();
  EXPECT_TRUE(Logs("AccessDenied: not for you"));
  EXPECT_THAT(Service().Process().Errors(), Not(HasSubstr("\x1b")));
  Daemons().Behave();
  EXPECT_TRUE(PowerBecomes(kOn));
}

TEST_F(BluezNonsenseTest, AnAdapterWithoutPropertiesIsOffAndHasNoAttributes) {
  StartDaemons();
  GVariantBuilder objects;
  g_variant_builder_init(&objects, G_VARIANT_TYPE("a{oa{sa{sv}}}"));
  g_variant_builder_open(&objects, G_VARIANT_TYPE("{oa{sa{sv}}}"));
  g_variant_builder_add(&objects, "o", kAdapterPath);
  g_variant_builder_open(&objects, G_VARIANT_TYPE("a{sa{sv}}"));
  g_variant_builder_add(&objects, "{sa{sv}}", "org.bluez.Adapter1", nullptr);
  g_variant_builder_close(&objects);
  g_variant_builder_close(&objects);
  Daemons().AnswerWith("GetManagedObjects", g_variant_new("(a{oa{sa{sv}}})", &objects));
  StartService();
  ASSERT_TRUE(bttest::RunUntil([&] { return Daemons().CountCalls("Set Powered") > 0; }));
  for (const int attribute :
       {BT_ATTR_LOCAL_NAME, BT_ATTR_LOCAL_ADDRESS, BT_ATTR_STACK_VERSION, BT_ATTR_CLASS_OF_DEVICE}) {
    EXPECT_EQ(AttributeText(attribute), "('', byte 0x00)") << attribute;
  }
  EXPECT_TRUE(PowerBecomes(kOn)) << "this one it says by itself";
}

TEST_F(BluezNonsenseTest, PropertiesOfOtherTypesAreAsGoodAsNone) {
  StartWithAdapter();
  Change("Alias", g_variant_new_uint32(7));
  Change("Address", g_variant_new_bytestring("\xFF\xFE"));
  Change("Class", g_variant_new_string("many"));
  Change("Modalias", g_variant_new_string("usb:v1D6Bp0246dxyz"));
  for (const int attribute :
       {BT_ATTR_LOCAL_NAME, BT_ATTR_LOCAL_ADDRESS, BT_ATTR_STACK_VERSION, BT_ATTR_CLASS_OF_DEVICE}) {
    EXPECT_TRUE(bttest::RunUntil([&] { return AttributeText(attribute) == "('', byte 0x00)"; })) << attribute;
  }
  Change("Powered", g_variant_new_string("yes"));
  EXPECT_TRUE(PowerBecomes(kOff));
  Change("Address", g_variant_new_string("not an address"));
  Change("Powered", g_variant_new_boolean(TRUE));
  EXPECT_TRUE(PowerBecomes(kOn));
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_ADDRESS), "('', byte 0x00)");
}

TEST_F(BluezNonsenseTest, SignalsOfOtherTypesAndOfUnknownObjectsAreIgnored) {
  StartWithAdapter();
  Daemons().Emit(kAdapterPath, kPropertiesInterface, "PropertiesChanged", g_variant_new("(i)", 5));
  Daemons().Emit("/", kObjectManager, "InterfacesAdded", g_variant_new("(s)", "hci0"));
  Daemons().Emit("/", kObjectManager, "InterfacesRemoved", g_variant_new("(o)", kAdapterPath));
  Daemons().Emit("/nowhere", kPropertiesInterface, "PropertiesChanged",
                 g_variant_new("(sa{sv}as)", "org.bluez.Adapter1", nullptr, nullptr));
  const gchar* const names[] = {"org.bluez.Adapter1", nullptr};
  Daemons().Emit("/", kObjectManager, "InterfacesRemoved", g_variant_new("(o^as)", "/nowhere", names));
  Change("Alias", g_variant_new_string("after all that"));
  EXPECT_TRUE(
      bttest::RunUntil([&] { return AttributeText(BT_ATTR_LOCAL_NAME) == "('after all that', byte 0x01)"; }));
  EXPECT_EQ(Power(), kOn);
}

TEST_F(BluezNonsenseTest, ANameThatIsTooLongIsCutBetweenTwoCharacters) {
  StartWithAdapter();
  std::string name = "x";
  for (int i = 0; i < 500; ++i) {
    name += "ä";
  }
  Change("Alias", g_variant_new_string(name.c_str()));
  const std::string cut = "('" + name.substr(0, 247) + "', byte 0x01)";
  EXPECT_TRUE(bttest::RunUntil([&] { return AttributeText(BT_ATTR_LOCAL_NAME) == cut; }))
      << AttributeText(BT_ATTR_LOCAL_NAME);
}

// A bus ends the connection of whoever sends a text that is not UTF-8, so that it comes from a daemon never.
TEST(BluezAirTextTest, IsUtf8WithoutControlCharactersAndOfItsLength) {
  EXPECT_EQ(bluez::AirText("Ada\x07's \x1b[31mphone", 248), "Ada 's  [31mphone");
  EXPECT_EQ(bluez::AirText("J\xF6rg", 248), "Jörg");
  EXPECT_EQ(bluez::AirText("\xE4\xE4", 3), "ä");
  EXPECT_EQ(bluez::AirText("", 248), "");
}

}  // namespace
}  // namespace btservice
