// What becomes of one log line: the fields of the record that GLib gets, and the minimum level.

#include <map>
#include <string>
#include <vector>

#include <glib.h>
#include <gtest/gtest.h>
#include <mwp/MWPLog.h>

#define MWP_LOG_SOURCE "libbluetooth/MWPBtClient"

namespace {

constexpr int kNotice = 60;
constexpr int kFatal = 120;

struct Record {
  GLogLevelFlags flags;
  std::map<std::string, std::string> fields;

  const std::string& operator[](const std::string& field) { return fields[field]; }
};

/// Keeps all that this process logs through GLib while it lives; one at a time.
class RecordedLog {
 public:
  RecordedLog() {
    // GLib allows a process one writer, once.
    static const bool installed = (g_log_set_writer_func(&RecordedLog::Write, nullptr, nullptr), true);
    static_cast<void>(installed);
    Records().clear();
  }

  std::vector<Record> Take() {
    std::vector<Record> taken;
    taken.swap(Records());
    return taken;
  }

 private:
  static std::vector<Record>& Records() {
    static std::vector<Record> records;
    return records;
  }

  static GLogWriterOutput Write(GLogLevelFlags flags, const GLogField* fields, gsize count, gpointer) {
    Record record{flags, {}};
    for (gsize i = 0; i < count; ++i) {
      const auto* text = static_cast<const char*>(fields[i].value);
      record.fields[fields[i].key] =
          fields[i].length < 0 ? std::string(text) : std::string(text, fields[i].length);
    }
    Records().push_back(record);
    return G_LOG_WRITER_HANDLED;
  }
};

class PlatformLog : public ::testing::Test {
 protected:
  PlatformLog() { zlog_standin_set_minimum_level(MWP_LOG_DEBUG); }

  Record OnlyRecord() {
    std::vector<Record> records = log.Take();
    EXPECT_EQ(records.size(), 1u);
    return records.empty() ? Record{} : records.front();
  }

  RecordedLog log;
};

void LogAtLevel(int level, const char* text) {
  zlog(liblog_category, "file", 4, "function", 8, 1, level, "%s", text);
}

TEST_F(PlatformLog, ARecordCarriesMessageFileFunctionLineLevelAndCategory) {
  MWP_LOG_AT(26, MWP_LOG_ERROR, "retry->%d %s", 3, "refused");

  Record record = OnlyRecord();
  EXPECT_EQ(record["MESSAGE"], "retry->3 refused");
  EXPECT_EQ(record["CODE_FILE"], "libbluetooth/MWPBtClient");
  EXPECT_EQ(record["CODE_FUNC"], "TestBody");
  EXPECT_EQ(record["CODE_LINE"], "26");
  EXPECT_EQ(record["ZLOG_LEVEL"], "100");
  EXPECT_EQ(record["GLIB_DOMAIN"], "libbt");
  EXPECT_EQ(record["PRIORITY"], "3");
}

TEST_F(PlatformLog, ALineWithoutStatedNumberIsLoggedWhereItStands) {
  const int line = __LINE__ + 1;
  MWP_LOG(MWP_LOG_INFO, "here");

  EXPECT_EQ(OnlyRecord()["CODE_LINE"], std::to_string(line));
}

struct LevelCase {
  int level;
  const char* priority;
  GLogLevelFlags flags;
};

TEST_F(PlatformLog, EachLevelHasItsSyslogPriorityAndALevelOfGlibThatEndsNoProcess) {
  const LevelCase cases[] = {
      {MWP_LOG_DEBUG, "7", G_LOG_LEVEL_DEBUG},   {MWP_LOG_INFO, "6", G_LOG_LEVEL_INFO},
      {kNotice, "5", G_LOG_LEVEL_MESSAGE},       {MWP_LOG_WARNING, "4", G_LOG_LEVEL_WARNING},
      {MWP_LOG_ERROR, "3", G_LOG_LEVEL_WARNING}, {kFatal, "2", G_LOG_LEVEL_WARNING},
      {MWP_LOG_INFO + 5, "6", G_LOG_LEVEL_INFO},
  };
  for (const LevelCase& expected : cases) {
    LogAtLevel(expected.level, "text");
    Record record = OnlyRecord();
    EXPECT_EQ(record["ZLOG_LEVEL"], std::to_string(expected.level));
    EXPECT_EQ(record["PRIORITY"], expected.priority) << expected.level;
    EXPECT_EQ(record.flags, expected.flags) << expected.level;
  }
}

TEST_F(PlatformLog, FileAndFunctionEndWhereTheirLengthsSay) {
  const char file[] = {'i', 'p', 'c', '/', 'A', 'X', 'X'};
  const char function[] = {'R', 'u', 'n', 'X'};
  zlog(liblog_category, file, 5, function, 3, 1, MWP_LOG_ERROR, "text");

  Record record = OnlyRecord();
  EXPECT_EQ(record["CODE_FILE"], "ipc/A");
  EXPECT_EQ(record["CODE_FUNC"], "Run");
}

TEST_F(PlatformLog, LinesOfAnyLengthAreLoggedWhole) {
  for (const std::size_t length : {0u, 1u, 1022u, 1023u, 1024u, 1025u, 100000u}) {
    const std::string text(length, 'x');
    MWP_LOG(MWP_LOG_ERROR, "%s", text.c_str());
    EXPECT_EQ(OnlyRecord()["MESSAGE"], text);
  }
}

TEST_F(PlatformLog, TextThatIsNotUtf8IsPassedOnByteForByte) {
  MWP_LOG(MWP_LOG_ERROR, "name:%s", "\xff\xfe\x80");

  EXPECT_EQ(OnlyRecord()["MESSAGE"], "name:\xff\xfe\x80");
}

TEST_F(PlatformLog, LinesBelowTheMinimumLevelAreDroppedAndTheOthersKept) {
  zlog_standin_set_minimum_level(kNotice);
  LogAtLevel(MWP_LOG_DEBUG, "debug");
  LogAtLevel(MWP_LOG_INFO, "info");
  LogAtLevel(kNotice, "notice");
  LogAtLevel(MWP_LOG_ERROR, "error");

  std::vector<Record> records = log.Take();
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0]["MESSAGE"], "notice");
  EXPECT_EQ(records[1]["MESSAGE"], "error");
}

TEST_F(PlatformLog, ACategoryIsMadeOnceAndNamesTheDomain) {
  zlog_category_t* const other = zlog_get_category("other");
  EXPECT_EQ(zlog_get_category("other"), other);
  EXPECT_NE(other, liblog_category);

  zlog(other, "file", 4, "function", 8, 1, MWP_LOG_ERROR, "text");
  EXPECT_EQ(OnlyRecord()["GLIB_DOMAIN"], "other");
}

TEST_F(PlatformLog, ThereIsNoCategoryWithoutANameAndLoggingToNoneDoesNothing) {
  EXPECT_EQ(zlog_get_category(nullptr), nullptr);
  zlog(nullptr, "file", 4, "function", 8, 1, MWP_LOG_ERROR, "text");
  EXPECT_TRUE(log.Take().empty());
}

TEST_F(PlatformLog, ATextThatTheLocaleCannotExpressIsLoggedAsItsFormat) {
  zlog(liblog_category, "file", 4, "function", 8, 1, MWP_LOG_INFO, "the name is %ls", L"\u4e16");
  EXPECT_EQ(OnlyRecord()["MESSAGE"], "the name is %ls");
}

}  // namespace
