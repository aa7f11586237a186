// Persisted values: what is read back, where it is kept, and what becomes of a store that is damaged.

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mwp/MWPLog.h>
#include <mwp/MWPPersistService.h>
#include <pthread.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/LogCapture.h"
#include "support/TemporaryDirectory.h"
#include "support/Waiting.h"
#include "unit/platform_files.h"

namespace {

using platform_test::ReadFile;
using platform_test::WriteFile;

using testing::AllOf;
using testing::HasSubstr;

constexpr int kBluetooth = 8;
constexpr int kUntouched = -77;

class PlatformPersist : public ::testing::Test {
 protected:
  PlatformPersist() { UseStore(store); }
  ~PlatformPersist() override { unsetenv("MWP_PERSIST_FILE"); }

  static void UseStore(const std::string& path) { setenv("MWP_PERSIST_FILE", path.c_str(), 1); }

  static int Write(int key, int value) {
    return MWP_GetA7PersistService()->WriteInt(kBluetooth, key, value, 0);
  }

  /// The stored value, kUntouched if the read failed and left the variable alone.
  static int Read(int key, int category = kBluetooth) {
    int value = kUntouched;
    const int result = MWP_GetA7PersistService()->ReadInt(category, key, &value);
    EXPECT_EQ(result != 0, value == kUntouched);
    return value;
  }

  void ExpectOneError(const std::string& part) {
    const std::vector<bttest::LogRecord> records = log.Records();
    log.Clear();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].level, MWP_LOG_ERROR);
    EXPECT_EQ(records[0].file, "platform/MWPPersistService");
    EXPECT_THAT(records[0].message, AllOf(HasSubstr(part), HasSubstr(directory.Path().string())));
  }

  bttest::TemporaryDirectory directory;
  const std::string store = directory.Path() / "state/libbt/persist.ini";
  bttest::LogCapture log;
};

TEST_F(PlatformPersist, AKeyWithoutValueIsNotReadAndThatIsNoError) {
  EXPECT_EQ(Read(303), kUntouched);
  ASSERT_EQ(Write(303, 1), 0);
  EXPECT_EQ(Read(304), kUntouched);
  EXPECT_TRUE(log.Records().empty());
}

TEST_F(PlatformPersist, ValuesAreReadBackAndReplaced) {
  for (const int value : {0, 1, -1, 2147483647, -2147483647 - 1, 5}) {
    ASSERT_EQ(Write(303, value), 0);
    EXPECT_EQ(Read(303), value);
  }
  ASSERT_EQ(Write(310, 9), 0);
  EXPECT_EQ(Read(303), 5);
  EXPECT_EQ(Read(310), 9);
}

TEST_F(PlatformPersist, CategoriesAreApart) {
  ASSERT_EQ(MWP_GetA7PersistService()->WriteInt(1, 303, 11, 0), 0);
  ASSERT_EQ(MWP_GetA7PersistService()->WriteInt(2, 303, 22, 0), 0);
  EXPECT_EQ(Read(303, 1), 11);
  EXPECT_EQ(Read(303, 2), 22);
}

