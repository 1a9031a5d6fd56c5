// What the start tag of one XML element says, its names recognised.
#pragma once

#include <array>
#include <cstddef>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

#include "xmi/text/namespaces.h"
#include "xmi/text/words.h"

namespace xmi {

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
  bool nil = false;      ///< Says that there is no value.
  bool hasBase = false;  ///< Has an attribute "base_...", as applications of stereotypes do.

  std::string_view typeName;  ///< The local name of `xmi:type` or `xsi:type`; empty without one.
  Space typeSpace = Space::kNone;
  Word type = Word::kNone;

  std::vector<Feature> features;

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

/// The word of a type's name; `kNone` when it is not known.
Word TypeOf(std::string_view name);

/// The value of an attribute by its local name, whatever its prefix, which must be there when
/// `prefixed` says so; empty when there is none. For the few elements that are read later.
std::string_view LocalAttribute(pugi::xml_node element, std::string_view local, bool prefixed);

}  // namespace xmi
