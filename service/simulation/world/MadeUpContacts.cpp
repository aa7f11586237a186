#include "service/simulation/world/MadeUpContacts.h"

#include <algorithm>
#include <array>
#include <string>

#include "service/phonebook/Contacts.h"

namespace btservice {
namespace {

// The lengths have no common divisor, so that first and family names meet in every combination.
constexpr std::array<const char*, 23> kFirstNames{
    "Ada", "Ben",  "Chiara", "David", "Elif", "Finn",  "Grace", "Hiro",  "Inés", "Jörg",   "Kaya",   "Lena",
    "Mia", "Noah", "Olga",   "Pavel", "Rosa", "Søren", "Zoë",   "Ольга", "李",   "さくら", "Γιώργος"};
constexpr std::array<const char*, 20> kFamilyNames{
    "Arndt",    "Baker",     "Conti",  "Dvořák", "Erdem",  "Fischer", "Green", "Hayashi",  "Ibáñez",  "Jäger",
    "Kowalski", "Lindqvist", "Müller", "Novak",  "Orlova", "Petrov",  "Rossi", "Sørensen", "Иванова", "王"};

std::string Number(const char* prefix, int person) {
  const std::string digits = std::to_string(person);
  return prefix + std::string(6 - std::min<std::size_t>(6, digits.size()), '0') + digits;
}

Contact MakeUp(int person) {
  Contact contact;
  contact.id = person + 1;
  contact.firstName = kFirstNames[person % kFirstNames.size()];
  contact.familyName = kFamilyNames[person % kFamilyNames.size()];
  if (person >= static_cast<int>(kFirstNames.size() * kFamilyNames.size())) {
    contact.familyName += " " + std::to_string(person);
  }
  AddNumber(contact, NUMBER_MOBILE, Number("+49170", person));
  if (person % 2 == 0) {
    AddNumber(contact, NUMBER_HOME, Number("+4930", person));
  }
  if (person % 5 == 0) {
    AddNumber(contact, NUMBER_WORK, Number("+4989", person));
    AddNumber(contact, NUMBER_WORK, Number("+4940", person));
  }
  return contact;
}

}  // namespace

std::vector<Contact> MadeUpContacts(int count) {
  std::vector<Contact> contacts;
  contacts.reserve(count);
  for (int person = 0; person < count; ++person) {
    contacts.push_back(MakeUp(person));
  }
  return contacts;
}

}  // namespace btservice
