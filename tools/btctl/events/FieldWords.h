#ifndef TOOLS_BTCTL_EVENTS_FIELDWORDS_H
#define TOOLS_BTCTL_EVENTS_FIELDWORDS_H

#include "btctl/events/Event.h"

namespace btctl {

/// The words that a field of an event can hold: those of its enumeration, of a switch, or of yes and no. Null
/// if it holds a text or a number.
const WordTable* WordsOfField(const EventDescription& event, const std::string& field);

/// Whether a field of an event holds a number that stands for itself.
bool HoldsNumber(const EventDescription& event, const std::string& field);

/// Throws a Failure, with what the field can hold, if it can never have that value.
void CheckCanHave(const EventDescription& event, const std::string& field, const std::string& value);

}  // namespace btctl

#endif
