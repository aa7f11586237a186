#include "btctl/commands/FromText.h"

#include <cmath>
#include <cstring>

#include <glib.h>

#include "btctl/base/Failure.h"
#include "protocol/Address.h"

namespace btctl {

void CheckAddress(const std::string& text) {
  if (!IsBluetoothAddress(text)) {
    throw Failure(EXIT_BAD_ADDRESS, "'" + text + "' is not a Bluetooth address",
                  "An address has six pairs of hexadecimal digits: 00:1A:7D:DA:71:13.");
  }
}

long long ParseWhole(const std::string& text, const Argument& argument, long long lowest, long long highest) {
  gint64 number = 0;
  if (g_ascii_string_to_signed(text.c_str(), 10, lowest, highest, &number, nullptr) == FALSE) {
    throw Failure(EXIT_USAGE, argument.name + " is '" + text + "', not a whole number from " +
                                  std::to_string(lowest) + " to " + std::to_string(highest));
  }
  return number;
}

double ParseSeconds(const std::string& text, const std::string& name) {
  static constexpr double kAWeek = 7 * 24 * 3600;
  char* end = nullptr;
  const double seconds = g_ascii_strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0' || !std::isfinite(seconds) || seconds < 0 || seconds > kAWeek) {
    throw Failure(EXIT_USAGE, name + " is '" + text + "', not a number of seconds up to a week");
  }
  return seconds;
}

std::chrono::milliseconds MillisecondsOf(const std::string& seconds) {
  return std::chrono::milliseconds(static_cast<std::int64_t>(ParseSeconds(seconds, "--seconds") * 1000));
}

std::vector<unsigned char> ParseBytes(const std::string& text) {
  std::vector<unsigned char> bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int high = g_ascii_xdigit_value(text[i]);
    const int low = i + 1 < text.size() ? g_ascii_xdigit_value(text[i + 1]) : -1;
    if (high < 0 || low < 0) {
      throw Failure(EXIT_USAGE, "'" + text + "' is not pairs of hexadecimal digits",
                    "Write bytes as 48656c6c6f.");
    }
    bytes.push_back(static_cast<unsigned char>(high * 16 + low));
  }
  return bytes;
}

char ParseTone(const std::string& text) {
  if (text.size() != 1 || std::strchr("0123456789*#ABCD", text[0]) == nullptr) {
    throw Failure(EXIT_USAGE, "'" + text + "' is not a tone", "Tones are 0 to 9, *, # and A to D.");
  }
  return text[0];
}

}  // namespace btctl
