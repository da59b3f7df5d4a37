// How the commands that go through lists grow with them.

#include <benchmark/benchmark.h>

#include <string>

#include "RecordingLibrary.h"
#include "platform/corectl/DovraUtil.h"

namespace {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraDatastore;
using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Dovra::DovraKnicConfig2;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;
using Testing::RecordingLibrary;

std::string Uuid(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return "00000000-0000-0000-0000-" + std::string(12 - digits.size(), '0') + digits;
}

void AddAgents(RecordingLibrary& library, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    library.unicastAgents.push_back(Uuid(i) + ";0;1;10.0.0.1;12321;knic0");
  }
}

void AddDatastores(RecordingLibrary& library, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    library.datastores.push_back(std::make_shared<DovraDatastore>(Uuid(i), "name", false));
  }
}

void AddKnics(RecordingLibrary& library, std::int64_t count) {
  const DovraIpAddress v4(Ipv4Address("224.1.2.3"));
  const DovraIpAddress v6(Ipv6Address("ff19::1"));
  for (std::int64_t i = 0; i < count; ++i) {
    library.knics.push_back(std::make_shared<DovraKnicConfig2>(
        "knic" + std::to_string(i), v4, v6, v4, v6, 1, 2, 3, 4, true, true, Uuid(i)));
  }
}

void AddDisks(RecordingLibrary& library, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    library.serviceDisks.push_back(DovraUtil::StringToDovraUuid(Uuid(i)));
  }
}

void Run(benchmark::State& state, const std::string& path,
         void (*addEntries)(RecordingLibrary&, std::int64_t)) {
  RecordingLibrary library;
  addEntries(library, state.range(0));
  auto& command = Testing::Find(path).first;
  const auto input = CliTools::CallSpec::Input::New();
  for (auto _ : state) {
    library.calls.clear();
    command.Execute(input, CliTools::CallSpec::Output::New());
  }
}

void Register(const std::string& path, void (*addEntries)(RecordingLibrary&, std::int64_t)) {
  benchmark::RegisterBenchmark(("dovra " + path).c_str(), Run, path, addEntries)
      ->RangeMultiplier(10)
      ->Range(1000, 100000)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
  Register("cluster unicastagent list", AddAgents);
  Register("cluster unicastagent clear", AddAgents);
  Register("datastore list", AddDatastores);
  Register("network list", AddKnics);
  Register("storage list", AddDisks);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
