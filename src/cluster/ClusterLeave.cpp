#include "frame/Command.h"
#include "frame/HostFile.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraInfo;

namespace {

/// Returns the datastores' names, joined by commas.
std::string ReadDatastoreNames(const ControlLibrary& library) {
  DovraInfo::Datastores datastores;
  library->GetDatastores(datastores);
  std::string names;
  names.reserve(datastores.size() * 16);
  for (const auto& datastore : datastores) {
    if (datastore) names += datastore->GetName() + ',';
  }
  if (!names.empty()) names.pop_back();
  return names;
}

/// Runs the script that notifies the host's management daemon of an event of the datastores.
/// Ignores its exit status: a host can leave without the daemon. Throws what `AutoCli_ShellCmd`
/// throws.
void NotifyDatastores(const char* event, const std::string& names) {
  const std::string script = HostFile("/usr/lib/orvane/hostmgrd/bin/notifyDatastore.py");
  std::string unused;
  CliTools::AutoCli::AutoCli_ShellCmd(
      ShellWord(script) + " -t " + event + " -d " + ShellWord(names), unused, "");
}

}  // namespace

class ClusterLeave final : public SuccessCommand<ClusterLeave> {
 public:
  ClusterLeave() { DescribeOperation("Leave the Dovra cluster the host is currently joined to."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    std::string names;
    try {
      const ControlLibrary library;
      if (!library->GetClusterConfig().enabled) {
        return output->AddErrorMessage("The host is not in a Dovra cluster.");
      }
      names = ReadDatastoreNames(library);
      NotifyDatastores("PreUnmount", names);
      library->LeaveCluster(false);
      return output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
    if (names.empty()) return;
    try {
      NotifyDatastores("FailedUnmount", names);
    } catch (const DovraCtlException& failure) {  // thrown by the shell runner
      Report(output, failure);
    }
  }
};

template CommandPtr MakeCommand<ClusterLeave>();

}  // namespace OrvaneCli::DovraNamespace
