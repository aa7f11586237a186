#include "btctl/output/Output.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include <glib.h>
#include <unistd.h>

#include "btctl/base/Json.h"
#include "btctl/events/Event.h"
#include "btctl/output/PlainText.h"
#include "btctl/output/TerminalSafe.h"
#include "glib/Owned.h"

namespace btctl {
namespace {

constexpr int kProgressWidth = 40;

/// The members that say what an object is, not what it holds.
bool IsLabel(const std::string& name) { return name == "kind" || name == "command" || name == "control"; }

/// The values of the event of an outcome; just "done" if one of them is a yes or no.
std::string OutcomeText(const Json& event) {
  const Json& values = event["values"];
  const bool isYes =
      std::any_of(values.begin(), values.end(), [](const Json& value) { return value.is_boolean(); });
  Json shown = Json::array();
  std::copy_if(values.begin(), values.end(), std::back_inserter(shown),
               [](const Json& value) { return value != "none"; });  // such as the reason why it did not fail
  return isYes || shown.empty() ? "done" : Joined(shown, " ");
}

void Replace(std::string& text, const std::string& part, const std::string& replacement) {
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
    text.replace(at, part.size(), replacement);
    at += replacement.size();
  }
}

void WriteError(const std::string& text) {
  std::fputs(text.c_str(), stderr);
  std::fflush(stderr);
}

/// The time of day, in the time zone of the machine, with milliseconds.
std::string LocalTime(const std::string& iso) {
  const OwnedDateTime time(g_date_time_new_from_iso8601(iso.c_str(), nullptr));
  const OwnedDateTime local(g_date_time_to_local(time.get()));
  const OwnedText text(g_date_time_format(local.get(), "%H:%M:%S"));
  return text.get() + iso.substr(iso.find('.'), 4);
}

}  // namespace

bool WantsColours() {
  const char* const refused = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  return (refused == nullptr || *refused == '\0') && terminal != nullptr &&
         std::strcmp(terminal, "dumb") != 0;
}

Output::Output(AnswerStream& answers, bool json, Origin origin)
    : m_answers(answers),
      m_json(json),
      m_origin(origin),
      m_style(!json && answers.IsTerminal() && WantsColours()),
      m_errorStyle(!json && isatty(STDERR_FILENO) != 0 && WantsColours()) {}

void Output::ShowAnswer(const Json& answer) {
  EndProgress();
  if (m_json) {
    m_answers.Write(ToLine(answer) + "\n");
    return;
  }
  if (answer.contains("outcomes")) {
    for (const Json& outcome : answer["outcomes"]) {
      m_answers.Write(OutcomeText(outcome) + "\n");
    }
  } else if (answer.contains("outcome")) {
    m_answers.Write(OutcomeText(answer["outcome"]) + "\n");
  } else if (answer.contains("result")) {
    m_answers.Write(ToText(answer["result"]) + "\n");
  } else if (answer.contains("happened")) {
    m_answers.Write("done\n");
  } else if (answer.contains("accepted")) {
    m_answers.Write("accepted\n");
  } else {
    std::size_t width = 0;
    for (const auto& [name, value] : answer.items()) {
      width = IsLabel(name) ? width : std::max(width, WidthOf(TerminalSafe(name)));
    }
    for (const auto& [name, value] : answer.items()) {
      if (!IsLabel(name)) {
        m_answers.Write(m_style.Heading(Padded(TerminalSafe(name), width)) + "  " + ToText(name, value) +
                        "\n");
      }
    }
  }
}

void Output::ShowList(const std::string& kind, const Json& items) {
  if (!m_json) {
    ShowTable(items);
    if (items.empty() && m_answers.IsTerminal()) {
      Note("there is nothing to list");
    }
    return;
  }
  for (const Json& item : items) {
    Json line{{"kind", kind}};
    line.update(item);
    m_answers.Write(ToLine(line) + "\n");
  }
}

