#include "platform/clitools/AutoCli.h"

#include <algorithm>
#include <stdexcept>

#include "clitools/Display.h"

namespace CliTools::AutoCli {

namespace {

void Set(CommandSpec::Pairs& pairs, const std::string& key, std::string value) {
  const auto known = std::ranges::find(pairs, key, &CommandSpec::Pairs::value_type::first);
  if (known != pairs.end()) {
    known->second = std::move(value);
  } else {
    pairs.emplace_back(key, std::move(value));
  }
}

/// Whether `node` is `top` or below it.
bool IsWithin(const NamespaceNode& node, const NamespaceNode& top) {
  if (&node == &top) return true;
  const auto parent = node.GetParent();
  return parent != nullptr && IsWithin(*parent, top);
}

[[noreturn]] void Refuse(const std::string& name, const char* reason) {
  throw std::invalid_argument("the node " + Quote(name) + ' ' + reason);
}

}  // namespace

NamespaceNode::NamespaceNode() = default;
NamespaceNode::~NamespaceNode() = default;
void NamespaceNode::SetDescription(std::string text) {
  description_ = std::move(text);
}

CommandSpec::CommandSpec() = default;
CommandSpec::~CommandSpec() = default;

void CommandSpec::SetMetaDataField(const std::string& key, std::string value) {
  Set(metaData_, key, std::move(value));
}
void CommandSpec::SetDefaultOutputFormatter(std::string formatter) {
  formatter_ = std::move(formatter);
}
void CommandSpec::SetDefaultOutputParameter(const std::string& key, std::string value) {
  Set(outputParameters_, key, std::move(value));
}

std::string CommandSpec::GetMetaDataField(const std::string& key) const {
  const auto known = std::ranges::find(metaData_, key, &Pairs::value_type::first);
  return known == metaData_.end() ? std::string() : known->second;
}

bool CommandSpec::HasNamespaceNode(const std::string& name) const {
  return GetNamespaceNode(name) != nullptr;
}

std::shared_ptr<NamespaceNode> CommandSpec::GetNamespaceNode(const std::string& name) const {
  const auto known = std::ranges::find(children_, name, &NamespaceNode::name_);
  return known == children_.end() ? nullptr : *known;
}

void CommandSpec::RegisterNamespaceNode(std::shared_ptr<NamespaceNode> child,
                                        const std::string& name) {
  if (child == nullptr) Refuse(name, "is null");
  if (IsWithin(*this, *child)) Refuse(name, "cannot be below itself");
  // Without an owner, a child would have no link to its parent, which the check above follows.
  if (weak_from_this().expired()) Refuse(name, "is registered in a namespace under construction");
  const auto parent = child->GetParent();
  if (parent && parent.get() != this) Refuse(name, "is registered in another namespace already");
  child->name_ = name;
  child->parent_ = weak_from_this();
  const auto known = std::ranges::find(children_, name, &NamespaceNode::name_);
  if (known != children_.end()) {
    if (*known != child) (*known)->parent_.reset();
    *known = std::move(child);
  } else {
    children_.push_back(std::move(child));
  }
}

Namespace::Namespace() = default;
Namespace::~Namespace() = default;
std::shared_ptr<Namespace> Namespace::New() {
  return std::make_shared<Namespace>();
}

Command::Command() = default;
Command::~Command() = default;

}  // namespace CliTools::AutoCli
