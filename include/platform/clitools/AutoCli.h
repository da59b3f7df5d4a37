// The framework's command tree.
//
// A plug-in's file needs these libraries of its host: libclitools.so, libcorectlcore.so,
// libcorectl.so, libdovracorectl.so and libbaselibs.so. Any of them may define any function of
// these headers. They and the plug-in share one C++ standard library and its ABI.
//
// As in CallSpec.h, the order of virtual functions is part of the ABI, and all calls come from one
// thread.
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

  /// Sets the text that help shows for the node.
  void SetDescription(std::string text);

  // Called only by the framework.

  const std::string& GetDescription() const { return description_; }
  /// Returns the name under which the node was registered; empty until then.
  const std::string& GetName() const { return name_; }
  /// Null for the root and for a node that is not registered.
  std::shared_ptr<NamespaceNode> GetParent() const { return parent_.lock(); }

 protected:
  NamespaceNode();

 private:
  friend class CommandSpec;
  std::string description_;
  std::string name_;
  std::weak_ptr<NamespaceNode> parent_;
};

/// Base of namespaces and commands: children, metadata, default formatter.
class CommandSpec : public NamespaceNode {
 public:
  using Pairs = std::vector<std::pair<std::string, std::string>>;

  ~CommandSpec() override;

  /// Returns the node's own shared handle. Throws `std::bad_weak_ptr` when no handle owns the node.
  std::shared_ptr<NamespaceNode> GetThis() { return shared_from_this(); }

  /// Sets a field. The plug-in sets "type": "fetcher" for commands that only read, "operation" for
  /// commands that change state and for `dovra cluster unicastagent list`. Setting a key again
  /// replaces its value.
  void SetMetaDataField(const std::string& key, std::string value);
  /// Sets the formatter that shows a record or a list of records: "simple", a line per field, or
  /// "table", a line per record. Commands whose result is a record or a list of records set one.
  /// The result of others is a Boolean, shown as a bare value.
  void SetDefaultOutputFormatter(std::string formatter);
  /// Sets a parameter of the formatter. Setting a key again replaces its value. The keys, with a
  /// structure's name for NAME and one of its fields for FIELD:
  /// - "header:NAME": the caption. "simple" shows it before each record, with the field's value in
  ///   place of "%FIELD%". "table" may show it once; its captions have no "%FIELD%".
  /// - "fields:NAME": the fields to show, in order, joined by commas; blanks around a field are not
  ///   part of it. Without it, every field is shown.
  /// - "units:NAME.FIELD": the field's unit, shown after the value.
  /// Every record has the fields named. A Boolean is shown as "true" or "false", a list in a
  /// field as its strings, joined by commas.
  void SetDefaultOutputParameter(const std::string& key, std::string value);

  bool HasNamespaceNode(const std::string& name) const;
  /// Null when there is no such child.
  std::shared_ptr<NamespaceNode> GetNamespaceNode(const std::string& name) const;
  /// Adds `child` under `name` and becomes its parent; a child that has the name is replaced.
  /// Callers register a child once, under one name. Throws `std::invalid_argument` when `child` is
  /// null, this node, a node above it or the child of another node, and when no shared handle owns
  /// this node yet, as in its constructor.
  void RegisterNamespaceNode(std::shared_ptr<NamespaceNode> child, const std::string& name);

  // Called only by the framework.

  /// Returns the children in the order of registration; a replaced child's place is kept.
  const std::vector<std::shared_ptr<NamespaceNode>>& GetChildren() const { return children_; }
  /// Empty when the key was not set.
  std::string GetMetaDataField(const std::string& key) const;
  /// Empty when none was set.
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

/// A leaf: a command. The tree holds it as long as the framework runs, and calls may repeat: a
/// command keeps no state between them.
class Command : public CommandSpec, public CallSpec::CallTarget {
 public:
  ~Command() override;

 protected:
  Command();
};

/// Runs `command` with `/bin/sh -c`, with `input` as its standard input. Waits until the shell
/// ends, but not for processes that it leaves running. Sets `output` to what went to standard
/// output and standard error until then. Returns the shell's exit status, 128 plus the number of
/// the signal that ended it, or -1 when it could not be run. May throw `DovraCtlException`, which
/// callers handle; throws nothing when `command` fails.
int AutoCli_ShellCmd(const std::string& command, std::string& output, const std::string& input);

}  // namespace CliTools::AutoCli

/// A plug-in's only exported function: registers its commands below `root`, the framework's root
/// node, which is not null. The framework calls it once after loading the file. Its exceptions
/// reach the loader; nodes registered by then stay.
extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root);

#pragma GCC visibility pop
