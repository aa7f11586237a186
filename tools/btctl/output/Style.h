#ifndef TOOLS_BTCTL_OUTPUT_STYLE_H
#define TOOLS_BTCTL_OUTPUT_STYLE_H

#include <string>

namespace btctl {

/// Whether colours are wanted on a terminal: NO_COLOR in the environment, or a terminal that has none, says
/// no.
bool WantsColours();

/// Marks parts of a text for a terminal that shows colours, and leaves them alone for all else.
class Style {
 public:
  explicit Style(bool hasColours) : m_hasColours(hasColours) {}

  std::string Heading(const std::string& text) const { return Marked(text, "1"); }
  std::string Faint(const std::string& text) const { return Marked(text, "2"); }
  std::string Error(const std::string& text) const { return Marked(text, "1;31"); }
  std::string Event(const std::string& text) const { return Marked(text, "36"); }

 private:
  std::string Marked(const std::string& text, const char* code) const {
    return m_hasColours ? "\033[" + std::string(code) + "m" + text + "\033[0m" : text;
  }

  const bool m_hasColours;
};

}  // namespace btctl

#endif