TEST_F(PlatformPersist, TheStoreIsAGroupOfNumbersInADirectoryForItsOwner) {
  ASSERT_EQ(Write(309, 1), 0);
  EXPECT_EQ(ReadFile(store), "[category-8]\n309=1\n");

  struct stat status;
  ASSERT_EQ(stat((directory.Path() / "state/libbt").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777u, 0700u);
}

TEST_F(PlatformPersist, WhatAPersonWroteIsReadAndKept) {
  ASSERT_EQ(Write(309, 1), 0);
  WriteFile(store, "# by hand\n\n[other]\nname=value\n\n[category-8]\n# power\n309=0\n");

  EXPECT_EQ(Read(309), 0);
  ASSERT_EQ(Write(303, 1), 0);
  EXPECT_EQ(ReadFile(store), "# by hand\n\n[other]\nname=value\n\n[category-8]\n# power\n309=0\n303=1\n");
}

TEST_F(PlatformPersist, TheEnvironmentNamesTheStoreAtEachUse) {
  ASSERT_EQ(Write(303, 1), 0);
  UseStore(directory.Path() / "second.ini");
  EXPECT_EQ(Read(303), kUntouched);
  ASSERT_EQ(Write(303, 2), 0);
  UseStore(store);
  EXPECT_EQ(Read(303), 1);
}

struct Damage {
  const char* name;
  std::string content;
};

class PlatformPersistDamaged : public PlatformPersist, public ::testing::WithParamInterface<Damage> {};

TEST_P(PlatformPersistDamaged, ReadsFailWithOneErrorLineAndAWriteSetsTheBrokenFileAside) {
  ASSERT_EQ(Write(303, 1), 0);
  WriteFile(store, GetParam().content);

  EXPECT_EQ(Read(303), kUntouched);
  ExpectOneError("cannot read");
  EXPECT_EQ(ReadFile(store), GetParam().content);

  ASSERT_EQ(Write(303, 7), 0);
  ExpectOneError("moved to");
  EXPECT_EQ(ReadFile(store + ".broken"), GetParam().content);
  EXPECT_EQ(Read(303), 7);
  EXPECT_TRUE(log.Records().empty());
}

INSTANTIATE_TEST_SUITE_P(Contents, PlatformPersistDamaged,
                         ::testing::Values(Damage{"Garbage",
                                                  "\x7f"
                                                  "ELF garbage\n"},
                                           Damage{"CutInAKey", "[category-8]\n303=1\n30"},
                                           Damage{"CutInTheGroup", "[categ"}, Damage{"NoGroup", "303=1\n"},
                                           Damage{"ZeroFilled", std::string(64, '\0')}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(PlatformPersist, AValueThatIsNoIntegerIsAnErrorAndCanBeReplaced) {
  for (const char* value : {"", "abc", "1abc", "1.5", "99999999999"}) {
    ASSERT_EQ(Write(304, 6), 0);
    WriteFile(store, std::string("[category-8]\n304=6\n303=") + value + "\n");
    EXPECT_EQ(Read(303), kUntouched) << value;
    ExpectOneError("key 303");
    ASSERT_EQ(Write(303, 2), 0);
    EXPECT_EQ(Read(303), 2);
    EXPECT_EQ(Read(304), 6);
  }
}

TEST_F(PlatformPersist, AStoreThatIsNoFileIsLeftAloneAndNeverWaitedFor) {
  const std::string pipe = directory.Path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  UseStore(pipe);

  EXPECT_EQ(Read(303), kUntouched);
  ExpectOneError("not a regular file");
  EXPECT_NE(Write(303, 1), 0);
  ExpectOneError("not a regular file");
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST_F(PlatformPersist, AWriteFailsWithOneErrorLineWhereNoDirectoryCanBeMade) {
  WriteFile(directory.Path() / "file", "");
  UseStore(directory.Path() / "file/persist.ini");

  EXPECT_NE(Write(303, 1), 0);
  ExpectOneError("cannot make the directory");
  EXPECT_EQ(Read(303), kUntouched);
  ExpectOneError("cannot read");
}

TEST_F(PlatformPersist, AWriteFailsWithOneErrorLineWhereTheLockCannotBeMade) {
  ASSERT_EQ(Write(303, 1), 0);
  std::filesystem::remove(store + ".lock");
  std::filesystem::create_directory(store + ".lock");

  EXPECT_NE(Write(303, 2), 0);
  ExpectOneError("cannot lock");
  EXPECT_EQ(Read(303), 1);
}

TEST_F(PlatformPersist, AWriteFailsWithOneErrorLineWhereABrokenStoreCannotBeSetAside) {
  ASSERT_EQ(Write(303, 1), 0);
  WriteFile(store, "garbage");
  std::filesystem::create_directories(store + ".broken/in the way");

  EXPECT_NE(Write(303, 2), 0);
  ExpectOneError("cannot be moved to");
  EXPECT_EQ(ReadFile(store), "garbage");
}

/// The process may have no more of something while this lives.
class Limit {
 public:
  Limit(__rlimit_resource resource, rlim_t most) : m_resource(resource) {
    getrlimit(resource, &m_before);
    rlimit limit = m_before;
    limit.rlim_cur = most;
    setrlimit(resource, &limit);
  }
  ~Limit() { setrlimit(m_resource, &m_before); }

 private:
  const __rlimit_resource m_resource;
  rlimit m_before = {};
};

TEST_F(PlatformPersist, AWriteThatTheDiskRefusesFailsWithOneErrorLineAndKeepsTheOldValues) {
  ASSERT_EQ(Write(303, 1), 0);
  std::signal(SIGXFSZ, SIG_IGN);
  {
    const Limit noByteMore(RLIMIT_FSIZE, 0);
    EXPECT_NE(Write(303, 2), 0);
  }
  ExpectOneError("cannot write");
  EXPECT_EQ(Read(303), 1);
}

TEST_F(PlatformPersist, AReadFailsWithOneErrorLineWhereTheStoreCannotBeOpened) {
  ASSERT_EQ(Write(303, 1), 0);
  {
    const Limit noFileMore(RLIMIT_NOFILE, 0);
    EXPECT_EQ(Read(303), kUntouched);
  }
  ExpectOneError("cannot read");
  EXPECT_EQ(Read(303), 1);
}

std::atomic<int> s_interruptions{0};

TEST_F(PlatformPersist, AWriteThatASignalInterruptsGoesOnWaitingForTheLock) {
  ASSERT_EQ(Write(303, 1), 0);
  struct sigaction interrupt = {};
  interrupt.sa_handler = [](int) { ++s_interruptions; };  // without SA_RESTART: the call returns
  sigaction(SIGUSR1, &interrupt, nullptr);
  const int lock = open((store + ".lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(lock, LOCK_EX), 0);

  std::atomic<bool> isDone{false};
  std::thread writer([&] {
    EXPECT_EQ(Write(303, 2), 0);
    isDone = true;
  });
  EXPECT_TRUE(bttest::WaitUntil([&] {
    pthread_kill(writer.native_handle(), SIGUSR1);
    return s_interruptions >= 20;
  }));
  EXPECT_FALSE(isDone);
  EXPECT_EQ(Read(303), 1);
  close(lock);
  writer.join();
  EXPECT_EQ(Read(303), 2);
  EXPECT_TRUE(log.Records().empty());
}

}  // namespace
