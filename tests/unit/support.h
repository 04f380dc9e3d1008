#pragma once

#include <gtest/gtest.h>

#include <boost/algorithm/string/replace.hpp>
#include <filesystem>
#include <fstream>

#include "recording.h"

int GeneratorMain(int argc, char** argv);

inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A test with an empty recording and an empty upgrade and unit directory.
struct Generator : testing::Test {
  Generator() { StartAnew(); }

  void StartAnew() {
    if (!std::filesystem::exists("/unit-tests")) std::abort();  // a root that is used for more
    recording = {};
    for (const char* dir : {"/.VexaUpgradePackages", "/run/systemd/system"}) {
      std::filesystem::remove_all(dir);
      std::filesystem::create_directories(dir);
    }
  }

  /// Adds an archive to the upgrade directory, with a package of that name.
  ScriptedPackage& AddArchive(const std::string& fileName, const std::string& packageName) {
    const std::string path = "/.VexaUpgradePackages/" + fileName;
    std::ofstream{path};
    recording.packages[path].info.name = packageName;
    return recording.packages[path];
  }

  /// Makes every call that has `part` in its line return `result`.
  void Answer(const std::string& part, int result) {
    recording.answer = [=](const std::string& call, int usual) {
      return call.find(part) == std::string::npos ? usual : result;
    };
  }

  /// The calls so far, one a line: temporary directories numbered as DIR1, DIR2 in order of their
  /// first use; the command for a log message of one line as "log " + message.
  std::string Calls() const {
    std::string text;
    for (const std::string& call : recording.calls) text += call + "\n";
    boost::replace_all(text, R"(VLIBCExec "/bin/bash" "-c" "echo 'vexa-pkg-generator: )", "log ");
    boost::replace_all(text, "' > /dev/kmsg\" null null\n", "\n");
    const std::string begin = "/tmp/vexapkg_";
    for (int n = 1; text.find(begin) != std::string::npos; ++n)
      boost::replace_all(text, text.substr(text.find(begin), 19), "DIR" + std::to_string(n));
    return text;
  }
};
