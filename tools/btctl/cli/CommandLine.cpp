#include "btctl/cli/CommandLine.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>

#include <glib.h>
#include <CLI/CLI.hpp>

#include "btctl/base/Failure.h"
#include "btctl/base/Nearest.h"
#include "btctl/cli/Usage.h"
#include "btctl/commands/FromText.h"
#include "btctl/composed/AllCommands.h"
#include "glib/Owned.h"

namespace btctl {
namespace {

std::string ExitCodeHelp() {
  std::string text = "Exit codes:\n";
  for (const ExitCodeDescription& code : kExitCodes) {
    text += "  " + std::to_string(code.code) + (code.code < 10 ? "    " : "  ") + code.meaning + "\n";
  }
  return text;
}

constexpr std::size_t kHelpColumns = 100;

/// Where the text after the last gap of two blanks begins: there, its lines go on.
std::size_t ColumnOfText(const std::string& line) {
  const std::size_t begin = line.find_first_not_of(' ');
  const std::size_t gap = begin == std::string::npos ? begin : line.find("  ", begin);
  const std::size_t text = gap == std::string::npos ? gap : line.find_first_not_of(' ', gap);
  return text == std::string::npos ? 2 : text;
}

/// The help with its lines broken where a terminal would break them within words.
std::string Wrapped(const std::string& help) {
  std::istringstream lines(help);
  std::string wrapped;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t column = ColumnOfText(line);
    while (line.size() > kHelpColumns) {
      const std::size_t blank = line.rfind(' ', kHelpColumns);
      if (blank == std::string::npos || blank <= column) {
        break;
      }
      wrapped += line.substr(0, blank) + "\n";
      line.replace(0, blank + 1, column, ' ');
    }
    wrapped += line + "\n";
  }
  return wrapped;
}

constexpr char kGuard = '\001';

/// The parser takes a text in brackets for a list, and apart. It is to leave it alone.
std::string Guarded(const std::string& word) {
  return !word.empty() && word.front() == '[' ? kGuard + word : word;
}
std::string Unguarded(const std::string& word) {
  return !word.empty() && word.front() == kGuard ? word.substr(1) : word;
}

/// "--seconds=" as two words, the second of which is empty. The parser would take the next word for the
/// value.
std::vector<std::string> WithEmptyValues(const std::vector<std::string>& words) {
  std::vector<std::string> all;
  for (const std::string& word : words) {
    const bool hasEmptyValue = word.rfind("--", 0) == 0 && word.find('=') == word.size() - 1;
    all.push_back(hasEmptyValue ? word.substr(0, word.size() - 1) : word);
    if (hasEmptyValue) {
      all.emplace_back();
    }
  }
  return all;
}

/// The parser of one command and where it puts what is given.
struct Leaf {
  const Command* command;
  CLI::App* app;
  std::deque<Given::Values> values;  ///< does not move what the parser writes to
  std::deque<bool> flags;
};

/// The first word of a command: "call" for "call dial".
std::string GroupOf(const Command& command) { return command.path.substr(0, command.path.find(' ')); }

/// The parser, made from the table of commands.
class Parser {
 public:
  using IsWanted = std::function<bool(const Command&)>;

  explicit Parser(const IsWanted& isWanted) : m_app(kDescription, "btctl") {
    const auto labels = m_app.get_formatter();
    labels->label("Positionals", "Arguments");
    labels->label("SUBCOMMAND", "COMMAND");
    labels->label("REQUIRED", "");
    m_app.footer(ExitCodeHelp());
    m_app.fallthrough();
    m_app.require_subcommand(0, 1);
    m_app.set_help_flag("-h,--help", HelpOf("--help"));
    m_app.add_flag("--json", m_options.json, HelpOf("--json"));
    m_app.add_option("--timeout", m_timeout, HelpOf("--timeout"))->type_name("SECONDS");
    m_app.add_flag("--no-wait", m_doesNotWait, HelpOf("--no-wait"));
    m_app.add_flag("--verbose", m_options.verbose, HelpOf("--verbose"));
    m_app.set_version_flag("--version", "btctl " BTCTL_VERSION, HelpOf("--version"));
    for (const Command& command : AllCommands()) {
      if (isWanted(command)) {
        AddCommand(command);
      }
    }
  }

