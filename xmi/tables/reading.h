// The state of one reading, which its phases share.
//
// The first phase goes through the files, makes the elements and puts down what can't be decided
// before everything is read; the later phases work that off, so references may lead anywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
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
struct ValueNode : Part {
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
  std::vector<ValueNode> values;
  std::vector<Part> bindings;  ///< Of templates.
  std::vector<Application> applications;
  std::vector<Link> links;  ///< In the order of the items that they come from.
  std::vector<Root> roots;  ///< Of all files, in the order of their items.
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
  /// The element at the top of the file under which an item was read, before any was moved.
  ItemIndex RootOf(ItemIndex item) const { return std::prev(RootBehind(item))->item; }
  /// The first root behind an item.
  std::vector<Root>::const_iterator RootBehind(ItemIndex item) const;
  /// The links of an item, for loops over all items in order; `next` starts at 0.
  std::span<const Link> LinksOf(ItemIndex item, std::size_t& next) const {
    const std::size_t begin = next;
    while (next < links.size() && links[next].from == item) ++next;
    return {links.data() + begin, next - begin};
  }
  /// How a diagnostic names an item: its kind and its qualified name, shortened when it is very
  /// long.
  std::string Describe(ItemIndex item) const;
  /// Ends the reading with a `ReadError`: nothing like that is in a model.
  [[noreturn]] void Refuse(const Location& location, const std::string& text) const;
  /// Adds a warning about an item.
  void Warn(ItemIndex item, std::string_view rule, const std::string& text) {
    diagnostics.Add(Locate(item), rule, text, items[item].element);
  }
};

}  // namespace xmi
