// What the start tag of one XML element says, its names recognised and its namespaces resolved.
#pragma once

#include <array>
#include <cstddef>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

#include "xmi/text/words.h"

namespace xmi {

/// The kind of an XML namespace. UML and XMI are known by the family of their URI, whatever the
/// version in it.
enum class Space : unsigned char { kNone, kUml, kXmi, kXsi, kForeign };

/// The parts of a qualified name, "prefix:local"; the prefix may be empty.
struct QualifiedName {
  std::string_view prefix;
  std::string_view local;
};
QualifiedName SplitName(std::string_view name);

/// The namespaces in scope.
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

/// Filled again and again for one element after the other. All texts point into the document.
struct StartTag {
  /// A known attribute of UML.
  struct Feature {
    Word word;
    std::string_view value;
  };

  std::string_view name;  ///< As it stands in the file.
  Space space = Space::kNone;
  Word tag = Word::kNone;  ///< The word of the local name.

  std::string_view id;
  std::string_view idref;
  std::string_view href;
  bool isNil = false;    ///< Says that there is no value.
  bool hasBase = false;  ///< Has an attribute "base_...", as applications of stereotypes do.

  std::string_view typeName;  ///< The local name of `xmi:type` or `xsi:type`; empty without one.
  Space typeSpace = Space::kNone;
  Word type = Word::kNone;

  std::vector<Feature> features;

  /// True for a tag that neither UML nor, without a prefix, the element around it gives a meaning.
  bool IsForeign() const { return space != Space::kNone && space != Space::kUml; }

  /// Reads an element's start tag. Namespaces that it declares are bound.
  void Read(pugi::xml_node element, Namespaces& namespaces);
  /// The same for a root, which may be of UML or XMI by the default namespace. Tags below a root
  /// that have no prefix are features, whatever the default namespace is.
  void ReadRoot(pugi::xml_node element, Namespaces& namespaces);

 private:
  /// A qualified name, taken apart and looked up.
  struct Known {
    std::string_view text;
    std::string_view local;
    Word word = Word::kNone;
    bool hasPrefix = false;
    Space space = Space::kNone;  // of the prefix
    std::size_t namespaces = 0;  // the version of the namespaces that it is of
  };

  void Clear();
  const Known& Look(std::string_view qualified, const Namespaces& namespaces);
  bool ReadAttributes(pugi::xml_node element, const Namespaces& namespaces);
  void ReadPrefixed(const Known& attribute, std::string_view value, const Namespaces& namespaces);

  // The names seen last, by a few of their letters: a file has millions of them, all the same few.
  std::array<Known, 128> known_;
};

/// True for the attribute or child by which the application of a stereotype names its subject.
inline bool IsBase(std::string_view name) { return name.starts_with("base_"); }

// For the few elements that are read later, with their attributes as the file has them.

/// The value of the attribute of that name without a prefix; empty when there is none.
std::string_view PlainAttribute(pugi::xml_node element, std::string_view name);
/// The same of an attribute with a prefix, whatever that is.
std::string_view PrefixedAttribute(pugi::xml_node element, std::string_view local);

/// What a child element refers to: an id in its file, or an href. Empty when it says neither.
struct IdOrHref {
  std::string_view text;
  bool isHref = false;
};
IdOrHref ReferenceOf(pugi::xml_node element);

}  // namespace xmi
