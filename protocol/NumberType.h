#ifndef PROTOCOL_NUMBERTYPE_H
#define PROTOCOL_NUMBERTYPE_H

/// Kinds of telephone number in a contact, as btservice means MWPTypeContactNumber::nType.
enum NumberType : int { NUMBER_OTHER = 0, NUMBER_MOBILE = 1, NUMBER_HOME = 2, NUMBER_WORK = 3 };

#endif