void Output::ShowTable(const Json& items) {
  const std::vector<std::string> columns = ColumnsOf(items);
  std::vector<std::size_t> widths;
  for (const std::string& column : columns) {
    std::size_t width = WidthOf(column);
    for (const Json& item : items) {
      width = item.contains(column) ? std::max(width, WidthOf(ToText(item[column]))) : width;
    }
    widths.push_back(width);
  }
  const auto line = [&](const auto& cellOf) {
    std::string text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      text += i + 1 < columns.size() ? Padded(cellOf(columns[i]), widths[i]) + "  " : cellOf(columns[i]);
    }
    return text;
  };
  if (!columns.empty()) {
    m_answers.Write(m_style.Heading(line([](const std::string& column) { return column; })) + "\n");
  }
  for (const Json& item : items) {
    m_answers.Write(line([&](const std::string& column) {
                      return item.contains(column) ? ToText(item[column]) : std::string();
                    }) +
                    "\n");
  }
}

void Output::ShowEvent(const Event& event) {
  EndProgress();
  if (m_json) {
    m_answers.Write(ToLine(event.ToJson()) + "\n");
    return;
  }
  m_answers.Write(m_style.Faint(LocalTime(event.time)) + "  " + TextOf(event, m_style) + "\n");
}

void Output::ShowText(const std::string& text) {
  const std::string shown = AsWritten(text);
  m_answers.Write(m_json ? ToLine(Json{{"kind", "help"}, {"text", shown}}) + "\n" : shown);
}

void Output::Note(const std::string& text) {
  EndProgress();
  const std::string message = AsWritten(text);
  WriteError(m_json ? ToLine(Json{{"kind", "note"}, {"message", message}}) + "\n"
                    : "btctl: " + TerminalSafe(message) + "\n");
}

void Output::NoteCut(std::size_t listed, std::size_t total) {
  EndProgress();
  const std::string message = CutText(listed, total);
  WriteError(
      m_json
          ? ToLine(Json{{"kind", "note"}, {"message", message}, {"listed", listed}, {"total", total}}) + "\n"
          : "btctl: " + message + "\n");
}

void Output::Complain(const Failure& failure) {
  EndProgress();
  const std::string message = AsWritten(failure.what());
  const std::string hint = AsWritten(failure.Hint());
  if (m_json) {
    Json error{{"kind", "error"},
               {"code", static_cast<int>(failure.Code())},
               {"name", NameOf(failure.Code())},
               {"message", message},
               {"hint", hint}};
    if (!failure.Cause().empty()) {
      error["cause"] = failure.Cause();
    }
    WriteError(ToLine(error) + "\n");
    return;
  }
  WriteError(m_errorStyle.Error("btctl: ") + TerminalSafe(message) + "\n");
  if (!hint.empty()) {
    WriteError(TerminalSafe(hint) + "\n");
  }
}

std::string Output::AsWritten(const std::string& text) const {
  if (m_origin == Origin::COMMAND_LINE) {
    return text;
  }
  std::string written = text;
  Replace(written, "'btctl --help'", "'help'");
  Replace(written, "Usage: btctl ", "Usage: ");
  Replace(written, "'btctl' has no ", "there is no ");
  Replace(written, "'btctl ", "'");
  return written;
}

void Output::ShowProgress(int current, int total) {
  if (m_json || isatty(STDERR_FILENO) == 0 || total <= 0) {
    return;
  }
  const int done = std::clamp(static_cast<int>(static_cast<long long>(current) * kProgressWidth / total), 0,
                              kProgressWidth);
  WriteError("\r[" + std::string(static_cast<std::size_t>(done), '#') +
             std::string(static_cast<std::size_t>(kProgressWidth - done), '.') + "] " +
             std::to_string(current) + "/" + std::to_string(total));
  m_hasProgress = true;
}

void Output::EndProgress() {
  if (m_hasProgress) {
    WriteError("\n");
    m_hasProgress = false;
  }
}

std::string Output::TextOf(const Event& event) const { return TextOf(event, Style(false)); }

std::string Output::TextOf(const Event& event, const Style& style) {
  std::string text = style.Event(event.Name());
  for (std::size_t i = 0; i < event.values.size(); ++i) {
    const std::string value = ToText(event.values[i].shown);
    const bool needsQuotes = value.empty() || value.find(' ') != std::string::npos;
    text +=
        "  " + style.Faint(event.description->fields[i] + "=") + (needsQuotes ? '"' + value + '"' : value);
  }
  return text;
}

}  // namespace btctl
