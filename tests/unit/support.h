#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <boost/algorithm/string.hpp>
#include <filesystem>
#include <fstream>

#include "recording.h"

using Lines = std::vector<std::string>;

/// A test with an empty recording and empty directories, in a root directory that is thrown away.
struct Generator : testing::Test {
  Generator() { StartAnew(); }

  static void StartAnew() {
    if (!std::filesystem::exists("/unit-tests")) std::abort();  // a root that is used for more
    recording = {};
    for (const char* dir : {"/.VexaUpgradePackages", "/run/systemd/system", "/tmp"}) {
      std::filesystem::remove_all(dir);
      std::filesystem::create_directories(dir);
    }
  }

  /// Adds an archive to the upgrade directory, with a package of that name.
  static ScriptedPackage& AddArchive(const std::string& fileName, const std::string& packageName) {
    const std::string path = "/.VexaUpgradePackages/" + fileName;
    std::ofstream{path};
    recording.packages[path].info.name = packageName;
    return recording.packages[path];
  }

  /// The calls so far, one a line: temporary directories numbered as DIR1, DIR2 in order of their
  /// first use; the command for a log message of one line as "log " + message.
  static std::string Calls() {
    std::string text = boost::join(recording.calls, std::string("\n"));
    boost::replace_all(text, R"(VLIBCExec "/bin/bash" "-c" "echo 'vexa-pkg-generator: )", "log ");
    boost::replace_all(text, "' > /dev/kmsg\" null null", "");
    const std::string begin = "/tmp/vexapkg_";
    for (int n = 1; text.find(begin) != std::string::npos; ++n)
      boost::replace_all(text, text.substr(text.find(begin), 19), "DIR" + std::to_string(n));
    return text;
  }

  /// Runs `body` in a process of its own, since the services of the platform live that long, and
  /// returns its calls, those at exit included. Whatever `body` returns is the exit status.
  template <typename Body>
  static std::string CallsOfProcess(Body body, int expectedStatus) {
    const pid_t child = fork();
    if (child == 0) {
      std::atexit([] { std::ofstream("/calls") << Calls(); });
      std::exit(body());
    }
    int status;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == expectedStatus) << status;
    std::ifstream file("/calls");
    return {std::istreambuf_iterator<char>(file), {}};
  }
};
