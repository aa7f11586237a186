#ifndef SERVICE_SIMULATION_WORLD_PHONEBOOKLOADER_H
#define SERVICE_SIMULATION_WORLD_PHONEBOOKLOADER_H

#include <string>
#include <vector>

#include "service/files/JsonNode.h"
#include "service/simulation/world/WorldFields.h"
#include "service/stack/StackTypes.h"

namespace btservice {

/// Puts phone books together from what a JSON text says of them: contacts that are written out, a vCard file,
/// made-up contacts. The limits hold for all books together that one loader loads.
class PhoneBookLoader {
 public:
  /// fileName: that of the JSON text, for messages. folder: where vCard files are looked for.
  PhoneBookLoader(std::string fileName, std::string folder)
      : m_fileName(std::move(fileName)), m_folder(std::move(folder)) {}

  /// The contacts of a book; their ids count from 1. node: what the text says of it, null for nothing. place:
  /// the way to it in words, "devices[2].phoneBook". The log names vCards that are skipped. Throws FileError.
  std::vector<Contact> Load(const PhoneBookSource& source, const JsonNode* node, const std::string& place);

 private:
  std::vector<Contact> ReadVCards(const std::string& vcard, const JsonNode& node, const std::string& place);
  void Count(std::size_t inBook, const JsonNode& node, const std::string& place);

  std::string m_fileName;
  std::string m_folder;
  std::size_t m_contacts = 0;    ///< in all books so far
  std::size_t m_vcardBytes = 0;  ///< read so far
};

}  // namespace btservice

#endif
