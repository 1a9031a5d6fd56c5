// The XML namespaces in scope, of which only the kind matters: UML, XMI, XSI or another.
//
// UML and XMI are known by the family of their URI, whatever the version in it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace xmi {

enum class Space : unsigned char { kNone, kUml, kXmi, kXsi, kForeign };

class Namespaces {
 public:
  Namespaces();

  /// Binds a prefix, empty for the default namespace, until `Restore`. The texts are borrowed.
  void Bind(std::string_view prefix, std::string_view uri);
  /// The number of bindings, to be given to `Restore`.
  std::size_t Mark() const { return bindings_.size(); }
  /// Forgets the bindings made since the mark was taken.
  void Restore(std::size_t mark) {
    if (mark == bindings_.size()) return;
    bindings_.resize(mark);
    last_ = 0;
    ++version_;
  }

  /// A number that changes when what a prefix means may change; never 0.
  std::size_t Version() const { return version_; }
  /// The kind of the namespace of a prefix; `kForeign` for one that is not bound, `kNone` for the
  /// empty prefix when there is no default namespace.
  Space Find(std::string_view prefix) const;
  /// The URI of the namespace of a prefix; empty for one that is not bound.
  std::string_view UriOf(std::string_view prefix) const;

 private:
  struct Binding {
    std::string_view prefix;
    std::string_view uri;
    Space space;
  };
  const Binding* Lookup(std::string_view prefix) const;

  std::vector<Binding> bindings_;
  std::size_t version_ = 1;
  mutable std::size_t last_ = 0;  // the binding found last: nearly always the next one, too
};

/// The parts of a qualified name, "prefix:local"; the prefix may be empty.
struct QualifiedName {
  std::string_view prefix;
  std::string_view local;
};
QualifiedName SplitName(std::string_view name);

}  // namespace xmi
