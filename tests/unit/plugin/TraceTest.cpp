#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>

#include "Run.h"

using namespace Testing;

namespace {

using Strings = std::vector<std::string>;

const std::string kStatusCall =
    "DovraExec(/the host's/etc/init.d/dovratraced, status, false, true, false)";
const std::string kRestartCall =
    "DovraExec(/the host's/etc/init.d/dovratraced, restart, false, true, false)";

class TraceTest : public testing::Test {
 protected:
  TraceTest() {
    folder_ = std::filesystem::temp_directory_path() / "trace-XXXXXX";
    if (mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("no temporary folder");
    traceConfiguration = folder_ + "/dovratraced.conf";
  }
  ~TraceTest() override { std::filesystem::remove_all(folder_); }

  static void Write(const std::string& text) { std::ofstream(traceConfiguration) << text; }
  static std::string Read() {
    std::ostringstream text;
    text << std::ifstream(traceConfiguration).rdbuf();
    return text.str();
  }

  static Outcome Get() { return Testing::Run("trace get"); }
  static Outcome Set(const std::string& options) { return Testing::Run("trace set " + options); }

  std::string folder_;
  RecordingLibrary library_;
};

/// Numbers as some people write them: 1,024.
struct Grouping : std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

TEST_F(TraceTest, GetReadsEachSettingInAnyLocale) {
  const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
  const std::string none = "No volume selected.";
  const struct {
    const char* file;
    std::string directory;
    std::int64_t maxFiles = 8, fileSize = 45;
    bool urgentToSyslog = true;
  } cases[] = {
      // None of these sets anything; a new volume is not shown before it is taken over.
      {"\n\n# comment\nno setting\nDOVRATRACED_OTHER=1\nDOVRATRACED_VOLUME=\"/new\"\n"
       "\tDOVRATRACED_ROTATE_MAX_FILES=16\n \tDOVRATRACED_ROTATE_FILE_SIZE=90\n"
       "#DOVRATRACED_ROTATE_MAX_FILES=16\n # DOVRATRACED_ROTATE_FILE_SIZE=90\n"
       "export DOVRATRACED_ROTATE_MAX_FILES=16\nDOVRATRACED_ROTATE_MAX_FILES =16\n"
       "A=1 DOVRATRACED_ROTATE_MAX_FILES=16\nDOVRATRACED_ROTATE_FILE_SIZE\n"
       "DOVRATRACED_ROTATE_MAX_FILES=\nDOVRATRACED_ROTATE_FILE_SIZE= \r\n"
       "DOVRATRACED_LOG_URGENT_TO_SYSLOG=\n",
       none},
      // A directory loses every quote and nothing else. Blanks may stand before a key. The last
      // line of a key counts. Numbers read as streams read them.
      {"DOVRATRACED_LAST_SELECTED_VOLUME=\"/a\"b\"=c \n   DOVRATRACED_ROTATE_MAX_FILES=16\n"
       "DOVRATRACED_ROTATE_FILE_SIZE=-08589934593\r\nDOVRATRACED_LOG_URGENT_TO_SYSLOG=true",
       "/ab=c ", 16, -8589934593, false},
      {"DOVRATRACED_LAST_SELECTED_VOLUME=\nDOVRATRACED_ROTATE_MAX_FILES=0x10\n"
       "DOVRATRACED_ROTATE_FILE_SIZE=1,024\nDOVRATRACED_LOG_URGENT_TO_SYSLOG=0\n"
       "DOVRATRACED_LOG_URGENT_TO_SYSLOG=1\r\n",
       "", 0, 1},
      {"DOVRATRACED_ROTATE_MAX_FILES=1\nDOVRATRACED_ROTATE_MAX_FILES=99999999999999999999\n"
       "DOVRATRACED_ROTATE_FILE_SIZE=many\n",
       none, INT64_MAX, 0},
  };
  for (const auto& one : cases) {
    Write(one.file);
    const std::string record =
        "{DOVRA Traces Directory: " + one.directory +
        ", Number Of Files To Rotate: " + std::to_string(one.maxFiles) +
        ", Maximum Trace File Size: " + std::to_string(one.fileSize) +
        ", Log Urgent Traces To Syslog: " + (one.urgentToSyslog ? "true" : "false") + "}";
    EXPECT_EQ(Get(), (Outcome{record, {}})) << one.file;
    EXPECT_EQ(Read(), one.file);
  }
  std::locale::global(before);
}

TEST_F(TraceTest, GetAsksForTheDaemonFirst) {
  const std::string unreadable = "Error opening Dovra trace config file for reading.";
  const std::pair<int, std::string> cases[] = {
      {-1, "Checking dovratraced status failed.Refer to /var/log/syslog.log for details."},
      {3, "Dovra is not enabled on this host."},
      {0, unreadable},
      {1, unreadable},
  };
  for (const auto& [status, error] : cases) {
    library_.calls.clear();
    library_.execStatuses = {status};
    EXPECT_EQ(Get(), (Outcome{"none", {error}}));
    EXPECT_EQ(library_.calls, Strings{kStatusCall});
  }
  std::filesystem::create_directory(traceConfiguration);  // opens, but does not read
  EXPECT_EQ(Get(), (Outcome{"none", {unreadable}}));
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
    library_.calls.clear();
    EXPECT_EQ(Set(options), (Outcome{"true", {}}));
    EXPECT_EQ(Read(), after + appended);
    EXPECT_EQ(library_.calls, (Strings{kStatusCall, kRestartCall}));
  }
  Write(before);
  EXPECT_EQ(Set("-r true"), (Outcome{"true", {}}));
  EXPECT_EQ(Read(), "# head\n#DOVRATRACED_ROTATE_MAX_FILES=1\n");
}

TEST_F(TraceTest, SetRefusesBeforeItTouchesTheFile) {
  const std::string size = "File size should be < 4096 MB.";
  const std::string reset = "reset cannot be used with other options.";
  const std::pair<std::string, std::string> cases[] = {
      {"", "No options provided."},
      {"-r false", "No options provided."},
      {"-s 0", size},
      {"-s 4096", size},
      {"-s 4096 -r true", size},
      {"-s 1 -r true", reset},
      {"-f 1 -r false", reset},
      {"-l false -r false", reset},
  };
  const std::string before = "DOVRATRACED_VOLUME=\"/v\"";
  Write(before);
  for (const auto& [options, error] : cases) EXPECT_EQ(Set(options), (Outcome{"none", {error}}));
  EXPECT_EQ(Read(), before);
  EXPECT_EQ(library_.calls, Strings{});
}

TEST_F(TraceTest, SetLeavesTheDaemonAloneWhenTheFileFails) {
  const Outcome unreadable = {"none", {"Error opening Dovra Trace Config File for reading."}};
  const Outcome unwritable = {"none", {"Error opening Dovra Trace Config File for writing."}};
  EXPECT_EQ(Set("-p /p"), unreadable);
  std::filesystem::create_directory(traceConfiguration);
  EXPECT_EQ(Set("-p /p"), unreadable);

  traceConfiguration = "/proc/version";  // can be read, but not even root can write it
  EXPECT_EQ(Set("-p /p"), unwritable);

  // A disk that is full after four bytes.
  traceConfiguration = folder_ + "/small";
  Write("");
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit tight = {4, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
  const Outcome outcome = Set("-p /p");
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(outcome, unwritable);
  EXPECT_EQ(library_.calls, Strings{});
}

TEST_F(TraceTest, SetRestartsTheDaemonWithPatience) {
  const auto failed = [](int status) {
    return "Failed to restart dovratraced: " + std::to_string(status) + "; ";
  };
  std::string eightTimes;
  for (int attempt = 0; attempt < 7; ++attempt) eightTimes += failed(1);
  eightTimes += failed(-1);
  const std::string refer = " Refer /var/log/syslog.log for details.";
  // Exit statuses of "status", then of each "restart"; what is left; the number of restarts.
  const std::tuple<std::vector<int>, Outcome, int> cases[] = {
      {{0, 0}, {"true", {}}, 1},
      {{1, 0}, {"true", {}}, 1},
      {{3}, {"true", {}}, 0},
      {{-1}, {"none", {"Failed to check dovratraced status." + refer}}, 0},
      {{0, 1, 3, 0}, {"true", {}}, 3},
      {{0, 1, 1, 1, 1, 1, 1, 1, 0}, {"true", {}}, 8},
      {{0, 1, 1, 1, 1, 1, 1, 1, -1, 0}, {"none", {eightTimes + refer}}, 8},
  };
  for (const auto& [statuses, outcome, restarts] : cases) {
    Write("");
    library_.calls.clear();
    library_.execStatuses = statuses;
    EXPECT_EQ(Set("-f 1"), outcome);
    Strings calls = {kStatusCall};
    for (int restart = 1; restart <= restarts; ++restart) {
      if (restart > 1) calls.push_back("PauseBeforeRestart()");
      calls.push_back(kRestartCall);
    }
    EXPECT_EQ(library_.calls, calls);
    EXPECT_EQ(Read(), "DOVRATRACED_ROTATE_MAX_FILES=1\n") << "the new settings stay";
  }
}

}  // namespace
