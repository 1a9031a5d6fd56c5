#include "tree/node.h"

#include <algorithm>
#include <utility>

#include "agent/diagnostics.h"
#include "output/comment.h"
#include "output/layout.h"
#include "tree/container.h"
#include "tree/declaration_user.h"
#include "tree/node_registry.h"

namespace mdktoidl {

Node::Node(mdk::IMdeEntity* element, Container* parent)
    : Definition(element), serial(nodeRegistry.NextSerial()), lastSerial(serial) {
  scope = parent;
}

void* Node::operator new(std::size_t size) { return nodeRegistry.Allocate(size); }

void Node::CreateNodeRef() { nodeRegistry.Register(entity, this); }

Node* Node::GetNodeRef(mdk::IMdeEntity* element) {
  return element == nullptr ? nullptr : nodeRegistry.Find(element);
}

void Node::JoinList(const NodeList& from, NodeList& to) {
  to.insert(to.end(), from.begin(), from.end());
}

// A subtree is built without a break, so its serials are an interval: whether a container encloses
// a node, and which of its children does, needs no walk through the tree.
void Node::MoveLocalDeclarations(const Container& locals, NodeList& deps, NodeList& out) const {
  SortByCreation(deps);
  auto left = deps.begin();
  const Node* moved = nullptr;
  for (Node* dependency : deps) {
    Node* child = locals.ChildEnclosing(*dependency);
    if (child == nullptr) {
      *left++ = dependency;
    } else if (child != moved && (child != this || dependency == this)) {
      out.push_back(child);
      moved = child;
    }
  }
  deps.erase(left, deps.end());
}

void Node::MoveLocalDeclarations(const Container& locals, NodeList& deps) {
  MoveLocalDeclarations(locals, deps, dependencies);
}

void Node::UnparseForward(std::ofstream&) const {}

bool Node::declares(const std::string&) const { return false; }

void Node::UnparseComment(mdk::IMdeEntity* element, std::ofstream& out) const {
  WriteComments(element, out);
}

void Node::UnparseHeading(std::ofstream& out) const {
  newline(out);
  UnparseComment(Entity(), out);
  newline(out);
}

std::string Node::NameHere(const Node& other) const {
  return InCurrentScope(&other) ? other.Name() : other.ScopedName("::");
}

void Node::ResolveType(mdk::IMdeEntity* typed, const TypeComplaints& complaints, NodeList& deps) {
  TypeReference reference;
  GetType(typed, DeclarationUser(*this, complaints.word), reference);
  UseType(std::move(reference), complaints, deps);
}

void Node::UseType(TypeReference&& reference, const TypeComplaints& complaints, NodeList& deps) {
  typeKind = reference.kind;
  typeName = std::move(reference.text);
  elementKind = reference.elementKind;
  elementName = std::move(reference.declaratorSuffix);
  ResolveBounds(reference, complaints.boundUnknown, deps);
  if (typeKind == unknownType) {
    Report(complaints.typeUnknown, {ScopedName("::")});
    return;
  }
  if (reference.isAnonymous && complaints.typeAnonymous) {
    Report(*complaints.typeAnonymous, {ScopedName("::")});
  }
  ResolveDefinition(reference, complaints.typeNotExported, deps);
}

void Node::ResolveBounds(const TypeReference& reference, std::optional<Message> unknown,
                         NodeList& deps) {
  for (mdk::IMdeEntity* bound : reference.bounds) {
    Node* node = GetNodeRef(bound);
    if (node != nullptr && node->declaresConstant()) {
      deps.push_back(node);
    } else if (unknown) {
      Report(*unknown, {ScopedName("::")});
    }
  }
}

void Node::ResolveDefinition(const TypeReference& reference, Message notExported, NodeList& deps) {
  if (reference.definition == nullptr) return;
  type = GetNodeRef(reference.definition);
  if (type == nullptr) {
    Report(notExported, {ScopedName("::")});
    return;
  }
  deps.push_back(type);
  if (!reference.isAnonymous && !InCurrentScope(type)) auxText = type->ScopedName("::");
}

void SortByCreation(NodeList& nodes) {
  if (nodes.size() < 2) return;
  const auto earlier = [](const Node* left, const Node* right) {
    return left->Serial() < right->Serial();
  };
  std::sort(nodes.begin(), nodes.end(), earlier);
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
}

}  // namespace mdktoidl
