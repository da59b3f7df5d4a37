#include "autocli/CommandNotes.h"

#include "autocli/DovraNotes.h"
#include "baselibs/Strings.h"
#include "clitools/Nodes.h"
#include "corectl/session/Operations.h"

namespace AutoCliProgram {

using CliTools::AutoCli::CommandSpec;

namespace {

/// Returns the metadata field, or the note in its place.
std::string FieldOf(const CommandSpec& command, const char* field, const char* DovraNotes::*note) {
  const DovraNotes* const notes = FindDovraNotes(CliTools::PathOf(command));
  return notes == nullptr ? command.GetMetaDataField(field) : notes->*note;
}

}  // namespace

std::vector<Example> ExamplesOf(const CommandSpec& command) {
  std::vector<Example> examples;
  const std::string field = FieldOf(command, "examples", &DovraNotes::examples);
  for (const std::string_view line : BaseLibs::Split(field, '\n')) {
    if (line.starts_with("# ")) {
      examples.push_back({std::string(line.substr(2)), ""});
    } else if (!examples.empty()) {
      examples.back().line = line;
    }
  }
  return examples;
}

std::string ValueListOf(const CommandSpec& command, std::string_view parameter) {
  const std::string field = FieldOf(command, "values", &DovraNotes::valueLists);
  for (const std::string_view pair : BaseLibs::Split(field, ',')) {
    const std::size_t equals = pair.find('=');
    if (pair.substr(0, equals) != parameter || equals == std::string_view::npos) continue;
    return std::string(pair.substr(equals + 1));
  }
  return {};
}

std::vector<std::string_view> OperationsOf(const CommandSpec& command) {
  constexpr std::string_view kSpace = "dovra ";
  const std::string path = CliTools::PathOf(command);
  std::vector<std::string_view> operations;
  if (!path.starts_with(kSpace)) return operations;
  for (const Lab::OperationRow& row : Lab::kOperations) {
    if (row.IsCalledBy(path.substr(kSpace.size()))) operations.push_back(row.name);
  }
  return operations;
}

std::string NotesHelp(const CommandSpec& command, const CliTools::Style& style) {
  std::string text;
  if (const auto operations = OperationsOf(command); !operations.empty()) {
    text += '\n' + CliTools::Caption("Calls that \"lab fault add\" can make fail:", style) + '\n' +
            CliTools::Wrap(BaseLibs::Join(operations, ", "), 2, style.width);
  }
  const auto examples = ExamplesOf(command);
  if (examples.empty()) return text;
  text += '\n' + CliTools::Caption(examples.size() == 1 ? "Example:" : "Examples:", style) + '\n';
  for (const Example& example : examples) {
    text += CliTools::Wrap("# " + example.purpose, 2, style.width) + "  " +
            CliTools::Printable(example.line) + '\n';
  }
  return text;
}

}  // namespace AutoCliProgram
