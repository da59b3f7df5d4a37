#include <gtest/gtest.h>
#include <signal.h>

#include "baselibs/Process.h"

namespace BaseLibs {
namespace {

TEST(ProcessTest, ReturnsStatusAndOutput) {
  const std::tuple<const char*, int, std::string> cases[] = {
      {"echo said; echo complained >&2; exit 7", 7, "said\ncomplained\n"},
      {"read -r one; read -r two; echo \"$two\"; read -r three", 1, "b\n"},
      {"kill -9 $$", 128 + 9, ""},
      {"kill -PIPE $$", 128 + SIGPIPE, ""},
      {"head -c 100000 /dev/zero | tr '\\0' x", 0, std::string(100000, 'x')},
  };
  for (const auto callers : {SIG_DFL, SIG_IGN}) {  // inherited from the shell
    signal(SIGCHLD, callers);
    signal(SIGPIPE, callers);
    for (const auto& [line, status, output] : cases) {
      const Outcome outcome = RunProgram({"/bin/sh", "-c", line}, "a\nb\n");
      EXPECT_EQ(outcome.status, status) << line;
      EXPECT_EQ(outcome.output, output) << line;
    }
    EXPECT_EQ(signal(SIGCHLD, SIG_DFL), callers);
  }
  EXPECT_EQ(RunProgram({"/nonexistent"}).status, -1);
}

TEST(ProcessTest, WaitsForTheProgramAndNotForWhatItLeavesRunning) {
  const Outcome outcome = RunProgram({"/bin/sh", "-c", "sleep 1000 & echo $!"});
  EXPECT_EQ(kill(std::stoi(outcome.output), SIGKILL), 0);  // fails if RunProgram waited for it
}

}  // namespace
}  // namespace BaseLibs
