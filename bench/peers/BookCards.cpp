#include "bench/peers/BookCards.h"

#include <cstdlib>
#include <string_view>

#define NORCSID
#include <vf_iface.h>

namespace {

/// The numbers of one kind; a new group, at the end, for a kind that was not there yet.
MWPTypeContactNumber& GroupOfType(MWPTypeContact& contact, int type) {
  for (MWPTypeContactNumber& group : contact.listNumbers) {
    if (group.nType == type) {
      return group;
    }
  }
  MWPTypeContactNumber& group = contact.listNumbers.emplace_back();
  group.nType = type;
  return group;
}

int TypeOf(std::string_view word) {
  if (word == "CELL") {
    return 1;
  }
  return word == "HOME" ? 2 : 3;
}

void TakeProperty(VF_PROP_T* property, MWPTypeContact& contact) {
  const std::string_view name = vf_get_prop_name_string(property, 0);
  const char* const value = vf_get_prop_value_string(property, 0);
  if (name == VFP_UNIQUESTRING) {
    contact.nContactId = std::atoi(value);
  } else if (name == VFP_NAME) {
    contact.strText2 = value;
    contact.strText1 = vf_get_prop_value_string(property, VFP_NAME_GIVEN);
  } else if (name == VFP_TELEPHONE) {
    GroupOfType(contact, TypeOf(vf_get_prop_name_string(property, 1))).vecValues.emplace_back(value);
  }
}

void TakeCard(VF_OBJECT_T* card, MWPTypeContact& contact) {
  VF_PROP_T* property = nullptr;
  if (!vf_get_property(&property, card, VFGP_FIND, nullptr, VFP_ANY, nullptr)) {
    return;
  }
  do {
    TakeProperty(property, contact);
  } while (vf_get_next_property(&property));
}

/// Parses the text of one card.
void ParseCard(std::string_view text, MWPTypeContact& contact) {
  VF_PARSER_T* parser = nullptr;
  VF_OBJECT_T* card = nullptr;
  if (!vf_parse_init(&parser, &card)) {
    return;
  }
  vf_parse_text(parser, const_cast<char*>(text.data()), static_cast<int>(text.size()));
  if (vf_parse_end(parser) && card != nullptr) {
    TakeCard(card, contact);
  }
  if (card != nullptr) {
    vf_delete_object(card, TRUE);
  }
}

}  // namespace

// Card by card: given all of them at once, the library walks all earlier ones for each new one.
PhoneBook ParseVCards(const std::string& cards) {
  constexpr std::string_view kEndOfCard = "END:VCARD\r\n";
  PhoneBook book;
  for (std::size_t begin = 0; begin < cards.size();) {
    const std::size_t end = cards.find(kEndOfCard, begin) + kEndOfCard.size();
    ParseCard(std::string_view(cards).substr(begin, end - begin), book.emplace_back());
    begin = end;
  }
  return book;
}
