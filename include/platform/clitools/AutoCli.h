// The framework's command tree.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/clitools/CallSpec.h"

#pragma GCC visibility push(default)

namespace CliTools::AutoCli {

/// A node of the tree: a namespace or a command.
class NamespaceNode : public std::enable_shared_from_this<NamespaceNode> {
 public:
  virtual ~NamespaceNode();
  NamespaceNode(const NamespaceNode&) = delete;
  NamespaceNode& operator=(const NamespaceNode&) = delete;

  /// The text that help shows for the node.
  void SetDescription(std::string text);
  const std::string& GetDescription() const { return description_; }

  /// The name under which the node was registered; empty until then.
  const std::string& GetName() const { return name_; }
  /// Null for the root and for a node not registered yet.
  std::shared_ptr<NamespaceNode> GetParent() const { return parent_.lock(); }

 protected:
  NamespaceNode();

 private:
  friend class CommandSpec;
  std::string description_;
  std::string name_;
  std::weak_ptr<NamespaceNode> parent_;
};

/// What the framework knows of a node beyond its place: its children, its kind, how its result is
/// shown unless the caller chooses otherwise.
class CommandSpec : public NamespaceNode {
 public:
  using Pairs = std::vector<std::pair<std::string, std::string>>;

  ~CommandSpec() override;

  /// The node's own shared handle. Throws `std::bad_weak_ptr` if the node is not held by one.
  std::shared_ptr<NamespaceNode> GetThis() { return shared_from_this(); }

  /// "type": "fetcher" for commands that only read, "operation" for those that change state.
  void SetMetaDataField(const std::string& key, std::string value);
  void SetDefaultOutputFormatter(std::string formatter);
  /// Parameters of the formatter: "header:" + structure name, "fields:" + structure name,
  /// "units:" + structure name + "." + field name.
  void SetDefaultOutputParameter(const std::string& key, std::string value);

  bool HasNamespaceNode(const std::string& name) const;
  /// Null if there is no such child.
  std::shared_ptr<NamespaceNode> GetNamespaceNode(const std::string& name) const;
  /// Adds `child` under `name` and becomes its parent. A child that had the name is replaced.
  /// Throws `std::invalid_argument` when `child` is null, this node or one above it, or has another
  /// parent, and when no shared handle holds this node yet, as in its constructor.
  void RegisterNamespaceNode(std::shared_ptr<NamespaceNode> child, const std::string& name);

  /// In the order of registration.
  const std::vector<std::shared_ptr<NamespaceNode>>& GetChildren() const { return children_; }
  /// Empty if the key was not set.
  std::string GetMetaDataField(const std::string& key) const;
  /// Empty if the result is shown as a bare value.
  const std::string& GetDefaultOutputFormatter() const { return formatter_; }
  const Pairs& GetDefaultOutputParameters() const { return outputParameters_; }

 protected:
  CommandSpec();

 private:
  Pairs metaData_;
  std::string formatter_;
  Pairs outputParameters_;
  std::vector<std::shared_ptr<NamespaceNode>> children_;
};

/// An inner node.
class Namespace : public CommandSpec {
 public:
  static std::shared_ptr<Namespace> New();
  Namespace();
  ~Namespace() override;
};

/// A leaf: a command. The tree holds it for as long as the framework runs; calls may repeat, so a
/// command keeps nothing between them.
class Command : public CommandSpec, public CallSpec::CallTarget {
 public:
  ~Command() override;

 protected:
  Command();
};

/// Runs `command` with the shell, hands it `input` as standard input, waits, and fills `output`
/// with what it wrote to standard output and standard error. Returns the exit status, 128 plus the
/// number of the signal that ended it, or -1 when it could not be run.
int AutoCli_ShellCmd(const std::string& command, std::string& output, const std::string& input);

}  // namespace CliTools::AutoCli

/// What a plug-in exports: hangs the plug-in's commands below the framework's root. What it throws
/// reaches the loader; what it had registered by then stays.
extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root);

#pragma GCC visibility pop
