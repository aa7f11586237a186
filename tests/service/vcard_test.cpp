#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/world/JsonNode.h"
#include "service/world/VCard.h"

namespace btservice {
namespace {

using testing::ElementsAre;

std::vector<Contact> Parse(const std::string& text) { return ParseVCards(text, "cards.vcf"); }

std::string Card(const std::string& properties) { return "BEGIN:VCARD\r\n" + properties + "END:VCARD\r\n"; }

TEST(VCardTest, NamesAndNumbersAreTaken) {
  const std::vector<Contact> contacts = Parse(
      Card("VERSION:3.0\r\nFN:Ada Arndt\r\nN:Arndt;Ada;;;\r\nTEL;TYPE=CELL:1\r\nTEL;TYPE=HOME,VOICE:2\r\n"
           "TEL;TYPE=cell:3\r\nTEL;TYPE=WORK:4\r\nTEL:5\r\nNOTE:x\r\n"));
  ASSERT_EQ(contacts.size(), 1U);
  EXPECT_EQ(contacts[0].id, 1);
  EXPECT_EQ(contacts[0].firstName, "Ada");
  EXPECT_EQ(contacts[0].familyName, "Arndt");
  ASSERT_EQ(contacts[0].numbers.size(), 4U);
  EXPECT_EQ(contacts[0].numbers[0].type, NUMBER_MOBILE);
  EXPECT_THAT(contacts[0].numbers[0].numbers, ElementsAre("1", "3"));
  EXPECT_EQ(contacts[0].numbers[1].type, NUMBER_HOME);
  EXPECT_EQ(contacts[0].numbers[2].type, NUMBER_WORK);
  EXPECT_EQ(contacts[0].numbers[3].type, NUMBER_OTHER);
}

TEST(VCardTest, SoAreThoseOfOldAndNewVersions) {
  const std::vector<Contact> contacts =
      Parse(Card("N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=A4ger;J=C3=\r\n=B6rg\r\nTEL;CELL:1\r\n") +
            Card("FN:Garage\r\nTEL;VALUE=uri;TYPE=\"voice,work\":tel:+4930\r\n"));
  ASSERT_EQ(contacts.size(), 2U);
  EXPECT_EQ(contacts[0].familyName, "Jäger");
  EXPECT_EQ(contacts[0].firstName, "Jörg");
  EXPECT_EQ(contacts[1].familyName, "Garage") << "only a full name";
  EXPECT_THAT(contacts[1].numbers[0].numbers, ElementsAre("+4930"));
  EXPECT_EQ(contacts[1].id, 2);
}

TEST(VCardTest, LinesMayBeFoldedTextsEscapedAndPropertiesGrouped) {
  const std::vector<Contact> contacts =
      Parse("\n" + Card("N:Smith\\; Sons;An\r\n na;;;\r\nitem1.TEL;TYPE=CELL:1\r\n"));
  ASSERT_EQ(contacts.size(), 1U);
  EXPECT_EQ(contacts[0].familyName, "Smith; Sons");
  EXPECT_EQ(contacts[0].firstName, "Anna");
  EXPECT_EQ(contacts[0].numbers.size(), 1U);
}

TEST(VCardTest, AnEmptyTextHasNoContacts) { EXPECT_TRUE(Parse("").empty()); }

TEST(VCardTest, WhatIsNoCardIsToldWithItsLine) {
  const auto problem = [](const std::string& text) {
    try {
      Parse(text);
    } catch (const FileError& error) {
      return std::string(error.what());
    }
    return std::string("nothing");
  };
  EXPECT_EQ(problem("hello\n"), "cards.vcf:1: expected a property such as TEL:112, got 'hello'");
  EXPECT_EQ(problem("\nTEL:1\n"), "cards.vcf:2: expected BEGIN:VCARD, got 'TEL'");
  EXPECT_EQ(problem("BEGIN:VCARD\nTEL:1\n"), "cards.vcf:2: the card begun in line 1 has no END:VCARD");
}

}  // namespace
}  // namespace btservice