  Parsed Parse(std::vector<std::string> words) {
    Forget();
    Parsed parsed;
    words = WithEmptyValues(words);
    std::transform(words.begin(), words.end(), words.begin(), Guarded);
    const std::vector<std::string> written = words;
    try {
      std::reverse(words.begin(), words.end());  // as CLI11 takes them
      m_app.parse(words);
    } catch (const CLI::CallForHelp&) {
      const CLI::App& app = Deepest();
      parsed.help = Wrapped(app.help(app.get_parent() != nullptr ? CommandOf(*app.get_parent()) : ""));
      parsed.options = m_options;
      return parsed;
    } catch (const CLI::CallForVersion& version) {
      parsed.help = std::string(version.what()) + "\n";
      parsed.options = m_options;
      return parsed;
    } catch (const CLI::ExtrasError&) {
      throw Unexpected(written);
    } catch (const CLI::ParseError& error) {
      throw Failure(EXIT_USAGE, error.what(), "Try '" + CommandOf(Deepest()) + " --help'.");
    }
    if (m_app.count("--timeout") > 0) {
      m_options.timeoutSeconds = ParseSeconds(m_timeout, "--timeout");
    }
    m_options.waits = !m_doesNotWait;
    parsed.options = m_options;
    FindCommand(parsed);
    return parsed;
  }

 private:
  /// The parser writes only what is given: the rest would stay from the line before.
  void Forget() {
    m_app.clear();
    for (Leaf& leaf : m_leaves) {
      std::fill(leaf.values.begin(), leaf.values.end(), Given::Values());
      std::fill(leaf.flags.begin(), leaf.flags.end(), false);
    }
    m_options = Options();
    m_timeout.clear();
    m_doesNotWait = false;
  }

  /// The parser of a path, made if there is none yet: groups come into being with their first command.
  CLI::App& AppOf(const std::string& path) {
    if (path.empty()) {
      return m_app;
    }
    CLI::App*& app = m_apps[path];
    if (app == nullptr) {
      const std::size_t blank = path.rfind(' ');
      const bool isTop = blank == std::string::npos;
      CLI::App& parent = AppOf(isTop ? "" : path.substr(0, blank));
      app = parent.add_subcommand(isTop ? path : path.substr(blank + 1), HelpOfGroup(path));
      app->group("Commands");
      app->footer("--json, --timeout, --no-wait and --verbose go with every command: see 'btctl --help'.");
      app->fallthrough();
      app->require_subcommand(0, 1);
    }
    return *app;
  }

  void AddCommand(const Command& command) {
    CLI::App& app = AppOf(command.path);
    app.description(command.help);
    Leaf& leaf = m_leaves.emplace_back(Leaf{&command, &app, {}, {}});
    for (const Argument& argument : command.arguments) {
      Given::Values& values = leaf.values.emplace_back();
      bool& flag = leaf.flags.emplace_back(false);
      if (argument.isFlag) {
        app.add_flag(argument.name, flag, argument.help);
      } else if (!argument.isFixed) {
        const std::string preset = argument.preset.empty() ? "" : " (" + argument.preset + ")";
        CLI::Option* const option = app.add_option(argument.name, values, argument.help + preset);
        option->required(!argument.isOptional)->type_name(argument.IsOption() ? NameOfValue(argument) : "");
        SetCount(*option, argument);
      }
    }
  }

  /// How many values it takes. Without this the parser takes whatever follows into a list.
  static void SetCount(CLI::Option& option, const Argument& argument) {
    if (argument.isMany && !argument.IsOption()) {
      option.expected(0, CLI::detail::expected_max_vector_size);
    } else {
      option.expected(1)->allow_extra_args(false);
    }
    if (argument.isMany && argument.IsOption()) {
      option.take_all();
    }
  }

  CLI::App& Deepest() {
    CLI::App* app = &m_app;
    while (!app->get_subcommands().empty()) {
      app = app->get_subcommands().front();
    }
    return *app;
  }

