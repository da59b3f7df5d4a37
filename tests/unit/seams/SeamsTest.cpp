// What every other test replaces: the files of a real host, and the pause between restarts.

#include <gtest/gtest.h>

#include <ctime>

#include "frame/HostPaths.h"
#include "trace/RestartPause.h"

namespace {

timespec asked;

}  // namespace

/// Nobody waits here.
extern "C" int nanosleep(const timespec* time, timespec*) {
  asked = *time;
  return 0;
}

namespace OrvaneCli::DovraNamespace {

TEST(Seams, AreThoseOfARealHost) {
  EXPECT_EQ(HostPaths::NotifyDatastoreScript(), "/usr/lib/orvane/hostmgrd/bin/notifyDatastore.py");
  EXPECT_EQ(HostPaths::TraceConfiguration(), "/etc/orvane/dovra/dovratraced.conf");
  EXPECT_EQ(HostPaths::TraceInitScript(), "/etc/init.d/dovratraced");
  PauseBeforeRestart();
  EXPECT_EQ(asked.tv_sec, 5);
  EXPECT_EQ(asked.tv_nsec, 0);
}

}  // namespace OrvaneCli::DovraNamespace
