// Names every record, enumeration and class of libbtasync's headers, and of each template the instances that
// stand for it. witness_test.py compares this list with the headers. Left out are Coroutine.h, which is
// compiled into applications alone, and testing/, which is in a static library that is as old as its headers.

#include <btasync/Answer.h>
#include <btasync/Events.h>
#include <btasync/Export.h>
#include <btasync/Mirror.h>
#include <btasync/Outcome.h>
#include <btasync/PollLoop.h>
#include <btasync/Records.h>
#include <btasync/Request.h>
#include <btasync/Scope.h>
#include <btasync/Service.h>
#include <btasync/State.h>
#include <btasync/Text.h>
#include <btasync/Timer.h>

#include "witness.h"

using namespace btasync;

// Answer.h
WITNESS(Reason)
WITNESS(Failure)
WITNESS(Accepted)
WITNESS(Refusal)
WITNESS(Answer<Accepted>)
WITNESS(Answer<bool>)
WITNESS(Answer<std::string>)
WITNESS(Answer<MWPTypeMediaInfo>)

// Events.h: all its structures, derived from it
#define BT_EVENT(structure, signal) WITNESS(structure)
#include "EventKinds.inc"
#undef BT_EVENT

// Mirror.h
WITNESS(Mirror)

// Outcome.h
WITNESS(Verdict)
WITNESS(detail::EventHandling)

// PollLoop.h
WITNESS(PollLoop)

// Records.h
WITNESS(ConnectionState)
WITNESS(PlayPosition)

// Request.h
WITNESS(detail::Reply)
WITNESS(detail::PendingCall)
WITNESS(detail::Composition)
WITNESS(detail::Outgoing)
WITNESS(detail::Completion<Accepted, void (*)(Answer<Accepted>)>)
WITNESS(detail::IgnoreAnswer)
WITNESS(Call)
WITNESS(Request<Accepted>)
WITNESS(Request<std::string>)

// Scope.h
WITNESS(detail::Held)
WITNESS(Scope)

// Service.h
WITNESS(Availability)
WITNESS(detail::Subscription)
WITNESS(detail::EventSubscription<PowerChanged, void (*)(const PowerChanged&)>)
WITNESS(detail::AvailabilitySubscription<void (*)(Availability)>)
WITNESS(Service)

// State.h
WITNESS(Part)
WITNESS(AdapterState)
WITNESS(FoundState)
WITNESS(ProfileConnection)
WITNESS(PairedDevice)
WITNESS(PairedState)
WITNESS(PairingState)
WITNESS(CallEntry)
WITNESS(CallsState)
WITNESS(AudioState)
WITNESS(NetworkState)
WITNESS(MusicState)
WITNESS(ModesState)
WITNESS(PositionState)
WITNESS(ContactsState)
WITNESS(LogsState)
WITNESS(DownloadState)
WITNESS(MessagesState)
WITNESS(State)

// Text.h
WITNESS(Text)
WITNESS(Address)
WITNESS(PinCode)

// Timer.h
WITNESS(Timer)
