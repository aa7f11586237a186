// What it costs to get a full phone book out of its segment, next to a pass that only looks for the ends of
// its strings; and what the same book costs by the roads that others offer.

#include <bluetooth/MWPBtPbap.h>

#include <malloc.h>
#include <stdexcept>
#include <utility>

#include "bench/book/PhoneBook.h"
#include "bench/book/StringPass.h"
#include "bench/harness/Clocks.h"
#include "bench/harness/Rounds.h"
#include "bench/peers/BookMessage.h"
#include "bench/sections/QuickCall.h"
#include "bench/sections/Sections.h"
#ifdef BENCH_HAS_VFORMAT
#include "bench/peers/BookCards.h"
#endif
#ifdef BENCH_HAS_VCARD_READER
#include "service/phonebook/VCard.h"
#endif

namespace {

constexpr std::size_t kRounds = 61;
constexpr std::size_t kPeerRounds = 11;
constexpr clockid_t kWall = CLOCK_MONOTONIC;
constexpr clockid_t kProcessor = CLOCK_THREAD_CPUTIME_ID;
constexpr double kLimitIntoEmptyList = 9;
constexpr double kLimitIntoPreviousList = 3.5;
constexpr double kLimitOfCards = 0.1;

void Require(bool condition, const char* what) {
  if (!condition) {
    throw std::runtime_error(what);
  }
}

/// A way to get the phone book, into a new list each time. It is tried once, and must deliver the book.
template <typename Work>
Way Filling(const char* name, clockid_t clock, const PhoneBook& book, Work work) {
  PhoneBook list;
  work(list);
  Require(AreEqual(list, book), "a road delivers another phone book");
  return {name, [clock, work] {
            PhoneBook fresh;
            return Cost(clock, [&] { work(fresh); });
          }};
}

void FetchFromSegment(PhoneBook& list) { MWPBtPbap().GetContactList(list); }

/// GetContactList into a list that holds what the previous call put there.
Way Refilling(const char* name, clockid_t clock, PhoneBook& list) {
  FetchFromSegment(list);
  return {name, [clock, &list] { return Cost(clock, [&list] { FetchFromSegment(list); }); }};
}

void CompareWithYardstick(Report& report, const PhoneBook& book) {
  const QuickCall noServiceInvolved;
  const Way pass = {"a pass with memchr", [] { return Cost(kProcessor, FindEndOfEveryString); }};
  PhoneBook previous;
  const Way refill = Refilling("GetContactList into the previous list", kProcessor, previous);
  const Way fill = Filling("GetContactList into an empty list", kProcessor, book, FetchFromSegment);

  const Rounds rounds = RunInTurn({pass, fill, refill}, kRounds);
  Require(AreEqual(previous, book), "filling a list again delivers another phone book");
  const auto add = [&](const Way& way, std::size_t place, double limit) {
    report.Add({way.name, Milliseconds(rounds.Least(place)), pass.name, Milliseconds(rounds.Least(0)),
                Times(rounds.RatioOfLeast(place)), limit});
  };
  add(fill, 1, kLimitIntoEmptyList);
  add(refill, 2, kLimitIntoPreviousList);
}

void ComparePeers(Report& report, const std::vector<Way>& ways) {
  const Rounds rounds = RunInTurn(ways, kPeerRounds);
  for (std::size_t way = 1; way < ways.size(); ++way) {
    report.Add({ways[way].name, Milliseconds(rounds.Least(way)), ways[0].name, Milliseconds(rounds.Least(0)),
                Times(rounds.RatioOfLeast(way)), std::nullopt});
  }
}

/// Decoding alone: the bytes are in this process already.
void CompareDecoders(Report& report, const PhoneBook& book) {
  const QuickCall noServiceInvolved;
  PhoneBook previous;
  const OwnedVariant message = PackAsMessage(book);
  std::vector<Way> ways = {Refilling("GetContactList, previous list", kProcessor, previous),
                           Filling("one D-Bus message, unpacked with GVariant", kProcessor, book,
                                   [&message](PhoneBook& list) { list = UnpackMessage(message.get()); })};
#ifdef BENCH_HAS_VFORMAT
  ways.push_back(Filling("vCard text, parsed with libvformat", kProcessor, book,
                         [cards = PackAsVCards(book)](PhoneBook& list) { list = ParseVCards(cards); }));
#endif
  ComparePeers(report, ways);
}

#if defined(BENCH_HAS_VFORMAT) && defined(BENCH_HAS_VCARD_READER)
PhoneBook ToBook(const std::vector<btservice::Contact>& contacts) {
  PhoneBook book;
  for (const btservice::Contact& contact : contacts) {
    MWPTypeContact& record = book.emplace_back();
    record.nContactId = contact.id;
    record.strText1 = contact.firstName;
    record.strText2 = contact.familyName;
    for (const btservice::ContactNumbers& group : contact.numbers) {
      record.listNumbers.push_back({group.type, group.numbers});
    }
  }
  return book;
}

/// The reader of the simulated service's vCard files, next to a library made for them.
void CompareCardReaders(Report& report, const PhoneBook& book) {
  const std::string cards = PackAsVCards(book);
  Require(AreEqual(ToBook(btservice::ParseVCards(cards, "book.vcf").contacts), book),
          "btservice reads another phone book");
  const Way own = {"vCard text, parsed by btservice", [&cards] {
                     btservice::VCards read;
                     return Cost(kProcessor, [&] { read = btservice::ParseVCards(cards, "book.vcf"); });
                   }};
  // Not in turn: the peer leaves a heap full of holes, and who comes after it would pay for that.
  const double ownCost = RunInTurn({own}, kRounds).Least(0);
  const Way peer =
      Filling("libvformat", kProcessor, book, [&cards](PhoneBook& list) { list = ParseVCards(cards); });
  const double peerCost = RunInTurn({peer}, kPeerRounds).Least(0);
  report.Add({own.name, Milliseconds(ownCost), peer.name, Milliseconds(peerCost), Times(ownCost / peerCost),
              kLimitOfCards});
}
#endif

/// From the request to the records, with the service's part and the bus's, by wall time.
void CompareFetches(Report& report, const PhoneBook& book, Responder& responder) {
  PhoneBook previous;
  ComparePeers(
      report, {Refilling("GetContactList and its call", kWall, previous),
               Filling("one D-Bus message, fetched and unpacked", kWall, book, [&responder](PhoneBook& list) {
                 list = UnpackMessage(responder.FetchBook().get());
               })});
}

}  // namespace

void MeasureContacts(Report& report, Responder& responder) {
  // Warm: the memory of one round's list is there for the next one's, and is not given back to the kernel.
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  const PhoneBook book = MakeFullBook();
  report.BeginSection("contacts", "a phone book of " + std::to_string(book.size()) +
                                      " contacts, which fills its segment; the least of all rounds");
  PhoneBook published;
  FetchFromSegment(published);  // has the responder fill the segment
  CompareWithYardstick(report, book);
#if defined(BENCH_HAS_VFORMAT) && defined(BENCH_HAS_VCARD_READER)
  CompareCardReaders(report, book);
#endif
  CompareDecoders(report, book);
  CompareFetches(report, book, responder);
}
