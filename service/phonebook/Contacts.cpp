#include "service/phonebook/Contacts.h"

#include <algorithm>
#include <utility>

namespace btservice {
namespace {

constexpr std::size_t kUsualKinds = 3;    // of number: mobile, home, work
constexpr std::size_t kUsualNumbers = 2;  // of one kind

}  // namespace

std::string FullName(const Contact& contact) {
  const bool both = !contact.firstName.empty() && !contact.familyName.empty();
  return contact.firstName + (both ? " " : "") + contact.familyName;
}

void AddNumber(Contact& contact, NumberType type, std::string number) {
  if (contact.numbers.empty()) {
    contact.numbers.reserve(kUsualKinds);
  }
  auto group = std::find_if(contact.numbers.begin(), contact.numbers.end(),
                            [type](const ContactNumbers& one) { return one.type == type; });
  if (group == contact.numbers.end()) {
    group = contact.numbers.insert(group, ContactNumbers{type, {}});
  }
  if (group->numbers.empty()) {
    group->numbers.reserve(kUsualNumbers);
  }
  group->numbers.push_back(std::move(number));
}

}  // namespace btservice
