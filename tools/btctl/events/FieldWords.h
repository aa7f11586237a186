#ifndef TOOLS_BTCTL_EVENTS_FIELDWORDS_H
#define TOOLS_BTCTL_EVENTS_FIELDWORDS_H

#include "btctl/events/Event.h"

namespace btctl {

/// The words that a field of an event can hold: those of its enumeration, of a switch, or of yes and no. Null
/// if it holds a text or a number.
const WordTable* WordsOfField(const EventDescription& event, const std::string& field);

/// Throws a Failure, with the words that the field knows, if it can never have that value.
void CheckCanHave(const EventDescription& event, const std::string& field, const std::string& value);

}  // namespace btctl

#endif
