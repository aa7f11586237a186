// libFuzzer target: any bytes as a vCard file. Whatever they are, what comes out is fit for the bus and for
// the segments: UTF-8 without control characters. So is what is logged.

#include <algorithm>
#include <cstdint>

#include <glib.h>

#include "fuzz/FuzzCheck.h"
#include "service/phonebook/VCard.h"

namespace {

using bttest::Check;

constexpr std::size_t kMostProblems = 20;
constexpr std::size_t kLongestProblem = 1000;  // two quotations, of letters that take six to show

void CheckText(const std::string& text) {
  Check(g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE, "a text is UTF-8");
  Check(std::none_of(text.begin(), text.end(), [](char c) { return g_ascii_iscntrl(c) != FALSE; }),
        "a text has no control characters");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const btservice::VCards cards = btservice::ParseVCards(text, "book.vcf");
  for (std::size_t i = 0; i < cards.contacts.size(); ++i) {
    const btservice::Contact& contact = cards.contacts[i];
    Check(contact.id == static_cast<int>(i) + 1, "the ids count from 1");
    CheckText(contact.firstName);
    CheckText(contact.familyName);
    for (const btservice::ContactNumbers& group : contact.numbers) {
      Check(!group.numbers.empty(), "no group is empty");
      std::for_each(group.numbers.begin(), group.numbers.end(), CheckText);
    }
  }
  Check(cards.problems.size() == std::min(cards.skipped, kMostProblems), "what is skipped is reported");
  for (const std::string& problem : cards.problems) {
    CheckText(problem);
    Check(problem.rfind("book.vcf:", 0) == 0, "a report begins with the place");
    Check(problem.size() < kLongestProblem, "a report is short");
  }
  return 0;
}
