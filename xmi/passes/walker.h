// Goes through a file and makes the model's elements; what they refer to is put down for later.
//
// The first of the phases. It decides what in a file is part of the model and what is passed over,
// and knows nothing of what the parts mean to each other.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmi/passes/element_builder.h"
#include "xmi/tables/reading.h"
#include "xmi/text/namespaces.h"
#include "xmi/text/start_tag.h"

namespace xmi {

class Walker {
 public:
  explicit Walker(Reading& reading) : reading_(reading), builder_(reading) {}

  /// Reads a file's elements. Throws `ReadError` when the file is no model or nested too deeply.
  void Walk(FileIndex file);

 private:
  /// What is looked for below an element.
  enum class Mode : unsigned char {
    kRoots,    ///< roots of the model and applications of stereotypes
    kMembers,  ///< features of an item
    kValue,    ///< ids, and hrefs of what values and bindings refer to
    kIds,      ///< ids alone: what stands here is passed over
    kSkip,     ///< nothing
  };
  struct Below {
    Mode mode = Mode::kSkip;
    ItemIndex item = kNoItem;
  };
  struct SeenId {
    const char* id;
    std::uint32_t hash;
    IdTarget target;
    std::uint32_t offset;
  };
  struct Frame {
    pugi::xml_node node;
    Below below;
    std::size_t mark;  // of the namespaces, before the node's own
  };

  void WalkBelow(const Frame& top);
  Below Enter(pugi::xml_node node, const Below& above);
  Below EnterRoot(pugi::xml_node node);
  Below EnterMember(pugi::xml_node node, ItemIndex owner);
  Below EnterOwned(ItemIndex owner);
  Below EnterValue(pugi::xml_node node, ItemIndex owner);
  Below EnterPart(ItemIndex owner);
  Below EnterOther(pugi::xml_node node, const Below& above);
  Below EnterApplication(pugi::xml_node node);
  Below EnterForeign(pugi::xml_node node);
  Below PassOver(const Below& below);

  bool TakeFeature(pugi::xml_node node, ItemIndex owner);
  void TakeKeywords(pugi::xml_node node, ItemIndex owner);
  bool IsApplication(pugi::xml_node node) const;
  ItemIndex BuildItem(Word type, ItemIndex owner);
  void RememberId(ItemIndex item, bool inner);
  void EnterIds();
  std::string RootProblem(pugi::xml_node root) const;
  [[noreturn]] void FailTooDeep(pugi::xml_node node) const;
  [[noreturn]] void FailCrowded(pugi::xml_node node, const std::string& what) const;

  Reading& reading_;
  ElementBuilder builder_;
  FileIndex file_ = 0;
  std::size_t before_ = 0;  // bytes of the files walked before
  Namespaces namespaces_;
  StartTag tag_;
  std::string text_;
  std::vector<SeenId> seenIds_;
  std::uint32_t offset_ = 0;  // of the element that is entered
  std::string_view uri_;      // that the file's elements answer; empty for the model's
};

}  // namespace xmi
