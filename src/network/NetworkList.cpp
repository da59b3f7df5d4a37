#include "frame/Command.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraInfo2;
using HostCtl::Dovra::DovraKnicConfig2;

class NetworkList final : public ListCommand<NetworkList> {
 public:
  static constexpr Record kRecord = {
      .name = "DovraNetworkList",
      .fields =
          {
              {"KNic Name", MetaType::kString},
              {"IP Protocol", MetaType::kString},
              {"Interface UUID", MetaType::kString},
              {"Agent Group Multicast Address", MetaType::kString},
              {"Agent Group IPv6 Multicast Address", MetaType::kString},
              {"Agent Group Multicast Port", MetaType::kInt},
              {"Master Group Multicast Address", MetaType::kString},
              {"Master Group IPv6 Multicast Address", MetaType::kString},
              {"Master Group Multicast Port", MetaType::kInt},
              {"Host Unicast Channel Bound Port", MetaType::kInt},
              {"Multicast TTL", MetaType::kInt},
              {"Traffic Type", MetaType::kString},
          },
      .caption = "Interface",
      .separator = ",",
  };

  NetworkList() { DescribeFetcher("List the network configuration currently in use by Dovra."); }

 private:
  static StructPtr MakeRow(const DovraKnicConfig2& knic) {
    std::vector<std::string> trafficTypes;
    knic.GetTrafficTypes(trafficTypes);
    StructPtr row = GetOutputStructure();
    row->SetField("KNic Name", knic.GetKnicName());
    row->SetField("IP Protocol", "IP");  // both IPv4 and IPv6
    row->SetField("Interface UUID", knic.GetIfaceUuid());
    row->SetField("Agent Group Multicast Address",
                  knic.GetAgentMulticastGroup().GetStringAddress());
    row->SetField("Agent Group IPv6 Multicast Address",
                  knic.GetAgentV6MulticastGroup().GetStringAddress());
    row->SetField("Agent Group Multicast Port", MetaInt::New(knic.GetAgentMulticastPort()));
    row->SetField("Master Group Multicast Address",
                  knic.GetMasterMulticastGroup().GetStringAddress());
    row->SetField("Master Group IPv6 Multicast Address",
                  knic.GetMasterV6MulticastGroup().GetStringAddress());
    row->SetField("Master Group Multicast Port", MetaInt::New(knic.GetMasterMulticastPort()));
    row->SetField("Host Unicast Channel Bound Port", MetaInt::New(knic.GetHostUnicastPort()));
    row->SetField("Multicast TTL", MetaInt::New(knic.GetMulticastTTL()));
    row->SetField("Traffic Type", Join(trafficTypes, ", "));
    return row;
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const ListPtr list = MakeList();
    try {
      const ControlLibrary library;
      if (DovraInfo2* const info = library.GetInfo2()) {
        for (const auto& knic : info->GetKnicConfigs()) {
          if (knic) list->Add(MakeRow(*knic));
        }
      } else {
        output->AddErrorMessage(kNoInfo2Message);
      }
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
    output->SetRootObject(list);  // after a failure, the rows completed by then
  }
};

template CommandPtr MakeCommand<NetworkList>();

}  // namespace OrvaneCli::DovraNamespace
