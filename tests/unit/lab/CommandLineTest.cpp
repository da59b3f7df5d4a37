#include <gtest/gtest.h>

#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"

namespace {

using namespace CliTools;
using namespace CliTools::CallSpec;

using Words = std::vector<std::string>;

const Words kRoles = {"witness", "node"};

std::shared_ptr<InputSpec> MakeSpec() {
  const auto roles = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const std::string& role : kRoles) roles->AddStringEnum(role, "");
  const auto range = ParameterConstraint::New(ParameterConstraintType::kIntRange);
  range->SetIntRange(0, 512);
  const auto spec = InputSpec::New();
  const auto add = [&](const char* name, const char* letter, ParameterType type,
                       std::shared_ptr<ParameterConstraint> constraint = nullptr) {
    const auto parameter = ParameterSpec::New(name, type);
    parameter->SetShortName(letter);
    parameter->SetRequired(name == std::string("uuid"));
    parameter->SetConstraint(std::move(constraint));
    spec->AddParameter(parameter);
  };
  add("uuid", "u", ParameterType::kString);
  add("uuid-file", "?", ParameterType::kString);
  add("type", "t", ParameterType::kString, roles);
  add("roles", "r", ParameterType::kStringList, roles);
  add("level", "l", ParameterType::kInt, range);
  add("port", "p", ParameterType::kInt);
  add("enabled", "e", ParameterType::kBool);
  add("wait-time", "", ParameterType::kInt);
  add("wait", "w", ParameterType::kFlag);
  add("boot", "b", ParameterType::kFlag);
  add("disks", "d", ParameterType::kStringList);
  return spec;
}

/// Returns words that give these values, in the order of the parameters, as "--name=value".
Words WriteOut(const InputSpec& spec, const Input& input) {
  Words words;
  for (const auto& parameter : spec.GetParameters()) {
    const std::string& name = parameter->GetName();
    if (!input.HasParameter(name)) continue;
    const ParameterType type = parameter->GetType();
    Words values;
    if (type == ParameterType::kString) values = {input.GetParameter(name)};
    if (type == ParameterType::kInt) values = {std::to_string(input.GetParameterInt(name))};
    if (type == ParameterType::kBool) values = {input.GetParameterBool(name) ? "true" : "false"};
    if (type == ParameterType::kStringList) input.GetParameterList(name, values);
    if (type == ParameterType::kFlag) words.push_back("--" + name);
    for (const std::string& value : values) words.push_back("--" + name + '=' + value);
  }
  return words;
}

/// Returns the parsed values or the error message.
std::string Parse(const InputSpec& spec, const Words& words) try {
  return BaseLibs::Join(WriteOut(spec, *ParseParameters(spec, words)), " ");
} catch (const UsageError& error) {
  return error.what();
}

TEST(CommandLine, TakesOptionsAsAdministratorsTypeThem) {
  const auto spec = MakeSpec();
  const std::vector<std::pair<Words, std::string>> cases = {
      {{"--uuid", "X", "--"}, "--uuid=X"},
      {{"-u", "a", "--uuid-file", "b"},
       "--uuid=a --uuid-file=b"},  // one name is a prefix of the other
      {{"-wbwuX", "-?", "-w"}, "--uuid=X --uuid-file=-w --wait --boot"},
      {{"-u", "--"}, "--uuid=--"},
      {{"--uuid=", "-d", ""}, "--uuid= --disks="},
      {{"-u", " [a,b] \n\"'\\"}, "--uuid= [a,b] \n\"'\\"},
      {{"-d", "b,c", "-u1", "--disks=[a]", "-d-"}, "--uuid=1 --disks=b,c --disks=[a] --disks=-"},
      {{"-uX", "-rnode", "-r", "witness", "-tnode", "-l0"},
       "--uuid=X --type=node --roles=node --roles=witness --level=0"},
      {{"-u1", "-p-9223372036854775808", "-l512"},
       "--uuid=1 --level=512 --port=-9223372036854775808"},
  };
  for (const auto& [words, expected] : cases) EXPECT_EQ(Parse(*spec, words), expected);
  EXPECT_EQ(Parse(*InputSpec::New(), {}), "");
  for (const auto& [yes, no] : std::initializer_list<std::pair<const char*, const char*>>{
           {"true", "FALSE"}, {"1", "0"}, {"Yes", "no"}, {"on", "off"}}) {
    EXPECT_EQ(Parse(*spec, {"-uX", "-e", yes}), "--uuid=X --enabled=true");
    EXPECT_EQ(Parse(*spec, {"-uX", "-e", no}), "--uuid=X --enabled=false");
  }
}

