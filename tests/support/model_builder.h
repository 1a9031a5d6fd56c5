// Builds models for tests of the agent in few words.
//
//   ModelBuilder b;
//   auto& m = b.Module("M");
//   auto& s = b.Struct(m, "S");
//   b.Attribute(s, "x", "long");
//   b.Attribute(s, "names", b.Template("sequence", {"string", 10}));
//   b.Range(b.Attribute(s, "all", s), 0, "*");
//   b.Manifest(b.Generator("Out", {{"targetDir", directory}}), m);
//
// Nothing checks that the elements make sense together, so that tests can build faulty models, too.
#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "model/model.h"
#include "model/vocabulary.h"

namespace support {

using model::Element;
namespace metaclasses = model::metaclasses;
namespace properties = model::properties;
namespace stereotypes = model::stereotypes;
namespace values = model::values;

/// A name of the vocabulary. Tests spell theirs out, so that a slip in the vocabulary shows.
struct Name : model::Symbol {
  Name() = default;
  Name(model::Symbol symbol) : Symbol(symbol) {}
  Name(std::string_view text) : Symbol(text) {}
  Name(const char* text) : Symbol(text) {}
};

/// Names and texts of tagged values.
using Tags = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// What a type, a template parameter, a bound or a value is given by. In the place of a type a text
/// is the name of a predefined type, in the place of a bound it is the text of an integer literal.
struct Operand {
  Operand(const char* text) : text(text) {}
  Operand(int number) : text(std::to_string(number)), isNumber(true) {}
  Operand(Element& element) : element(&element) {}

  std::string text;
  bool isNumber = false;
  Element* element = nullptr;
};

class ModelBuilder {
 public:
  using Text = std::string_view;

  /// Declares the profile's defaults. Stereotypes come when they are first applied.
  ModelBuilder();

  model::Model& Model() { return model_; }

  /// Any element, in the owner's list `list`. Without a stereotype none is applied.
  Element& Make(Element& owner, Name metaclass, Text name, Name stereotype = {},
                Name list = properties::ownedMember);
  Element& Set(Element& element, Name property, Text text);
  /// Applies a stereotype with tagged values.
  Element& Mark(Element& element, Name stereotype, Tags tags = {});
  Element& Keyword(Element& element, Text keyword);
  Element& Comment(Element& element, Text text);

  /// A package that is a root, and one marked as a module.
  Element& Package(Text name);
  Element& Module(Text name) { return Mark(Package(name), stereotypes::corbaModule); }
  Element& Module(Element& owner, Text name) {
    return Make(owner, metaclasses::package, name, stereotypes::corbaModule);
  }

  // Classifiers. An empty mark applies no stereotype.
  Element& Class(Element& owner, Text name, Name mark) {
    return Make(owner, metaclasses::class_, name, mark);
  }
  Element& DataType(Element& owner, Text name, Name mark) {
    return Make(owner, metaclasses::dataType, name, mark);
  }
  Element& Interface(Element& owner, Text name, Name mark = stereotypes::corbaInterface) {
    return Make(owner, metaclasses::interface, name, mark);
  }
  Element& Signal(Element& owner, Text name) { return Make(owner, metaclasses::signal, name); }
  Element& Value(Element& owner, Text name) {
    return Interface(owner, name, stereotypes::corbaValue);
  }
  Element& Event(Element& owner, Text name) {
    return Interface(owner, name, stereotypes::corbaEvent);
  }
  Element& Home(Element& owner, Text name) {
    return Interface(owner, name, stereotypes::corbaHome);
  }
  Element& Component(Element& owner, Text name) {
    return Class(owner, name, stereotypes::corbaComponent);
  }
  Element& Struct(Element& owner, Text name) {
    return Class(owner, name, stereotypes::corbaStruct);
  }
  Element& Exception(Element& owner, Text name) {
    return Class(owner, name, stereotypes::corbaException);
  }
  Element& Enum(Element& owner, Text name, std::initializer_list<Text> literals);

  Element& Attribute(Element& owner, Text name, const Operand& type);
  /// An attribute that is a constant with an integer value, or with the value of another constant.
  Element& Constant(Element& owner, Text name, const Operand& type, const Operand& value);
  Element& Port(Element& owner, Text name, Name stereotype,
                std::initializer_list<Element*> realized,
                std::initializer_list<Element*> required = {});
  Element& Operation(Element& owner, Text name) {
    return Make(owner, metaclasses::operation, name);
  }
  Element& Parameter(Element& operation, Text name, const Operand& type,
                     Text direction = values::in);
  /// An operation's result: a parameter without a name.
  Element& Returns(Element& operation, const Operand& type) {
    return Parameter(operation, "", type, values::return_);
  }
  Element& Raises(Element& operation, Element& exception);

  /// What `Attribute` and the others do with their type. The empty text is no type.
  void SetType(Element& element, const Operand& type);
  /// A template instantiation, to be used as a type or as a parameter of another one.
  Element& Template(Text name, std::initializer_list<Operand> parameters);
  /// Gives the element a multiplicity; `"*"` is unbounded.
  Element& Range(Element& element, const Operand& lower, const Operand& upper);
  /// Gives the element a value: a literal of a metaclass ("IntegerValue", "CharstringValue", ...).
  Element& Default(Element& element, Name metaclass, Text text);
  /// Gives the element another constant as its value.
  Element& Default(Element& element, Element& constant);

  /// Makes `general` a general of `special`; returns the generalization.
  Element& Generalize(Element& special, Element& general);
  /// A dependency, with a keyword when one is given.
  Element& Depend(Element& client, Element& supplier, Text keyword = {});
  Element& Manifest(Element& artifact, Element& supplier) {
    return Depend(artifact, supplier, model::keywords::manifest.Text());
  }
  /// An artifact to export; settings that aren't given have their defaults.
  Element& Generator(Text name, Tags settings = {});

 private:
  Element& Literal(Name metaclass, Text text);
  Element& Predefined(const std::string& name);
  Element& Bound(const Operand& operand);
  Element& Actual(const Operand& operand);

  model::Model model_;
  std::map<std::string, Element*> predefined_;
};

}  // namespace support
