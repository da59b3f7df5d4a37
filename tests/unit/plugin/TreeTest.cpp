// How the tree is registered below the root. What its nodes declare is compared in the reference.

#include <gmock/gmock.h>

#include <cstring>

#include "RecordingLibrary.h"
#include "clitools/Nodes.h"
#include "frame/Frame.h"

namespace {

using namespace CliTools::AutoCli;
using namespace OrvaneCli::DovraNamespace;
using Testing::Registered;
using Testing::Strings;

/// The position of a virtual function in its class's table, where the destructor has the first two.
template <class Method>
std::size_t SlotOf(Method method) {
  std::size_t offset = 0;  // plus 1
  std::memcpy(&offset, &method, sizeof offset);
  return offset / sizeof(void*);
}

struct AnyCommand : SuccessCommand<AnyCommand> {
  static std::vector<std::size_t> Slots() {
    return {SlotOf(&AnyCommand::GetInputSpecInternal), SlotOf(&AnyCommand::GetOutputSpecInternal),
            SlotOf(&AnyCommand::ExecuteInternal)};
  }
  void ExecuteInternal(const InputPtr&, const OutputPtr&) override {}
};

Strings CommandPaths(const Namespace& root) {
  Strings paths;
  for (const auto& command : CliTools::CommandsBelow(root)) {
    paths.push_back(CliTools::PathOf(*command));
  }
  return paths;
}

TEST(CommandTree, GrowsOnTheNamespaceThatIsThereButOnNoOtherNode) {
  const auto root = Namespace::New(), dovra = Namespace::New();
  dovra->RegisterNamespaceNode(AnyCommand::New(), "neighbour");
  root->RegisterNamespaceNode(dovra, "dovra");
  Strings paths = CommandPaths(*Registered());
  paths.insert(paths.begin(), "dovra neighbour");
  EXPECT_EQ(CommandPaths(*Registered(root)), paths);
  EXPECT_EQ(root->GetNamespaceNode("dovra"), dovra);

  const auto taken = Namespace::New();
  taken->RegisterNamespaceNode(AnyCommand::New(), "dovra");
  EXPECT_EQ(CommandPaths(*Registered(taken)), CommandPaths(*Registered()));
}

TEST(CommandTree, CompletesANamespaceBeforeItsParentLearnsOfIt) {
  static const Namespace* top;
  const auto root = Namespace::New();
  top = root.get();
  const auto make = +[]() -> CommandPtr {
    EXPECT_FALSE(top->HasNamespaceNode("outer"));
    return AnyCommand::New();
  };
  const Node nodes[] = {
      {"outer", ""}, {"outer inner", ""}, {"outer leaf", make}, {"outermost", ""}};
  Register(nodes, *root, "");
  EXPECT_TRUE(root->HasNamespaceNode("outermost"));
  EXPECT_EQ(CommandPaths(*root), Strings{"outer leaf"});
}

TEST(CommandTree, RefusesARowThatDoesNotFollowItsNamespace) {
  for (const std::string stray : {"dvora b", "dovra x b", "dovrab", "dovra"}) {
    const Node nodes[] = {{"dovra a", ""}, {stray, ""}, {"dovra c", ""}};
    EXPECT_THAT(
        [&] { Register(nodes, *Namespace::New(), "dovra"); },
        testing::ThrowsMessage<std::logic_error>("the tree has no namespace for \"" + stray + '"'));
  }
}

TEST(Command, HasItsVirtualFunctionsInOrder) {
  EXPECT_EQ(AnyCommand::Slots(), (std::vector<std::size_t>{2, 3, 4}));
}

}  // namespace
