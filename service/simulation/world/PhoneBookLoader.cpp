#include "service/simulation/world/PhoneBookLoader.h"

#include <filesystem>
#include <utility>

#define MWP_LOG_SOURCE "service/simulation/world/PhoneBookLoader"
#include <mwp/MWPLog.h>

#include "service/files/InputFile.h"
#include "service/files/Limits.h"
#include "service/files/Quote.h"
#include "service/phonebook/Contacts.h"
#include "service/phonebook/VCard.h"
#include "service/simulation/world/MadeUpContacts.h"

namespace btservice {
namespace {

Contact ToContact(const PhoneBookSource::Person& person) {
  Contact contact;
  contact.firstName = person.firstName;
  contact.familyName = person.familyName;
  for (const PhoneBookSource::Number& number : person.numbers) {
    AddNumber(contact, number.type, number.number);
  }
  return contact;
}

void LogSkipped(const VCards& cards, const std::string& file) {
  for (const std::string& problem : cards.problems) {
    MWP_LOG(MWP_LOG_WARNING, "%s; this card is skipped", problem.c_str());
  }
  if (cards.skipped > cards.problems.size()) {
    MWP_LOG(MWP_LOG_WARNING, "%s: %zu more are skipped, and %zu contacts are read", VisiblePath(file).c_str(),
            cards.skipped - cards.problems.size(), cards.contacts.size());
  }
}

}  // namespace

std::vector<Contact> PhoneBookLoader::Load(const PhoneBookSource& source, const JsonNode* node,
                                           const std::string& place) {
  std::vector<Contact> contacts;
  if (node == nullptr) {
    return contacts;
  }
  for (const PhoneBookSource::Person& person : source.contacts) {
    contacts.push_back(ToContact(person));
  }
  if (!source.vcard.empty()) {
    const std::vector<Contact> cards = ReadVCards(source.vcard, *node->Find("vcard"), place + ".vcard");
    contacts.insert(contacts.end(), cards.begin(), cards.end());
  }
  // Before they are made up: there may be too many of them to have in memory.
  Count(contacts.size() + static_cast<std::size_t>(source.generate), *node, place);
  const std::vector<Contact> madeUp = MadeUpContacts(source.generate);
  contacts.insert(contacts.end(), madeUp.begin(), madeUp.end());
  for (std::size_t i = 0; i < contacts.size(); ++i) {
    contacts[i].id = static_cast<int>(i) + 1;
  }
  return contacts;
}

std::vector<Contact> PhoneBookLoader::ReadVCards(const std::string& vcard, const JsonNode& node,
                                                 const std::string& place) {
  if (vcard.find('\0') != std::string::npos) {
    throw FileError(m_fileName, node.line, place + ": expected the name of a file, got " + Quote(vcard));
  }
  const std::string file = (std::filesystem::path(m_folder) / vcard).string();
  std::string text;
  try {
    text = ReadFile(file, kMostVCardBytes);
  } catch (const UnreadableFile& problem) {
    throw FileError(m_fileName, node.line, place + ": " + problem.what());
  }
  m_vcardBytes += text.size();
  if (m_vcardBytes > kMostVCardBytes) {
    throw FileError(
        m_fileName, node.line,
        place + ": expected vCard files of at most " + std::to_string(kMostVCardBytes >> 20) + " MiB in all");
  }
  VCards cards = ParseVCards(text, file);
  LogSkipped(cards, file);
  return std::move(cards.contacts);
}

void PhoneBookLoader::Count(std::size_t inBook, const JsonNode& node, const std::string& place) {
  m_contacts += inBook;
  if (inBook > kMostContacts) {
    throw FileError(m_fileName, node.line,
                    place + ": expected at most " + std::to_string(kMostContacts) +
                        " contacts in a phone book, got " + std::to_string(inBook));
  }
  if (m_contacts > kMostContactsInAll) {
    throw FileError(m_fileName, node.line,
                    place + ": expected at most " + std::to_string(kMostContactsInAll) +
                        " contacts in all phone books together");
  }
}

}  // namespace btservice
