#include <mwp/MWPLog.h>

#include <cstdlib>

#define MWP_LOG_SOURCE "platform/MWPLog"

zlog_category_t* liblog_category = nullptr;

namespace {

#ifdef MWP_ZLOG_IS_STANDIN

struct NamedLevel {
  const char* name;
  int level;
};

constexpr NamedLevel kLevels[] = {
    {"debug", 20}, {"info", 40}, {"notice", 60}, {"warning", 80}, {"error", 100},
};
constexpr int kLowest = 20;
constexpr int kHighest = 100;
constexpr int kDefault = 40;

/// The level that a name or a number stands for; 0 if it stands for none.
int LevelOf(const char* text) {
  for (const NamedLevel& known : kLevels) {
    if (std::strcmp(text, known.name) == 0) {
      return known.level;
    }
  }
  char* end = nullptr;
  const long number = std::strtol(text, &end, 10);
  return *end == '\0' && number >= kLowest && number <= kHighest ? static_cast<int>(number) : 0;
}

void OpenLog(const char* category) {
  const char* const text = std::getenv("MWP_LOG_LEVEL");
  const bool isSet = text != nullptr && *text != '\0';
  const int level = isSet ? LevelOf(text) : kDefault;
  zlog_standin_set_minimum_level(level != 0 ? level : kDefault);
  liblog_category = zlog_get_category(category);
  if (level == 0) {
    MWP_LOG(MWP_LOG_ERROR,
            "MWP_LOG_LEVEL is \"%s\", not one of debug, info, notice, warning, error or a number from %d to "
            "%d: info is taken",
            text, kLowest, kHighest);
  }
}

#else

/// The levels are up to zlog's own configuration: a file, or what zlog takes if the variable is not set.
void OpenLog(const char* category) {
  if (zlog_init(std::getenv("MWP_ZLOG_CONFIG")) != 0) {
    std::fprintf(stderr, "zlog_init failed: MWP_ZLOG_CONFIG must name a configuration of zlog\n");
    return;
  }
  liblog_category = zlog_get_category(category);
}

#endif

/// Static initialisers of the libraries and applications above already log, so the category is there
/// before theirs and all others of this library run.
__attribute__((constructor(101))) void ChooseCategory() {
  const char* const name = std::getenv("MWP_LOG_CATEGORY");
  if (name != nullptr && *name == '\0') {
    return;  // no log system is wanted
  }
  OpenLog(name != nullptr ? name : "libbt");
}

}  // namespace
