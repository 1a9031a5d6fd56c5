// The state of one reading, which its passes share.
//
// The first pass goes through the files, makes the elements and puts down what can't be decided
// before everything is read; the later passes work that off, so references may lead anywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <pugixml.hpp>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/model.h"
#include "xmi/tables/files.h"
#include "xmi/tables/ids.h"
#include "xmi/tables/items.h"
#include "xmi/text/diagnostics.h"
#include "xmi/text/words.h"

namespace xmi {

/// A reference that an item makes, as the file has it.
struct Reference {
  ItemIndex from = kNoItem;
  Word feature = Word::kNone;
  bool isHref = false;
  std::uint32_t hash = 0;      ///< `Ids::HashOf` of ids; of no use for an href.
  const char* text = nullptr;  ///< An href, or ids with blanks between them.
};

/// A reference of which the target is known; `kNoItem` where it leads to nothing of the model.
struct Link {
  ItemIndex from = kNoItem;
  ItemIndex to = kNoItem;
  Word feature = Word::kNone;
};

/// Something of an item that is no element of its own.
struct Part {
  ItemIndex item = kNoItem;
  pugi::xml_node node;
  std::string_view href;       ///< Where it stands, when that is another file.
  ItemIndex source = kNoItem;  ///< An item of the file in which it stands.
};

/// A bound, a default value or the value of an instance.
struct ValueSpec : Part {
  Word feature = Word::kNone;
  Word type = Word::kNone;
  std::string_view value;  ///< The attribute "value"; empty without one.
  bool hasValue = false;   ///< The attribute is there.
};

/// An element at the top of a file.
struct Root {
  ItemIndex item = kNoItem;
  pugi::xml_node node;
};

/// The application of a stereotype.
struct Application {
  FileIndex file = 0;
  pugi::xml_node node;
};

/// A classifier that is an instantiation of a template, and its binding among the bindings.
struct Instantiation {
  ItemIndex item = kNoItem;
  std::size_t binding = 0;
};

/// How many stereotypes or keywords an element may have, tags a stereotype, and namespaces a tag.
/// Far more than any tool writes; they are looked through one by one.
inline constexpr std::size_t kMostOfAKind = 1000;

struct Reading {
  explicit Reading(model::Model& filled) : model(filled), files(diagnostics) {}

  model::Model& model;
  Diagnostics diagnostics;
  Files files;
  Items items;
  Ids ids;

  std::vector<Reference> references;
  std::vector<ValueSpec> values;
  std::vector<Part> bindings;  ///< Of templates.
  std::vector<Application> applications;
  std::vector<Instantiation> instantiations;  ///< In the order of their items.
  std::vector<Link> links;                    ///< In the order of the items that they come from.
  std::vector<Root> roots;                    ///< Of all files, in the order of their items.
  std::vector<model::Element*> idents;        ///< By what they designate; null where not yet made.
  std::unordered_map<std::string, std::size_t> passedOver;
  ReadingProgress progress;

  Location Locate(ItemIndex item) const {
    return files[items[item].file].document->Locate(items[item].offset);
  }
  Location LocateNode(FileIndex file, pugi::xml_node node) const {
    const Document& document = *files[file].document;
    return document.Locate(document.OffsetOf(node));
  }
  /// What was read as an element at the top of a file; null for an item that is none.
  pugi::xml_node RootNode(ItemIndex item) const;
  /// The first root behind an item.
  std::vector<Root>::const_iterator RootBehind(ItemIndex item) const;
  /// Calls `visit(item, links)` for every item, in order, with the links that come from it.
  template <typename Visit>
  void ForEachItem(const Visit& visit) const {
    std::size_t end = 0;
    for (ItemIndex item = 0; item < items.Size(); ++item) {
      const std::size_t begin = end;
      while (end < links.size() && links[end].from == item) ++end;
      visit(item, std::span(links).subspan(begin, end - begin));
    }
  }
  /// The "Ident" that designates an item's element; the same for all that refer to it.
  model::Element& IdentOf(ItemIndex designated);
  /// How a diagnostic names an item: its kind and its qualified name, shortened when it is very
  /// long.
  std::string Describe(ItemIndex item) const;
  /// Adds a warning about an item.
  void Warn(ItemIndex item, std::string_view rule, const std::string& text) {
    diagnostics.Add(Locate(item), rule, text, items[item].element);
  }
};

}  // namespace xmi
