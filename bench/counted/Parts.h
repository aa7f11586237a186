#ifndef BENCH_COUNTED_PARTS_H
#define BENCH_COUNTED_PARTS_H

#include <array>

// What the counted programs and those who read their counts agree on: the names of the parts, and how often
// each part does its work.

constexpr unsigned kCountedCalls = 200;
constexpr unsigned kCountedEvents = 200;
constexpr unsigned kFurtherListeners = 100;

/// As often as calls, nothing: what the counting itself costs.
constexpr const char* kNothingPart = "nothing";

// Ends of the names of a request's parts: all that is done for it beside the generated call; that call.
constexpr const char* kAroundTheCall = ", around the call";
constexpr const char* kGeneratedCall = ", generated call";

// Ends of the names of an event's parts.
constexpr const char* kToBareHandler = ", bare handler";
constexpr const char* kToListener = ", listener";
constexpr const char* kToManyListeners = ", many listeners";

// Of the phone book.
constexpr const char* kBookPass = "book, pass";
constexpr const char* kBookIntoEmptyList = "book, empty list";
constexpr const char* kBookIntoPreviousList = "book, previous list";

/// The sizes of the phone books that are parsed and published.
constexpr std::array<unsigned, 3> kBookSizes = {1000, 5000, 20000};
/// As many are parsed by the other reader of vCards, which takes far longer.
constexpr unsigned kPeerBookSize = 1000;
// Beginnings of the names of the parts; the number of cards follows.
constexpr const char* kParse = "parse ";
constexpr const char* kParseByPeer = "parse by peer ";
constexpr const char* kPublish = "publish ";
constexpr const char* kCopySegment = "copy ";

#endif
