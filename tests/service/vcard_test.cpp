#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/phonebook/VCard.h"

namespace btservice {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The contacts of a text in which every card makes sense.
std::vector<Contact> Parse(const std::string& text) {
  const VCards cards = ParseVCards(text, "cards.vcf");
  EXPECT_THAT(cards.problems, IsEmpty());
  EXPECT_EQ(cards.skipped, 0U);
  return cards.contacts;
}

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

/// The family names of all contacts.
std::vector<std::string> FamilyNames(const std::vector<Contact>& contacts) {
  std::vector<std::string> names;
  names.reserve(contacts.size());
  for (const Contact& contact : contacts) {
    names.push_back(contact.familyName);
  }
  return names;
}

TEST(VCardTest, ABadCardIsSkippedAndReportedAndTheRestIsRead) {
  const VCards cards =
      ParseVCards(Card("N:Arndt;Ada\r\n") + Card("N:Baker\r\nthis is no line\r\nTEL:1\r\n") +
                      Card("N:Conti\r\n") + "BEGIN:VCARD\r\nN:Lost\r\n" + Card("N:Dvorak\r\n"),
                  "cards.vcf");
  EXPECT_THAT(FamilyNames(cards.contacts), ElementsAre("Arndt", "Conti", "Dvorak"));
  EXPECT_EQ(cards.contacts[2].id, 3) << "the ids have no gaps";
  EXPECT_EQ(cards.skipped, 2U);
  EXPECT_THAT(cards.problems,
              ElementsAre("cards.vcf:6: expected a property such as TEL:112, got 'this is no line'",
                          "cards.vcf:14: the card begun in line 12 has no END:VCARD"));
}

TEST(VCardTest, WhatIsBetweenTheCardsIsReportedOnce) {
  const VCards cards =
      ParseVCards("\nhello\nTEL:1\nEND:VCARD\n" + Card("N:Arndt\n") + "TEL:2\n", "cards.vcf");
  EXPECT_THAT(FamilyNames(cards.contacts), ElementsAre("Arndt"));
  EXPECT_EQ(cards.skipped, 2U);
  EXPECT_THAT(cards.problems, ElementsAre("cards.vcf:2: expected BEGIN:VCARD, got 'hello'",
                                          "cards.vcf:8: expected BEGIN:VCARD, got 'TEL'"));
}

TEST(VCardTest, TheLastCardMayBeCutOff) {
  const VCards cards = ParseVCards(Card("N:Arndt\n") + "BEGIN:VCARD\nTEL:1\n", "cards.vcf");
  EXPECT_THAT(FamilyNames(cards.contacts), ElementsAre("Arndt"));
  EXPECT_THAT(cards.problems, ElementsAre("cards.vcf:5: the card begun in line 4 has no END:VCARD"));
}

TEST(VCardTest, AMillionBadCardsMakeFewReports) {
  std::string text;
  for (int i = 0; i < 1'000'000; ++i) {
    text += "BEGIN:VCARD\nx\nEND:VCARD\n";
  }
  const VCards cards = ParseVCards(text + Card("N:Arndt\n"), "cards.vcf");
  EXPECT_THAT(FamilyNames(cards.contacts), ElementsAre("Arndt"));
  EXPECT_EQ(cards.skipped, 1'000'000U);
  EXPECT_THAT(cards.problems, SizeIs(20));
}

TEST(VCardTest, AReportQuotesLittleAndNothingThatALogCannotTake) {
  const VCards cards = ParseVCards(Card("\x1b[2J\xff" + std::string(5000, 'x') + "\n"), "cards.vcf");
  ASSERT_THAT(cards.problems, SizeIs(1));
  EXPECT_EQ(cards.problems[0], "cards.vcf:2: expected a property such as TEL:112, got '\\u{001B}[2J\\xFF" +
                                   std::string(55, 'x') + "...'");
}

TEST(VCardTest, CharacterSetsAreConverted) {
  const std::vector<Contact> contacts = Parse(
      Card("N;CHARSET=ISO-8859-1:J\xE4ger;J\xF6rg\r\n") +
      Card("N;CHARSET=windows-1251;ENCODING=QUOTED-PRINTABLE:=C8=E2=E0=ED=EE=E2=E0;=CE=EB=FC=E3=E0\r\n") +
      Card("N;CHARSET=\"SHIFT_JIS\":\x97\xD1;\x83\x5C\r\n") + Card("N;CHARSET=utf-8:Dvořák;\r\n") +
      Card("N;CHARSET=UTF-16BE;ENCODING=B:AEEAZABh\r\n"));
  EXPECT_THAT(FamilyNames(contacts), ElementsAre("Jäger", "Иванова", "林", "Dvořák", "Ada"));
  EXPECT_EQ(contacts[0].firstName, "Jörg");
  EXPECT_EQ(contacts[1].firstName, "Ольга");
  EXPECT_EQ(contacts[2].firstName, "ソ") << "its second byte is a backslash, which means nothing there";
}

TEST(VCardTest, BytesOfNoNamedCharacterSetAreUtf8OrElseLatin1) {
  const std::vector<Contact> contacts = Parse(Card("N:J\xC3\xA4ger\r\nTEL:1\xA0"
                                                   "2\r\n") +
                                              Card("N:J\xE4ger\r\n"));
  EXPECT_THAT(FamilyNames(contacts), ElementsAre("Jäger", "Jäger"));
  EXPECT_THAT(contacts[0].numbers[0].numbers, ElementsAre("1\u00A0"
                                                          "2"));
}

TEST(VCardTest, ACardInNoKnownCharacterSetIsSkipped) {
  const VCards cards =
      ParseVCards(Card("N;CHARSET=KLINGON:x\n") + Card("N;CHARSET=UTF-8:J\xE4ger\n") +
                      Card("N;CHARSET=UTF-8//IGNORE:J\xE4ger\n") + Card("N;CHARSET=UTF-16LE:abc\n") +
                      Card("NOTE;CHARSET=KLINGON:what is not read does not matter\nN:Arndt\n"),
                  "cards.vcf");
  EXPECT_THAT(FamilyNames(cards.contacts), ElementsAre("Arndt"));
  EXPECT_THAT(cards.problems, ElementsAre("cards.vcf:2: expected a text in 'KLINGON', got 'x'",
                                          "cards.vcf:5: expected a text in 'UTF-8', got 'J\\xE4ger'",
                                          "cards.vcf:8: expected a text in 'UTF-8//IGNORE', got 'J\\xE4ger'",
                                          "cards.vcf:11: expected a text in 'UTF-16LE', got 'abc'"));
}

TEST(VCardTest, ControlCharactersBecomeSpaces) {
  const std::vector<Contact> contacts =
      Parse(Card("N;ENCODING=QUOTED-PRINTABLE:A=00b=0D=0Ac\r\nTEL:1\t2\r\n"));
  EXPECT_EQ(contacts[0].familyName, "A b  c");
  EXPECT_THAT(contacts[0].numbers[0].numbers, ElementsAre("1 2"));
}

TEST(VCardTest, QuotedPrintableGoesOnBehindSoftBreaks) {
  const std::vector<Contact> contacts = Parse(
      Card("N;ENCODING=QUOTED-PRINTABLE:J=C3= \r\n=A4ger;J=\r\n=C3=B6=\r\nrg=\r\n Emil\r\nTEL:1\r\n") +
      Card("FN;QUOTED-PRINTABLE;CHARSET=UTF-8:J=C3=\n=A4ger\nNOTE;QUOTED-PRINTABLE:one:=\ntwo, three=\n") +
      Card("N:Arndt\r\n"));
  ASSERT_THAT(FamilyNames(contacts), ElementsAre("Jäger", "Jäger", "Arndt"));
  EXPECT_EQ(contacts[0].firstName, "Jörg Emil");
  EXPECT_EQ(contacts[0].numbers.size(), 1U);
}

TEST(VCardTest, Base64MayGoOnWithoutBeingFolded) {
  const std::vector<Contact> contacts = Parse(
      Card("N:Arndt\r\nPHOTO;ENCODING=BASE64;TYPE=JPEG:/9j/4AAQ\r\nSkZJRgABAQ\r\nEASABIAAD/"
           "==\r\n\r\nTEL:1\r\n") +
      Card("PHOTO;BASE64:\r\n  /9j/4AAQ\r\n  SkZJRgAB\r\n\r\nN:Baker\r\n") +
      Card(
          "PHOTO;ENCODING=b;TYPE=JPEG:/9j/\r\n 4AAQ\r\nSkZJ\r\nN;ENCODING=b;CHARSET=UTF-8:SsO\r\nkZ2Vy\r\n"));
  ASSERT_THAT(FamilyNames(contacts), ElementsAre("Arndt", "Baker", "Jäger"));
  EXPECT_EQ(contacts[0].numbers.size(), 1U);
}

TEST(VCardTest, TheCardOfAnAgentIsNotRead) {
  const std::vector<Contact> contacts =
      Parse(Card("N:Arndt\nAGENT:\n" + Card("N:Smith\nTEL:007\n") + "TEL:1\n"));
  ASSERT_THAT(FamilyNames(contacts), ElementsAre("Arndt"));
  EXPECT_THAT(contacts[0].numbers[0].numbers, ElementsAre("1"));
}

TEST(VCardTest, QuotedParametersMayHoldAnything) {
  const std::vector<Contact> contacts =
      Parse("\xEF\xBB\xBF" + Card("TEL;X-NOTE=\"a:b;TYPE=CELL\";TYPE=\"voice,Work\":1\nTEL;X-WORKSHOP:2\n"));
  ASSERT_EQ(contacts.size(), 1U);
  ASSERT_EQ(contacts[0].numbers.size(), 2U);
  EXPECT_EQ(contacts[0].numbers[0].type, NUMBER_WORK);
  EXPECT_EQ(contacts[0].numbers[1].type, NUMBER_OTHER);
}

}  // namespace
}  // namespace btservice
