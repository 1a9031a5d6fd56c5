// The realistic mix: modules as people write them, with a little of everything in each.
//
// What a declaration uses stands before it, so that a stylesheet which can't order declarations can
// write the same IDL.
#include <array>

#include "bench/shapes.h"

namespace bench {

namespace {

constexpr std::array<std::string_view, 8> predefined = {
    "long", "string", "boolean", "double", "unsigned_long", "octet", "long_long", "wstring"};
constexpr std::array<std::string_view, 8> nouns = {"account", "customer", "balance", "address",
                                                   "order",   "position", "invoice", "delivery"};
constexpr std::array<std::string_view, 6> verbs = {"open",   "find", "update",
                                                   "remove", "list", "approve"};

class Mix {
 public:
  explicit Mix(XmiWriter& writer) : writer_(writer) {}

  /// Writes one module; returns its id.
  std::string WriteModule(std::size_t number) {
    module_ = number;
    usable_.clear();
    const std::string id = writer_.Open("packagedElement", "Package", Named("Module"));
    writer_.Comment("What belongs to area " + std::to_string(number) + " of the business.");
    writer_.Apply("CORBAModule", "Package", id);
    for (int i = 0; i < 2; ++i) WriteEnumeration();
    for (int i = 0; i < 6; ++i) WriteStruct();
    for (int i = 0; i < 2; ++i) WriteSequence();
    for (int i = 0; i < 2; ++i) WriteException();
    for (int i = 0; i < 5; ++i) WriteInterface();
    writer_.Close();
    foreign_ = usable_.back();
    baseOfNext_.clear();
    exceptions_.clear();
    return id;
  }

  std::size_t Members() const { return members_; }

 private:
  std::string Named(std::string_view kind) {
    return std::string(kind) + "_" + std::to_string(module_) + "_" + std::to_string(++names_);
  }

  std::string MemberName() {
    ++members_;
    return std::string(nouns[members_ % nouns.size()]) + "_" + std::to_string(members_);
  }

  /// A member whose type is, in turn, predefined, declared in the module, or in the one before.
  void WriteTyped(std::string_view tag, std::string_view attributes = {}, bool comment = false) {
    const std::string name = MemberName();
    const bool isForeign = members_ % 17 == 0 && !foreign_.empty();
    const bool isDeclared = members_ % 5 < 2 && !usable_.empty();
    if (isForeign || isDeclared) {
      const std::string& type = isForeign ? foreign_ : usable_[members_ % usable_.size()];
      writer_.Empty(tag, "", name, TypeOf(type) + std::string(attributes));
      return;
    }
    writer_.Open(tag, "", name, attributes);
    if (comment) writer_.Comment("The " + name + " as it was last confirmed.");
    writer_.PredefinedType(predefined[members_ % predefined.size()]);
    writer_.Close();
  }

  void WriteEnumeration() {
    const std::string id = writer_.Open("packagedElement", "Enumeration", Named("Kind"));
    for (int i = 0; i < 5; ++i) {
      ++members_;
      writer_.Empty("ownedLiteral", "", "LITERAL_" + std::to_string(members_));
    }
    writer_.Close();
    writer_.Apply("CORBAEnum", "Enumeration", id);
    usable_.push_back(id);
  }

  void WriteStruct() {
    const std::string id = writer_.Open("packagedElement", "Class", Named("Record"));
    writer_.Comment("One record, as it goes over the wire.");
    for (int i = 0; i < 7; ++i) WriteTyped("ownedAttribute", {}, i == 0);
    writer_.Close();
    writer_.Apply("CORBAStruct", "Class", id);
    usable_.push_back(id);
  }

  void WriteSequence() {
    const std::string id = writer_.Open("packagedElement", "Class", Named("List"));
    WriteTyped("ownedAttribute");
    writer_.Close();
    writer_.Apply("CORBASequence", "Class", id);
    usable_.push_back(id);
  }

  void WriteException() {
    const std::string id = writer_.Open("packagedElement", "Class", Named("Failure"));
    for (int i = 0; i < 2; ++i) WriteTyped("ownedAttribute");
    writer_.Close();
    writer_.Apply("CORBAException", "Class", id);
    exceptions_ += (exceptions_.empty() ? "" : " ") + id;
  }

  void WriteInterface() {
    const std::string id = writer_.Open("packagedElement", "Interface", Named("Service"));
    writer_.Comment("What one client may ask for.");
    if (!baseOfNext_.empty()) {
      writer_.Empty("generalization", "", "", " general=\"" + baseOfNext_ + "\"");
    }
    for (int i = 0; i < 3; ++i) {
      WriteTyped("ownedAttribute", i == 0 ? R"( isReadOnly="true")" : "", i == 1);
    }
    for (int i = 0; i < 5; ++i) WriteOperation(i);
    writer_.Close();
    writer_.Apply("CORBAInterface", "Interface", id);
    usable_.push_back(id);
    baseOfNext_ = id;
  }

  void WriteOperation(int number) {
    ++members_;
    const std::string name =
        std::string(verbs[members_ % verbs.size()]) + "_" + std::to_string(members_);
    const bool isOneway = number == 4;
    const std::string raised = " raisedException=\"" + exceptions_ + "\"";
    const std::string id = writer_.Open("ownedOperation", "", name, isOneway ? "" : raised);
    if (number == 0) writer_.Comment("Asks the server to " + name + ".");
    WriteTyped("ownedParameter");
    WriteTyped("ownedParameter");
    if (!isOneway) {
      WriteTyped("ownedParameter",
                 number % 2 == 0 ? R"( direction="out")" : R"( direction="inout")");
      WriteTyped("ownedParameter", R"( direction="return")");
    }
    writer_.Close();
    if (isOneway) {
      writer_.Apply("CORBAOperation", "Operation", id, R"( overrideIsDefaultAsync="false")");
    }
  }

  XmiWriter& writer_;
  std::size_t module_ = 0;
  std::size_t names_ = 0;
  std::size_t members_ = 0;
  std::vector<std::string> usable_;  // ids of the types declared in the module so far
  std::string foreign_;              // the id of a type in the module before; empty for none
  std::string baseOfNext_;           // the id of the interface before; empty for none
  std::string exceptions_;           // ids of the module's exceptions
};

}  // namespace

std::vector<std::string> WriteMix(XmiWriter& writer, std::size_t members) {
  std::vector<std::string> modules;
  Mix mix(writer);
  while (mix.Members() < members) modules.push_back(mix.WriteModule(modules.size()));
  return modules;
}

}  // namespace bench
