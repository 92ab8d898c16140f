// SPDX-License-Identifier: MIT
// Durability of the settings store across processes: a writer killed at random moments never
// loses a value it was told was written, and two writers at once keep all their values.
#include <corvane/system/reg_settings.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "desktop/registry_store.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

std::string freshFolder() {
  std::string pattern = testing::TempDir() + "corvane-store-XXXXXX";
  return mkdtemp(pattern.data()) ? pattern : std::string();
}

struct Confirmed {
  int32_t round = 0, index = 0;
};

std::string keyOf(const Confirmed& c) {
  return "r" + std::to_string(c.round) + "_" + std::to_string(c.index);
}
std::string pathOf(const Confirmed& c) { return "Dauer\\Teil" + std::to_string(c.index % 5); }
bool isNumber(const Confirmed& c) { return c.index % 3 == 0; }
// Texts of changing length, so that pages fill and split while the writer is killed.
std::string textOf(const Confirmed& c) {
  return keyOf(c) + std::string(static_cast<size_t>(c.index % 97), 'x');
}

// The child: writes one new value after another and reports each confirmed write on the pipe
// before it goes on. It never ends by itself within the test's time.
[[noreturn]] void writeUntilKilled(Desktop& desktop, const std::string& file, int pipe, int32_t round) {
  desktop.registry().useFile(file);
  cRegSettings settings;
  for (int32_t i = 0; i < 1000000; ++i) {
    Confirmed c{round, i};
    bool ok = isNumber(c) ? settings.SetSetting(pathOf(c), keyOf(c), i * 7, true)
                          : settings.SetSetting(pathOf(c), keyOf(c), textOf(c));
    if (ok && write(pipe, &c, sizeof c) != static_cast<ssize_t>(sizeof c)) _exit(3);
  }
  _exit(0);
}

class SettingsStoreDurabilityTest : public test::DesktopTest {};

TEST_F(SettingsStoreDurabilityTest, ValuesConfirmedBeforeSigkillSurviveTwoHundredKills) {
  const std::string folder = freshFolder();
  ASSERT_FALSE(folder.empty());
  const std::string file = folder + "/registry.sqlite";
  const unsigned seed = static_cast<unsigned>(std::random_device{}());
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> delayUs(0, 25000);

  std::vector<Confirmed> confirmed;
  int failures = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int32_t round = 0; round < 200; ++round) {
    int fds[2];
    ASSERT_EQ(pipe(fds), 0);
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      close(fds[0]);
      writeUntilKilled(desktop(), file, fds[1], round);
    }
    close(fds[1]);
    // The kill falls at a random moment after the writer's first confirmed write, so that every
    // round checks something however busy the machine is.
    Confirmed c;
    pollfd first{fds[0], POLLIN, 0};
    if (poll(&first, 1, 10000) == 1 && read(fds[0], &c, sizeof c) == static_cast<ssize_t>(sizeof c))
      confirmed.push_back(c);
    usleep(static_cast<useconds_t>(delayUs(random)));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer ended before it was killed";
    while (read(fds[0], &c, sizeof c) == static_cast<ssize_t>(sizeof c)) confirmed.push_back(c);
    close(fds[0]);

    RegistryStore check(file);
    const std::string verdict = check.integrityCheck();
    if (verdict != "ok") ++failures;
    EXPECT_EQ(verdict, "ok") << "after kill " << round;

    desktop().registry().useFile(file);
    cRegSettings settings;
    for (const Confirmed& v : confirmed) {
      Variant expected = isNumber(v) ? Variant(std::to_string(v.index * 7)) : Variant(textOf(v));
      if (settings.GetSetting(pathOf(v), keyOf(v), "lost") != expected) {
        ++failures;
        ADD_FAILURE() << "lost " << keyOf(v) << " after kill " << round;
        break;
      }
    }
    desktop().registry().useFile("");
    if (failures) break;
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  RecordProperty("confirmed_writes", static_cast<int>(confirmed.size()));
  std::cout << "[ durability ] 200 kills, " << confirmed.size() << " confirmed writes, " << failures
            << " failures, " << seconds << " s\n";
  EXPECT_GE(confirmed.size(), 200u) << "a writer confirmed nothing before its kill";
  std::filesystem::remove_all(folder);
}

TEST_F(SettingsStoreDurabilityTest, TwoProcessesWritingAtOnceBothKeepAllTheirValues) {
  const std::string folder = freshFolder();
  ASSERT_FALSE(folder.empty());
  const std::string file = folder + "/registry.sqlite";
  constexpr int Count = 150;
  pid_t children[2];
  for (int w = 0; w < 2; ++w) {
    children[w] = fork();
    ASSERT_GE(children[w], 0);
    if (children[w] == 0) {
      desktop().registry().useFile(file);
      cRegSettings settings;
      int falses = 0;
      for (int i = 0; i < Count; ++i)
        if (!settings.SetSetting("Zwei\\W" + std::to_string(w) + "\\" + std::to_string(i % 4),
                                 "k" + std::to_string(i), "w" + std::to_string(w) + "v" + std::to_string(i)))
          ++falses;
      _exit(falses > 100 ? 100 : falses);
    }
  }
  for (pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "a writer saw SetSetting fail";
  }
  desktop().registry().useFile(file);
  cRegSettings settings;
  for (int w = 0; w < 2; ++w)
    for (int i = 0; i < Count; ++i)
      ASSERT_EQ(settings.GetSetting("Zwei\\W" + std::to_string(w) + "\\" + std::to_string(i % 4),
                                    "k" + std::to_string(i)),
                Variant("w" + std::to_string(w) + "v" + std::to_string(i)));
  EXPECT_EQ(RegistryStore(file).integrityCheck(), "ok");
  desktop().registry().useFile("");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace corvane
