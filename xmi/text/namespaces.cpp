#include "xmi/text/namespaces.h"

namespace xmi {
namespace {

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

Space SpaceOf(std::string_view uri) {
  if (StartsWith(uri, "http://www.eclipse.org/uml2/") && EndsWith(uri, "/UML")) return Space::kUml;
  for (const std::string_view family :
       {"http://www.omg.org/spec/UML/", "http://schema.omg.org/spec/UML/"}) {
    if (StartsWith(uri, family)) return Space::kUml;
  }
  for (const std::string_view family : {"http://www.omg.org/XMI", "http://www.omg.org/spec/XMI",
                                        "http://schema.omg.org/spec/XMI"}) {
    if (uri == family || (StartsWith(uri, family) && uri[family.size()] == '/')) return Space::kXmi;
  }
  if (uri == "http://www.w3.org/2001/XMLSchema-instance") return Space::kXsi;
  return uri.empty() ? Space::kNone : Space::kForeign;
}

}  // namespace

// Some files leave out the declarations of these two prefixes.
Namespaces::Namespaces() {
  Bind("xmi", "http://www.omg.org/XMI");
  Bind("xsi", "http://www.w3.org/2001/XMLSchema-instance");
}

void Namespaces::Bind(std::string_view prefix, std::string_view uri) {
  bindings_.push_back({prefix, uri, SpaceOf(uri)});
  last_ = bindings_.size() - 1;
  ++version_;
}

const Namespaces::Binding* Namespaces::Lookup(std::string_view prefix) const {
  if (last_ != 0 && bindings_[last_].prefix == prefix) return &bindings_[last_];
  for (std::size_t i = bindings_.size(); i-- > 0;) {
    if (bindings_[i].prefix != prefix) continue;
    last_ = i;
    return &bindings_[i];
  }
  return nullptr;
}

Space Namespaces::Find(std::string_view prefix) const {
  if (const Binding* binding = Lookup(prefix)) return binding->space;
  return prefix.empty() ? Space::kNone : Space::kForeign;
}

std::string_view Namespaces::UriOf(std::string_view prefix) const {
  const Binding* binding = Lookup(prefix);
  return binding == nullptr ? std::string_view() : binding->uri;
}

QualifiedName SplitName(std::string_view name) {
  const std::size_t colon = name.find(':');
  if (colon == std::string_view::npos) return {{}, name};
  return {name.substr(0, colon), name.substr(colon + 1)};
}

}  // namespace xmi
