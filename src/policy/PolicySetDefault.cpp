#include "frame/Command.h"
#include "policy/PolicyClasses.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr const char* kPolicyDescription =
    "Dovra policy to set as default, in the form of a string. Options are: \n"
    "1)cacheReservation - Flash capacity set aside as read cache for the object, in parts per "
    "million of the object's logical size: 10000 is one percent. Raise it only to cure a read "
    "performance problem, since flash reserved for one object is lost to all others; without a "
    "reservation objects share the read cache as they need it.\n"
    "Default value: 0, Maximum value: 1000000.\n"
    "2)forceProvisioning - With \"1\" the object is provisioned even if the resources at hand "
    "cannot satisfy its policy; Dovra brings it into compliance once enough resources are there. "
    "Until then it may survive fewer failures than the policy asks for. With \"0\" such an object "
    "is refused.\n"
    "Default value: 0.\n"
    "3)hostFailuresToTolerate - Number of failures of a host, disk or network that the object "
    "survives. With mirroring, n failures take n+1 copies of the object and 2n+1 hosts, or fault "
    "domains where they are in use. With erasure coding, 1 failure takes 4 hosts and 2 failures "
    "take 6; more than 2 are not possible.\n"
    "Note: A host which is not part of a fault domain counts as a fault domain of its own.\n"
    "Default value: 1, Maximum value: 3.\n"
    "4)stripeWidth - Number of HDDs across which each replica of the object is striped. A value "
    "above 1 may bring better performance, for e.g when many reads miss the read cache and are "
    "served by HDDs, but it also means higher used of system resources.\n"
    "Default value: 1, Maximum value: 12.\n"
    "5)proportionalCapacity - Percentage of the object's logical size that is reserved (thick "
    "provisioning) when the VM is provisioned. The rest is thin: it takes up capacity only when it "
    "is written.\n"
    "Default value: 0%, Maximum value: 100%.\n"
    "6)iopsLimit - Upper limit on the IOPS of a disk. IO beyond the limit is delayed, so that one "
    "busy disk does not slow down the others. Zero means that there is no limit.\n"
    "Default value: 0.\n"
    "7)replicaPreference - Method by which the object tolerates failures. RAID-1 keeps mirrors and "
    "performs better. RAID-5/6 keeps parity and makes better use of capacity; it needs an "
    "all-flash cluster, and hostFailuresToTolerate chooses between the two: 1 gives RAID-5, 2 "
    "gives RAID-6.\n"
    "Default value: RAID-1.\n";

}  // namespace

class PolicySetDefault final : public SuccessCommand<PolicySetDefault> {
 public:
  PolicySetDefault() { DescribeOperation("Set default Dovra storage policy values."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"policy-class", "c", ParameterType::kString, Need::kRequired,
         "Dovra policy class whose default value to set. Options are: %ENUM%.", AnyPolicyClass()},
        {"policy", "p", ParameterType::kString, Need::kRequired, kPolicyDescription},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string policyClass = input->GetParameter("policy-class");
    const std::string policy = input->GetParameter("policy");
    try {
      const ControlLibrary library;
      library->SetPolicyDefault(policyClass, policy);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<PolicySetDefault>();

}  // namespace OrvaneCli::DovraNamespace
