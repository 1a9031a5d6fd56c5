#include "command/element_finder.h"

#include <algorithm>
#include <unordered_set>

namespace command {
namespace {

using model::Element;
using model::Symbol;

const Symbol nameProperty("Name");
const Symbol memberLists[] = {Symbol("OwnedMember"), Symbol("Parameter"), Symbol("Literal")};
const Symbol stereotypes("StereotypeInstance");

constexpr std::string_view separator = "::";

bool IsOfKind(const Element& element, Named named) {
  static const Symbol attribute("Attribute");
  static const Symbol operation("Operation");
  static const Symbol parameter("Parameter");
  static const Symbol port("Port");
  const Symbol metaclass = element.Metaclass();
  switch (named) {
    case Named::kAttribute:
      return metaclass == attribute;
    case Named::kOperation:
      return metaclass == operation;
    case Named::kParameter:
      return metaclass == parameter;
    case Named::kPort:
      return metaclass == port;
    case Named::kAny:
    case Named::kNothing:
      break;
  }
  return metaclass != attribute && metaclass != operation && metaclass != parameter;
}

int Fitness(const Element& element, Named named) {
  return (IsOfKind(element, named) ? 2 : 0) + (element.Entities(stereotypes).empty() ? 0 : 1);
}

std::vector<const Element*> SuppliersOf(const Element& artifact) {
  std::vector<const Element*> suppliers;
  for (const Element* dependency : artifact.Entities(Symbol("ClientDependency"))) {
    const Element* supplier = dependency->Entity(Symbol("Supplier"));
    if (supplier != nullptr) suppliers.push_back(supplier);
  }
  return suppliers;
}

bool HasTooManyTypes(const Element& port) {
  return port.Entities(Symbol("Realized")).size() > 1 ||
         port.Entities(Symbol("Required")).size() > 1;
}

/// Everything below the elements, them included, each once.
std::vector<const Element*> Reachable(std::vector<const Element*> elements) {
  std::unordered_set<const Element*> known(elements.begin(), elements.end());
  for (std::size_t i = 0; i < elements.size(); ++i) {
    for (const Element* member : elements[i]->Entities(memberLists[0])) {
      if (known.insert(member).second) elements.push_back(member);
    }
  }
  return elements;
}

}  // namespace

void PointAt(const xmi::Reader& reader, const Element& element, Diagnostic& diagnostic) {
  diagnostic.location = reader.Locate(element);
  diagnostic.element = reader.QualifiedName(element);
  if (diagnostic.element.empty()) diagnostic.element = element.Text(nameProperty);
  diagnostic.id = reader.IdOf(element);
}

ElementFinder::ElementFinder(const Element& artifact) : artifact_(artifact) {
  scopes_.push_back({SortedByName(SuppliersOf(artifact)), {}});
}

const Element& ElementFinder::Find(const MessageMeaning& message) {
  const Element* found = nullptr;
  if (message.named == Named::kPort) found = FindPort(message.name);
  if (found == nullptr && message.named != Named::kNothing) {
    found = FindScoped(message.name, message.named);
  }
  return found == nullptr ? artifact_ : *found;
}

const Element* ElementFinder::FindScoped(std::string_view name, Named named) {
  std::optional<std::string_view> path = name;
  Scope* scope = &scopes_.front();
  SameNamed found = Take(scope->members, path);
  if (found.empty()) return nullptr;
  while (path) {
    scope = &Inner(*scope, found);
    const SameNamed next = Take(scope->members, path);
    if (next.empty()) return found.front().element;
    found = next;
  }
  return Fittest(found, named);
}

const Element* ElementFinder::Fittest(SameNamed found, Named named) {
  // Many messages may be about a name that many elements have; a later one is no better a guess.
  constexpr std::size_t mostCompared = 64;
  const auto end =
      found.begin() + static_cast<std::ptrdiff_t>(std::min(found.size(), mostCompared));
  const auto lessFit = [named](const Member& left, const Member& right) {
    return Fitness(*left.element, named) < Fitness(*right.element, named);
  };
  return std::max_element(found.begin(), end, lessFit)->element;
}

/// The message leaves out the scope, but it says that there are too many types.
const Element* ElementFinder::FindPort(std::string_view name) {
  if (!ports_) {
    std::vector<const Element*> ports = Reachable(SuppliersOf(artifact_));
    std::erase_if(ports, [](const Element* each) {
      return !IsOfKind(*each, Named::kPort) || !HasTooManyTypes(*each);
    });
    ports_ = SortedByName(ports);
  }
  const SameNamed found = Find(*ports_, name);
  return found.empty() ? nullptr : found.front().element;
}

ElementFinder::Scope& ElementFinder::Inner(Scope& scope, SameNamed owners) {
  Scope*& inner = scope.inner[owners.data()];
  if (inner != nullptr) return *inner;
  std::vector<const Element*> below;
  for (const Member& owner : owners) {
    for (const Symbol list : memberLists) {
      const auto members = owner.element->Entities(list);
      below.insert(below.end(), members.begin(), members.end());
    }
  }
  scopes_.push_back({SortedByName(below), {}});
  inner = &scopes_.back();
  return *inner;
}

ElementFinder::Members ElementFinder::SortedByName(const std::vector<const Element*>& elements) {
  Members members;
  members.reserve(elements.size());
  for (const Element* element : elements) members.push_back({element->Text(nameProperty), element});
  std::stable_sort(members.begin(), members.end(),
                   [](const Member& left, const Member& right) { return left.name < right.name; });
  return members;
}

ElementFinder::SameNamed ElementFinder::Find(const Members& members, std::string_view name) {
  const auto before = [](const Member& member, std::string_view wanted) {
    return member.name < wanted;
  };
  const auto behind = [](std::string_view wanted, const Member& member) {
    return wanted < member.name;
  };
  const auto begin = std::lower_bound(members.begin(), members.end(), name, before);
  return {begin, std::upper_bound(begin, members.end(), name, behind)};
}

/// The members that the path begins with, which is cut off; nothing is left at the end of the path.
/// A name may hold separators itself, so the next few are tried as the end of it.
ElementFinder::SameNamed ElementFinder::Take(const Members& members,
                                             std::optional<std::string_view>& path) {
  constexpr int mostSeparators = 4;
  std::size_t end = 0;
  for (int i = 0; i < mostSeparators; ++i) {
    end = path->find(separator, end);
    const SameNamed found = Find(members, path->substr(0, end));
    if (!found.empty()) {
      path = end == path->npos ? std::nullopt : std::optional(path->substr(end + separator.size()));
      return found;
    }
    if (end == path->npos) break;
    end += separator.size();
  }
  return {};
}

}  // namespace command
