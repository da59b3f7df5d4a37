// How the tree is hung below the root. What its nodes say of themselves is compared in the
// reference.

#include <gmock/gmock.h>

#include <cstring>

#include "Run.h"
#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {
class MaintenanceModeCancel;
}

namespace {

using namespace CliTools::AutoCli;
using namespace OrvaneCli::DovraNamespace;
using Testing::Below;
using Testing::Registered;
std::string PathsBelow(const NamespaceNode& node) {
  std::string paths;
  for (const auto& [path, below] : Below(node)) paths += path + '\n';
  return paths;
}

TEST(CommandTree, GrowsOnTheNamespaceThatIsThere) {
  const auto root = Namespace::New();
  const auto dovra = Namespace::New();
  dovra->RegisterNamespaceNode(Namespace::New(), "neighbour");
  root->RegisterNamespaceNode(dovra, "dovra");
  std::string paths = PathsBelow(*Registered());
  paths.insert(paths.find('\n') + 1, "dovra neighbour\n");
  EXPECT_EQ(PathsBelow(*Registered(root)), paths);
  EXPECT_EQ(root->GetNamespaceNode("dovra"), dovra);
}

TEST(CommandTree, TakesTheNameFromWhatIsNoNamespace) {
  const auto root = Namespace::New();
  root->RegisterNamespaceNode(MakeCommand<MaintenanceModeCancel>(), "dovra");
  EXPECT_EQ(PathsBelow(*Registered(root)), PathsBelow(*Registered()));
}

TEST(CommandTree, KeepsTheBlanksThatNoPageShows) {
  const auto parameter = [](const char* path, std::size_t place) {
    return Testing::Find(path).first.GetInputSpec()->GetParameters().at(place)->GetDescription();
  };
  EXPECT_EQ(Testing::Find("storage automode get").first.GetDescription().front(), ' ');
  EXPECT_EQ(parameter("policy setdefault", 1).back(), '\n');
  EXPECT_THAT(parameter("storage remove", 3),
              testing::ContainsRegex("are:\n    ensure[^\n]+\n    evacuate[^\n]+\n    noAction"));
}

TEST(CommandTree, CompletesANamespaceBeforeItsParentLearnsOfIt) {
  static Namespace* top;
  const auto root = Namespace::New();
  top = root.get();
  const auto make = +[]() -> CommandPtr {
    EXPECT_EQ(PathsBelow(*top), "first\n");
    return MakeCommand<MaintenanceModeCancel>();
  };
  const Node nodes[] = {
      {"first", ""}, {"outer", ""}, {"outer inner", ""}, {"outer leaf", make}, {"outermost", ""}};
  Register(nodes, *root, "");
  EXPECT_EQ(PathsBelow(*root), "first\nouter\nouter inner\nouter leaf\noutermost\n");
}

TEST(CommandTree, RefusesARowThatDoesNotFollowItsNamespace) {
  for (const char* const stray : {"dvora b", "dovra x b", "dovrab", "dovra"}) {
    const Node nodes[] = {{"dovra a", ""}, {stray, ""}, {"dovra c", ""}};
    try {
      Register(nodes, *Namespace::New(), "dovra");
      ADD_FAILURE() << stray << " was registered";
    } catch (const std::logic_error& error) {
      EXPECT_EQ(error.what(), "the tree has no namespace for \"" + std::string(stray) + '"');
    }
  }
}

/// The position of a virtual function in its class's table, where the destructor has the first two.
template <class Method>
std::size_t SlotOf(Method method) {
  std::size_t offset = 0;  // plus 1
  std::memcpy(&offset, &method, sizeof offset);
  return offset / sizeof(void*);
}

struct AnyCommand : SuccessCommand<AnyCommand> {
  static void CheckSlots() {
    EXPECT_EQ(SlotOf(&AnyCommand::GetInputSpecInternal), 2U);
    EXPECT_EQ(SlotOf(&AnyCommand::GetOutputSpecInternal), 3U);
    EXPECT_EQ(SlotOf(&AnyCommand::ExecuteInternal), 4U);
  }
  void ExecuteInternal(const InputPtr&, const OutputPtr&) override {}
};

TEST(Command, HasItsVirtualFunctionsInOrder) {
  AnyCommand::CheckSlots();
}

}  // namespace