TEST(CommandLine, RefusesWhatItCannotTakeAsItIs) {
  const auto spec = MakeSpec();
  const std::string all =
      "the options are --uuid, --uuid-file, --type, --roles, --level, --port, --enabled, "
      "--wait-time, --wait, --boot, --disks";
  const std::string anyNumber = " for --port: expected a whole number of at most 64 bits";
  const std::string level = " for --level: expected a whole number from 0 to 512";
  const std::vector<std::pair<Words, std::string>> cases = {
      {{"--uui", "X"}, "Unknown option \"--uui\"; did you mean \"--uuid\" or \"--uuid-file\"?"},
      {{"--prot=1"}, "Unknown option \"--prot\"; did you mean \"--port\"?"},
      {{"--WAIT"}, "Unknown option \"--WAIT\"; did you mean \"--wait\" or \"--wait-time\"?"},
      {{"--bo\nt"}, "Unknown option \"--bo\\nt\"; did you mean \"--boot\"?"},
      {{"--colour"}, "Unknown option \"--colour\"; " + all},
      {{"-wait=1"},
       "Unknown option \"-a\" in \"-wait=1\"; did you mean \"--wait\" or \"--wait-time\"?"},
      {{"--", "-uX"}, "Unexpected argument \"-uX\"; " + all},
      {{"-uuid", "X"}, "Unexpected argument \"X\"; did you mean \"--uuid\"?"},
      {{"-w", "true"}, "Unexpected argument \"true\"; --wait takes no value"},
      {{"-d", "a", "b"}, "Unexpected argument \"b\"; repeat --disks before each of its values"},
      {{"-u", "", "b"},
       "Unexpected argument \"b\"; --uuid was given \"\"; quote a value that contains blanks"},
      {{"--wait=tr=ue", "-uX"}, "--wait takes no value, but was given \"tr=ue\""},
      {{"-"}, "Unexpected argument \"-\"; " + all},
      {{"-w", "-p"}, "--port needs a value: a whole number of at most 64 bits"},
      {{"-w"}, "Missing required parameter --uuid (text)"},
      {{"-ua", "--uuid=b\x1b"},
       "--uuid is given twice, as \"a\" and \"b\\x1b\"; it takes one value"},
      {{"-uX", "-r", ""}, "Invalid value \"\" for --roles: expected one of witness, node"},
      {{"-uX", "-twitnes"}, "Invalid value \"witnes\" for --type: expected one of witness, node"},
      {{"-uX", "-l513"}, "Invalid value \"513\"" + level},
      {{"-uX", "-l", "-1"}, "Invalid value \"-1\"" + level},
      {{"-uX", "-p", "99999999999999999999"}, "Invalid value \"99999999999999999999\"" + anyNumber},
      {{"-uX", "-e", "truth"},
       "Invalid value \"truth\" for --enabled: expected true or false (also 1/0, yes/no, on/off)"},
  };
  for (const auto& [words, expected] : cases) EXPECT_EQ(Parse(*spec, words), expected);
  EXPECT_EQ(Parse(*InputSpec::New(), {"-x"}),
            "Unknown option \"-x\"; this command has no options of its own");
}

}  // namespace
