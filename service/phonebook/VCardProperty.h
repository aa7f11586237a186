#ifndef SERVICE_PHONEBOOK_VCARDPROPERTY_H
#define SERVICE_PHONEBOOK_VCARDPROPERTY_H

#include <string>
#include <string_view>

namespace btservice {

/// A property of a vCard as it stands in the file: "item1.TEL;TYPE=CELL:112".
struct VCardProperty {
  /// What its name says, in upper or lower case. NONE: the line is no property.
  enum class Kind { NONE, BEGIN, END, AGENT, FULL_NAME, NAME, TELEPHONE, OTHER };
  enum class Encoding { NONE, QUOTED_PRINTABLE, BASE64 };

  int line = 1;  ///< where it begins
  Kind kind = Kind::NONE;
  std::string_view name;     ///< without its group. Empty if the line is no property: it is the value then
  std::string_view charset;  ///< empty if none is named
  std::string_view value;    ///< in one piece, but still encoded
  Encoding encoding = Encoding::NONE;
  // Whether it is of these types: "TYPE=CELL,VOICE", or "CELL" as old cards have it.
  bool isCell = false;
  bool isHome = false;
  bool isWork = false;
};

/// Takes a text apart into properties, one for each logical line. What belongs together is joined: folded
/// lines, quoted-printable lines that end with "=", and base64 that goes on in the next lines without being
/// folded.
class VCardPropertyReader {
 public:
  /// The text is not copied: it must outlive the reader and the properties.
  explicit VCardPropertyReader(std::string_view text);

  /// The next property; one of no kind for a line that is none, so that the caller can report it. Empty lines
  /// are passed over. False at the end of the text. The property holds until the next call.
  bool Next(VCardProperty& property);
  /// The last line that was read.
  int Line() const { return m_line; }

 private:
  bool IsAtEnd() const { return m_place >= m_text.size(); }
  std::string_view PeekLine() const;
  std::string_view LineUpTo(std::size_t end) const;
  std::string_view TakeLine();
  bool IsFolded() const;
  /// Puts the folded lines that come next behind the line.
  void Unfold();
  /// Puts all that belongs to the value behind the line.
  void JoinQuotedPrintable();
  void JoinBase64();
  void Join(std::string_view more);

  std::string_view m_text;
  std::size_t m_place = 0;
  int m_line = 0;
  std::string_view m_current;  ///< the logical line, here or in m_joined
  std::string m_joined;
};

}  // namespace btservice

#endif