  /// The complaint about the first word that has no meaning where it is.
  Failure Unexpected(const std::vector<std::string>& written) {
    const CLI::App& app = Deepest();
    const std::vector<std::string> unexpected = m_app.remaining(true);
    const std::string word =
        *std::find_first_of(written.begin(), written.end(), unexpected.begin(), unexpected.end());
    const std::vector<std::string> commands = CommandsOf(app);
    const bool isOption = word.front() == '-';
    const std::string message = "'" + CommandOf(app) + "' has no " +
                                (isOption            ? "option"
                                 : !commands.empty() ? "command"
                                                     : "place for") +
                                " '" + word + "'";
    return {EXIT_USAGE, message,
            DidYouMean(word, isOption ? OptionsOf(app) : commands, "Try '" + CommandOf(app) + " --help'.")};
  }

  static std::vector<std::string> CommandsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* const command : app.get_subcommands(nullptr)) {
      names.push_back(command->get_name());
    }
    return names;
  }

  std::vector<std::string> OptionsOf(const CLI::App& app) const {
    std::vector<std::string> names;
    for (const CLI::App* const at : {&app, static_cast<const CLI::App*>(&m_app)}) {
      for (const CLI::Option* const option : at->get_options()) {
        if (!option->get_lnames().empty()) {
          names.push_back("--" + option->get_lnames().front());
        }
      }
    }
    return names;
  }

  static std::string CommandOf(const CLI::App& app) {
    const CLI::App* const parent = app.get_parent();
    return parent != nullptr ? CommandOf(*parent) + " " + app.get_name() : app.get_name();
  }

  void FindCommand(Parsed& parsed) {
    CLI::App& app = Deepest();
    for (Leaf& leaf : m_leaves) {
      if (leaf.app == &app) {
        parsed.command = leaf.command;
        parsed.given = Given(ValuesOf(leaf));
        return;
      }
    }
    if (&app != &m_app) {
      std::string commands;
      for (const std::string& command : CommandsOf(app)) {
        commands += commands.empty() ? command : ", " + command;
      }
      throw Failure(EXIT_USAGE, "'" + CommandOf(app) + "' is not complete",
                    "Add one of: " + commands + "; or --help.");
    }
  }

  static std::vector<Given::Values> ValuesOf(const Leaf& leaf) {
    std::vector<Given::Values> all;
    for (std::size_t i = 0; i < leaf.values.size(); ++i) {
      const Argument& argument = leaf.command->arguments[i];
      const Given::Values& values = leaf.values[i];
      if (argument.isFlag) {
        all.push_back({leaf.flags[i] ? "on" : "off"});
      } else if (values.empty() && !argument.preset.empty()) {
        all.push_back({argument.preset});
      } else {
        std::transform(values.begin(), values.end(), std::back_inserter(all.emplace_back()), Unguarded);
      }
    }
    return all;
  }

  CLI::App m_app;
  std::map<std::string, CLI::App*> m_apps;
  std::deque<Leaf> m_leaves;
  Options m_options;
  std::string m_timeout;
  bool m_doesNotWait = false;
};

std::vector<std::string> Split(const std::string& line) {
  OwnedTexts words;
  OwnedError error;
  if (g_shell_parse_argv(line.c_str(), nullptr, words.Out(), error.Out()) == FALSE) {
    if (g_error_matches(error.get(), G_SHELL_ERROR, G_SHELL_ERROR_EMPTY_STRING) != FALSE) {
      return {};
    }
    throw Failure(EXIT_USAGE, error->message);
  }
  return std::vector<std::string>(words.get(), words.get() + g_strv_length(words.get()));
}

}  // namespace

Parsed ParseLine(const std::string& line) {
  static Parser parser([](const Command&) { return true; });  // making it takes much longer than a line
  return parser.Parse(Split(line));
}

Parsed ParseCommandLine(const std::vector<std::string>& words) {
  try {
    Parser parser([&](const Command& command) {
      return std::find(words.begin(), words.end(), GroupOf(command)) != words.end();
    });
    Parsed parsed = parser.Parse(words);
    if (parsed.command != nullptr) {
      return parsed;
    }
  } catch (const Failure&) {
    // Help and messages name other commands as well.
  }
  return Parser([](const Command&) { return true; }).Parse(words);
}

}  // namespace btctl
