// Has the work counted that btservice does for a phone book: to parse its vCards, and to publish it. Next to
// it the same text parsed with libvformat, and the segment copied. To be run under callgrind by bt_bench.

#include <cstring>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/book/PhoneBook.h"
#include "bench/counted/CountedPart.h"
#include "bench/counted/Parts.h"
#include "service/frontend/segments/Publisher.h"
#include "service/phonebook/VCard.h"
#ifdef BENCH_HAS_VFORMAT
#include "bench/peers/BookCards.h"
#endif

namespace {

using btservice::Contact;

/// A stack that has a phone book and nothing else.
class BookStack : public btservice::BluetoothStack, private btservice::PhoneBookControl {
 public:
  explicit BookStack(const std::vector<Contact>& contacts) : m_contacts(contacts) {}

  void Start() override {}
  void Stop() override {}
  btservice::PhoneBookControl& PhoneBook() override { return *this; }

 private:
  const std::vector<Contact>& Contacts() const override { return m_contacts; }

  const std::vector<Contact>& m_contacts;
};

std::vector<Contact> CountParsing(const std::string& cards, unsigned size) {
  const CountedPart part(kParse + std::to_string(size));
  btservice::VCards read;
  Counted([&] { read = btservice::ParseVCards(cards, "book.vcf"); });
  if (read.contacts.size() != size) {
    throw std::runtime_error("not all cards were read");
  }
  return std::move(read.contacts);
}

void CountPublishing(const std::vector<Contact>& contacts) {
  const std::string size = std::to_string(contacts.size());
  SegmentOwner segments;
  BookStack stack(contacts);
  btservice::Publisher publisher(segments, stack);
  if (!publisher.PublishContacts()) {  // which makes the segment
    throw std::runtime_error("the phone book cannot be published");
  }
  {
    const CountedPart part(kPublish + size);
    Counted([&] { publisher.PublishContacts(); });
  }
}

void CountCopy(const PhoneBook& book) {
  const std::vector<unsigned char> packed = PackForSegment(book);
  std::vector<unsigned char> copy(packed.size());
  const CountedPart part(kCopySegment + std::to_string(book.size()));
  Counted([&] { std::memcpy(copy.data(), packed.data(), packed.size()); });
  if (copy != packed) {
    throw std::runtime_error("the copy is another");
  }
}

void CountPeer(const std::string& cards) {
#ifdef BENCH_HAS_VFORMAT
  const CountedPart part(kParseByPeer + std::to_string(kPeerBookSize));
  Counted([&cards] { ParseVCards(cards); });
#else
  static_cast<void>(cards);
#endif
}

void Run() {
  PhoneBook book = MakeFullBook();
  for (auto size = kBookSizes.rbegin(); size != kBookSizes.rend(); ++size) {
    book.resize(*size);
    const std::string cards = PackAsVCards(book);
    CountPublishing(CountParsing(cards, *size));
    CountCopy(book);
    if (*size == kPeerBookSize) {
      CountPeer(cards);
    }
  }
}

}  // namespace

int main() { return RunCounted("bt_bench_counted_book", Run); }
