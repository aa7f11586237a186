#include "bench/book/PhoneBook.h"

#include <algorithm>
#include <cstring>
#include <random>

#include "protocol/Records.h"
#include "protocol/Segments.h"

namespace {

constexpr unsigned kSeed = 2024;

class Dice {
 public:
  int Between(int low, int high) {
    return low + static_cast<int>(m_numbers() % static_cast<unsigned>(high - low + 1));
  }

  std::string Text(int low, int high, const char* letters) {
    std::string text(static_cast<std::size_t>(Between(low, high)), '\0');
    const int last = static_cast<int>(std::strlen(letters)) - 1;
    std::generate(text.begin(), text.end(), [&] { return letters[Between(0, last)]; });
    return text;
  }

 private:
  std::mt19937 m_numbers{kSeed};
};

MWPTypeContact MakeContact(int id, Dice& dice) {
  constexpr const char* kLetters = "abcdefghijklmnopqrstuvwxyz";
  constexpr const char* kDigits = "0123456789";
  MWPTypeContact contact;
  contact.nContactId = id;
  contact.strText1 = dice.Text(5, 20, kLetters);
  contact.strText2 = dice.Text(5, 20, kLetters);
  const int groups = dice.Between(1, 3);
  for (int type = 1; type <= groups; ++type) {
    MWPTypeContactNumber group;
    group.nType = type;
    const int numbers = dice.Between(1, 2);
    for (int i = 0; i < numbers; ++i) {
      group.vecValues.push_back(dice.Text(8, 15, kDigits));
    }
    contact.listNumbers.push_back(group);
  }
  return contact;
}

constexpr std::size_t kCapacity = kSegmentCatalogue[SH_CONTACT_LIST].size;

bool IsSameGroup(const MWPTypeContactNumber& left, const MWPTypeContactNumber& right) {
  return left.nType == right.nType && left.vecValues == right.vecValues;
}

bool IsSameContact(const MWPTypeContact& left, const MWPTypeContact& right) {
  return left.nContactId == right.nContactId && left.strText1 == right.strText1 &&
         left.strText2 == right.strText2 &&
         std::equal(left.listNumbers.begin(), left.listNumbers.end(), right.listNumbers.begin(),
                    right.listNumbers.end(), IsSameGroup);
}

}  // namespace

PhoneBook MakeFullBook() {
  Dice dice;
  PhoneBook book;
  ListWriter writer(kCapacity);
  for (int id = 1;; ++id) {
    MWPTypeContact contact = MakeContact(id, dice);
    PutRecord(writer, contact);
    if (!writer.EndRecord()) {
      return book;
    }
    book.push_back(std::move(contact));
  }
}

std::vector<unsigned char> PackForSegment(const PhoneBook& book) {
  ListWriter writer(kCapacity);
  for (const MWPTypeContact& contact : book) {
    PutRecord(writer, contact);
    writer.EndRecord();
  }
  return writer.Contents();
}

std::string PackAsVCards(const PhoneBook& book) {
  constexpr const char* kTypes[] = {"VOICE", "CELL", "HOME", "WORK"};
  std::string cards;
  for (const MWPTypeContact& contact : book) {
    cards += "BEGIN:VCARD\r\nVERSION:2.1\r\nUID:" + std::to_string(contact.nContactId) +
             "\r\nN:" + contact.strText2 + ";" + contact.strText1 + "\r\n";
    for (const MWPTypeContactNumber& group : contact.listNumbers) {
      for (const std::string& value : group.vecValues) {
        cards += std::string("TEL;") + kTypes[group.nType] + ":" + value + "\r\n";
      }
    }
    cards += "END:VCARD\r\n";
  }
  return cards;
}

bool AreEqual(const PhoneBook& left, const PhoneBook& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), IsSameContact);
}
