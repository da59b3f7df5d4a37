#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <locale>

#include "RecordingLibrary.h"
#include "baselibs/File.h"

using namespace Testing;

namespace {

const std::string kStatusCall =
    "DovraExec(/the host's/etc/init.d/dovratraced, status, false, true, false)";
const std::string kRestartCall =
    "DovraExec(/the host's/etc/init.d/dovratraced, restart, false, true, false)";

class TraceTest : public testing::Test {
 protected:
  TraceTest() {
    directory_ = testing::TempDir() + "traceXXXXXX";
    if (mkdtemp(directory_.data()) == nullptr) throw std::runtime_error("no temporary directory");
    traceConfiguration = directory_ + "/dovratraced.conf";
  }
  ~TraceTest() override { std::filesystem::remove_all(directory_); }

  static void Write(const std::string& text) { std::ofstream(traceConfiguration) << text; }

  std::string directory_;
};

SetUp Statuses(const std::vector<int>& statuses) {
  return [=](RecordingLibrary& library) { library.execStatuses = statuses; };
}

/// Groups the digits of numbers: 1,024.
struct Grouping : std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

TEST_F(TraceTest, GetReadsEachSettingInAnyLocale) {
  const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
  const std::string none = "No volume selected.";
  const std::tuple<const char*, std::string, std::int64_t, std::int64_t, const char*> cases[] = {
      // None of these sets anything; a new volume is not shown before it is taken over.
      {"\n\n# comment\nno setting\nDOVRATRACED_OTHER=1\nDOVRATRACED_VOLUME=\"/new\"\n"
       "\tDOVRATRACED_ROTATE_MAX_FILES=16\n \tDOVRATRACED_ROTATE_FILE_SIZE=90\n"
       "#DOVRATRACED_ROTATE_MAX_FILES=16\n # DOVRATRACED_ROTATE_FILE_SIZE=90\n"
       "export DOVRATRACED_ROTATE_MAX_FILES=16\nDOVRATRACED_ROTATE_MAX_FILES =16\n"
       "A=1 DOVRATRACED_ROTATE_MAX_FILES=16\nDOVRATRACED_ROTATE_FILE_SIZE\n"
       "DOVRATRACED_ROTATE_MAX_FILES=\nDOVRATRACED_ROTATE_FILE_SIZE= \r\n"
       "DOVRATRACED_LOG_URGENT_TO_SYSLOG=\n",
       none, 8, 45, "true"},
      // A directory loses its quotes. Blanks may precede a key. The last line of a key counts.
      {"DOVRATRACED_LAST_SELECTED_VOLUME=\"/a\"b\"=c \n   DOVRATRACED_ROTATE_MAX_FILES=16\n"
       "DOVRATRACED_ROTATE_FILE_SIZE=-08589934593\r\nDOVRATRACED_LOG_URGENT_TO_SYSLOG=true",
       "/ab=c ", 16, -8589934593, "false"},
      {"DOVRATRACED_LAST_SELECTED_VOLUME=\nDOVRATRACED_ROTATE_MAX_FILES=0x10\n"
       "DOVRATRACED_ROTATE_FILE_SIZE=1,024\nDOVRATRACED_LOG_URGENT_TO_SYSLOG=0\n"
       "DOVRATRACED_LOG_URGENT_TO_SYSLOG=1\r\n",
       "", 0, 1, "true"},
      {"DOVRATRACED_ROTATE_MAX_FILES=1\nDOVRATRACED_ROTATE_MAX_FILES=99999999999999999999\n"
       "DOVRATRACED_ROTATE_FILE_SIZE=many\n",
       none, INT64_MAX, 0, "true"},
  };
  for (const auto& [file, directory, maxFiles, fileSize, urgentToSyslog] : cases) {
    Write(file);
    Check("trace get", {}, {kStatusCall},
          {"DOVRA Traces Directory: " + directory + ", Number Of Files To Rotate: " +
           std::to_string(maxFiles) + ", Maximum Trace File Size: " + std::to_string(fileSize) +
           ", Log Urgent Traces To Syslog: " + urgentToSyslog});
    EXPECT_EQ(BaseLibs::ReadFile(traceConfiguration), file);
  }
  std::locale::global(before);
}

TEST_F(TraceTest, GetAsksForTheDaemonFirst) {
  const Outcome unreadable = Failed("Error opening Dovra trace config file for reading.");
  const auto check = [](int status, const Outcome& outcome) {
    Check("trace get", Statuses({status}), {kStatusCall}, outcome);
  };
  check(-1, Failed("Checking dovratraced status failed.Refer to /var/log/syslog.log for details."));
  check(3, Failed("Dovra is not enabled on this host."));
  check(0, unreadable);
  check(1, unreadable);
  std::filesystem::create_directory(traceConfiguration);  // opens, but does not read
  check(0, unreadable);
}

TEST_F(TraceTest, SetRewritesWhatItWasGiven) {
  const std::string size = "DOVRATRACED_ROTATE_FILE_SIZE=1\n";
  const std::string volume = "DOVRATRACED_VOLUME=\"/old\"\r\n";
  const std::string syslog = "DOVRATRACED_LOG_URGENT_TO_SYSLOG=1\n";
  const Strings files = {"DOVRATRACED_ROTATE_MAX_FILES=2\n", "DOVRATRACED_ROTATE_MAX_FILES=3\n"};
  const std::string before = "# head\n" + size + "  DOVRATRACED_VOLUME=\"/indented\"\n" + volume +
                             "\nDOVRATRACED_LAST_SELECTED_VOLUME=/used\r\n" +
                             "#DOVRATRACED_ROTATE_MAX_FILES=1\n" + files[0] + syslog + files[1];
  const std::tuple<std::string, Strings, std::string> cases[] = {
      {"-p '/a \"b\"'", {volume}, "DOVRATRACED_VOLUME=\"/a \"b\"\"\n"},
      {"-f -8589934593", files, "DOVRATRACED_ROTATE_MAX_FILES=-8589934593\n"},
      {"-s 4095", {size}, "DOVRATRACED_ROTATE_FILE_SIZE=4095\n"},
      {"-l false", {syslog}, "DOVRATRACED_LOG_URGENT_TO_SYSLOG=0\n"},
      {"-s 1 -l true -f 4 -p ''",
       {size, volume, files[0], syslog, files[1]},
       "DOVRATRACED_VOLUME=\"\"\nDOVRATRACED_ROTATE_MAX_FILES=4\n"
       "DOVRATRACED_LOG_URGENT_TO_SYSLOG=1\nDOVRATRACED_ROTATE_FILE_SIZE=1\n"},
  };
  for (const auto& [options, dropped, appended] : cases) {
    Write(before.substr(0, before.size() - 1));  // the last line need not be complete
    std::string after = before;
    for (const std::string& line : dropped) {
      after.erase(after.find("\n" + line) + 1, line.size());
    }
    Check("trace set " + options, {}, {kStatusCall, kRestartCall}, "true");
    EXPECT_EQ(BaseLibs::ReadFile(traceConfiguration), after + appended);
  }
  Write(before);
  Check("trace set -r true", {}, {kStatusCall, kRestartCall}, "true");
  EXPECT_EQ(BaseLibs::ReadFile(traceConfiguration), "# head\n#DOVRATRACED_ROTATE_MAX_FILES=1\n");
}

TEST_F(TraceTest, SetRefusesBeforeItTouchesTheFile) {
  const std::pair<std::string, Strings> cases[] = {
      {"No options provided.", {"", "-r false"}},
      {"File size should be < 4096 MB.", {"-s 0", "-s 4096", "-s 4096 -r true"}},
      {"reset cannot be used with other options.",
       {"-s 1 -r true", "-f 1 -r false", "-l false -r false"}},
  };
  Write("DOVRATRACED_VOLUME=\"/v\"");
  for (const auto& [error, calls] : cases) {
    for (const auto& options : calls) Check("trace set " + options, {}, {}, Failed(error));
  }
  EXPECT_EQ(BaseLibs::ReadFile(traceConfiguration), "DOVRATRACED_VOLUME=\"/v\"");
}

TEST_F(TraceTest, SetLeavesTheDaemonAloneWhenTheFileFails) {
  const std::string set = "trace set -p /p";
  const Outcome unreadable = Failed("Error opening Dovra Trace Config File for reading.");
  const Outcome unwritable = Failed("Error opening Dovra Trace Config File for writing.");
  Check(set, {}, {}, unreadable);
  std::filesystem::create_directory(traceConfiguration);
  Check(set, {}, {}, unreadable);
  traceConfiguration = "/proc/version";  // can be read, but not even root can write it
  Check(set, {}, {}, unwritable);
  traceConfiguration = "/proc/self/oom_score_adj";  // can be opened, but takes only numbers
  Check(set, {}, {}, unwritable);
}

TEST_F(TraceTest, SetRestartsTheDaemonWithPatience) {
  const auto failed = [](int status) {
    return "Failed to restart dovratraced: " + std::to_string(status) + "; ";
  };
  std::string eightTimes;
  for (int attempt = 0; attempt < 7; ++attempt) eightTimes += failed(1);
  eightTimes += failed(-1);
  const std::string refer = " Refer /var/log/syslog.log for details.";
  // Exit statuses of "status", then of each "restart"; the outcome; the number of restarts.
  const std::tuple<std::vector<int>, Outcome, int> cases[] = {
      {{0, 0}, "true", 1},
      {{1, 0}, "true", 1},
      {{3}, "true", 0},
      {{-1}, Failed("Failed to check dovratraced status." + refer), 0},
      {{0, 1, 1, 1, 1, 1, 1, 1, 0}, "true", 8},
      {{0, 1, 1, 1, 1, 1, 1, 1, -1, 0}, Failed(eightTimes + refer), 8},
  };
  for (const auto& [statuses, outcome, restarts] : cases) {
    Write("");
    Strings calls = {kStatusCall};
    for (int restart = 1; restart <= restarts; ++restart) {
      if (restart > 1) calls.push_back("PauseBeforeRestart()");
      calls.push_back(kRestartCall);
    }
    Check("trace set -f 1", Statuses(statuses), calls, outcome);
    EXPECT_EQ(BaseLibs::ReadFile(traceConfiguration), "DOVRATRACED_ROTATE_MAX_FILES=1\n")
        << "the new settings stay";
  }
}

}  // namespace
