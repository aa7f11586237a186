#ifndef SERVICE_BLUEZ_AIRTEXT_H
#define SERVICE_BLUEZ_AIRTEXT_H

#include <cstddef>
#include <string>

#include "service/frontend/segments/TextCut.h"
#include "service/phonebook/Charset.h"

namespace btservice::bluez {

/// A text that somebody within reach of the radio has chosen, such as the name of a device, as it may be
/// passed on: valid UTF-8 without control characters, of at most that many bytes, cut between two characters.
inline std::string AirText(const std::string& text, std::size_t mostBytes) {
  return CutText(*Charset().ToUtf8(text, ""), mostBytes);  // succeeds without a named character set
}

}  // namespace btservice::bluez

#endif
