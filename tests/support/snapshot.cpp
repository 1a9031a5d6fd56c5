#include "tests/support/snapshot.h"

#include <unordered_map>
#include <vector>

#include "model/vocabulary.h"

namespace support {

using model::Element;
using model::Symbol;

namespace {

constexpr const char* texts[] = {"Name",          "ValueString", "Direction",  "Visibility",
                                 "Changeability", "IsAbstract",  "isAbstract", "Operator",
                                 "Text",          "Uri",         "Value"};

// The last rows are tags of stereotypes.
constexpr const char* singles[] = {
    "Supplier",   "Client",      "Parent",       "Definition",
    "Type",       "Target:Type", "DefaultValue", "LowerBound",
    "UpperBound", "Boundary",    "InstanceOf",   "targetDir",
    "fileName",   "fileSuffix",  "fileMapping",  "isAsyncDefault",
    "node",       "isConstant",  "isLocal",      "isSimple",
    "isDefault",  "label",       "isCustom",     "isMultiple",
    "sourceKind", "category",    "composite",    "overrideIsDefaultAsync",
    "context",    "file"};

constexpr const char* lists[] = {"ClientDependency", "OwnedMember",       "Generalization",
                                 "Multiplicity",     "Realized",          "Required",
                                 "Parameter",        "Literal",           "RaisedException",
                                 "Comment",          "Expression",        "ActualTemplateParameter",
                                 "Keyword",          "StereotypeInstance"};

class Walk {
 public:
  explicit Walk(Omit omit) : omit_(omit) {}

  std::string Run(std::initializer_list<Element*> starts) {
    for (Element* start : starts) NumberOf(start);
    for (std::size_t next = 0; next < found_.size(); ++next) Describe(*found_[next]);
    return std::move(text_);
  }

 private:
  std::size_t NumberOf(Element* element) {
    const auto [entry, isNew] = numbers_.emplace(element, found_.size());
    if (isNew) found_.push_back(element);
    return entry->second;
  }

  bool IsOmitted(const Element* element) const {
    if (omit_ == Omit::kNothing || element->Metaclass() != model::metaclasses::stereotypeInstance) {
      return false;
    }
    const Element* stereotype = element->Entity(model::properties::instanceOf);
    return stereotype != nullptr &&
           stereotype->Text(model::properties::name) == model::stereotypes::node.Text();
  }

  void Refer(Element* element) {
    if (!IsOmitted(element)) text_ += " #" + std::to_string(NumberOf(element));
  }

  void Describe(const Element& element) {
    text_ += std::string(element.Metaclass().Text()) + "\n";
    for (const char* name : texts) {
      const std::string_view value = element.Text(Symbol(name));
      if (!value.empty()) text_.append("  ").append(name).append(" ").append(value).append("\n");
    }
    for (const char* name : singles) {
      Element* one = element.Entity(Symbol(name));
      if (one == nullptr) continue;
      text_.append("  ").append(name);
      Refer(one);
      text_ += '\n';
    }
    for (const char* name : lists) {
      text_.append("  ").append(name);
      for (Element* each : element.Entities(Symbol(name))) Refer(each);
      text_ += '\n';
    }
  }

  Omit omit_;
  std::unordered_map<const Element*, std::size_t> numbers_;
  std::vector<Element*> found_;
  std::string text_;
};

}  // namespace

std::string Snapshot(std::initializer_list<Element*> starts, Omit omit) {
  return Walk(omit).Run(starts);
}

}  // namespace support
