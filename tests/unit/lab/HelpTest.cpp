#include <gtest/gtest.h>

#include "Tree.h"
#include "clitools/Help.h"

namespace {

using namespace CliTools;
using namespace CliTools::AutoCli;
using namespace CliTools::CallSpec;
using namespace CliTools::MetaObj;

TEST(Help, ListsANamespacesChildren) {
  const Tree tree;
  EXPECT_EQ(NamespaceHelp("program", *tree.disk, {40}),
            "Usage: program disk [NAMESPACE...]\n"
            "       COMMAND [OPTIONS]\n"
            "\nCommands for disks\n"
            "\nNamespaces:\n"
            "  tag\n"
            "\nCommands:\n"
            "  remove  Remove disks, and wait until\n"
            "          their data is elsewhere.\n"
            "  list\n"
            "\nTo read on: program disk NAME --help\n");
}

TEST(Help, TellsACommandsParameters) {
  const Tree tree;
  FakeCommand& remove = *tree.remove;
  remove.Add("disk", "d", ParameterType::kStringList, "The disk.").SetRequired(true);
  const auto values = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  values->AddStringEnum("all", "");
  values->AddStringEnum("none", "");
  remove
      .Add("mode", "m", ParameterType::kString,
           "What to do first (%ENUM%; default none). Where:\n"
           "    all: move everything that is on the disk away from it\n"
           "    none: move nothing")
      .SetConstraint(values);
  remove.Add("quiet", "", ParameterType::kFlag, "Nothing is listed for %ENUM%.");
  EXPECT_EQ(CommandHelp("program", remove, {60}),
            "Usage: program disk remove --disk TEXT [--disk TEXT]...\n"
            "       [--mode TEXT] [--quiet]\n"
            "\nRemove disks, and wait until their data is elsewhere.\n"
            "\nParameters:\n"
            "  -d, --disk TEXT (required; text; may be repeated)\n"
            "        The disk.\n"
            "  -m, --mode TEXT (optional; one of all, none)\n"
            "        What to do first (all, none; default none). Where:\n"
            "            all: move everything that is on the disk away\n"
            "            from it\n"
            "            none: move nothing\n"
            "      --quiet (optional; takes no value)\n"
            "        Nothing is listed for %ENUM%.\n"
            "\nOutput: true on success\n");
}

}  // namespace
