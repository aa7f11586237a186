#ifndef TOOLS_BTCTL_OUTPUT_ANSWERSTREAM_H
#define TOOLS_BTCTL_OUTPUT_ANSWERSTREAM_H

#include <cstdio>
#include <string>

namespace btctl {

/// The program's standard output, for answers alone. Libraries print there, too, as does the Bluetooth
/// library in two of its requests: what they print goes to standard error if that is wanted, else nowhere.
class AnswerStream {
 public:
  /// To be made once, before anything is printed.
  explicit AnswerStream(bool showOthers);
  ~AnswerStream();
  AnswerStream(const AnswerStream&) = delete;
  AnswerStream& operator=(const AnswerStream&) = delete;

  std::FILE* File() { return m_file; }
  bool IsTerminal() const;
  /// Writes at once, so that a reader sees each line when it comes.
  void Write(const std::string& text);
  /// Throws a Failure if something could not be written.
  void ThrowIfFailed() const;

 private:
  std::FILE* const m_file;
};

}  // namespace btctl

#endif
