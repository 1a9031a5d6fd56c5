#include "tests/support/wild_model.h"

#include <string>
#include <string_view>
#include <vector>

#include "model/vocabulary.h"

namespace support {

using model::Element;
using model::Symbol;

namespace {

using Text = std::string_view;

/// The words of a text. What is listed several times is chosen more often.
std::vector<Text> Words(Text text, char separator = ' ') {
  std::vector<Text> words;
  for (std::size_t begin = 0, end = 0; end != text.npos; begin = end + 1) {
    end = text.find(separator, begin);
    words.push_back(text.substr(begin, end - begin));
  }
  return words;
}

const auto metaclasses = Words(
    "Package Package Package Class Class Class Interface Interface DataType Attribute "
    "Attribute Attribute Operation Operation Parameter Signal Artifact Port Syntype "
    "EnumerationLiteral Comment Ident IntegerValue RealValue CharstringValue OpenRange "
    "ListExpr Generalization Dependency TemplateInstantiation Condition Nonsense ");

const auto stereotypes = Words(
    "CORBAModule CORBAModule CORBAModule CORBAInterface CORBAInterface CORBAStruct CORBAStruct "
    "CORBAUnion CORBAException CORBATypedef CORBASequence CORBABoxedValue CORBAEnum CORBAValue "
    "CORBAEvent CORBAAttribute CORBAOperation CORBAFactory CORBAFinder CORBAComponent "
    "CORBAHome CORBAFacet CORBAReceptacle CORBAEventSource CORBAEventSink CORBAManages "
    "CORBAPrimaryKey CORBAImplements CORBAIsProvidedBy CORBAComponentImpl CORBAHomeImpl "
    "CORBASegment CORBAArtifact CORBATruncatable CORBASupports IDLFile case Node CORBA import");

const auto keywords = Words("manifest manifest case case import access CORBA");

const auto tags = Words(
    "isConstant isConstant isLocal isSimple isDefault label isCustom context isMultiple "
    "sourceKind category composite file node overrideIsDefaultAsync");

const auto lists = Words(
    "OwnedMember OwnedMember OwnedMember OwnedMember OwnedMember OwnedMember Generalization "
    "Multiplicity Realized Required Parameter Parameter Literal RaisedException Comment "
    "Expression ClientDependency ActualTemplateParameter");

const auto singles = Words(
    "Supplier Client Parent Parent Definition Type Type Target:Type Target:Type DefaultValue "
    "LowerBound UpperBound Boundary InstanceOf");

const auto texts = Words(
    "ValueString ValueString Direction Visibility Changeability IsAbstract isAbstract Operator "
    "Text Uri Value");

const auto values = Words(
    "|1|0|-1|*|2|99999999999999999999|true|false|DkIn|DkOut|DkReturn|DkNone|DkInOut|VkPublic|"
    "VkPrivate|CkFrozen|<|<=|>=|==|a line\nand \\ another\r|Emitter|session|entity|long|"
    "string|out/../../x|'|\\|A::B|0x7fffffffffffffff",
    '|');

const auto names = Words(
    "A|B|C|long|string|sequence|array|fixed|a|any||::|A::B|../x|x/y|module|\"|\x01\xff| ", '|');

class Generator {
 public:
  Generator(model::Model& model, Choices& choices) : model_(model), choices_(choices) {}

  Element& Run() {
    Element& artifact = MakeArtifact();
    const std::size_t count = 2 + choices_.Below(40);
    for (std::size_t i = 0; i < count; ++i) elements_.push_back(&MakeElement());
    Manifest(artifact);
    const std::size_t links = choices_.Below(6 * count);
    for (std::size_t i = 0; i < links; ++i) Connect();
    return artifact;
  }

 private:
  std::string AnyName() {
    const std::size_t choice = choices_.Below(std::size(names) + 1);
    return choice < std::size(names) ? std::string(names[choice]) : std::string(5000, 'n');
  }

  Element& MakeArtifact() {
    Element& artifact = model_.Create(model::metaclasses::artifact);
    artifact.SetText(model::properties::name, "Out");
    Element& settings = model_.Apply(artifact, model_.Stereotype("IDLGenerator"));
    constexpr Text mappings[] = {"ONE_FILE", "MODULE_FLAT", "MODULE_STRUCTURED", "MODULE_DEEP"};
    model_.SetTag(settings, Symbol("targetDir"), "out");
    model_.SetTag(settings, Symbol("fileName"), "");
    model_.SetTag(settings, Symbol("fileSuffix"), choices_.Chance(20) ? "_s" : "");
    model_.SetTag(settings, Symbol("fileMapping"), choices_.Of(mappings));
    if (!choices_.Chance(3)) {
      model_.SetTag(settings, Symbol("isAsyncDefault"), choices_.Chance(20) ? "true" : "false");
    }
    return artifact;
  }

  Element& MakeElement() {
    Element& made = model_.Create(Symbol(choices_.Of(metaclasses)));
    made.SetText(model::properties::name, AnyName());
    if (choices_.Chance(70)) Mark(made);
    if (choices_.Chance(20)) model_.AddKeyword(made, choices_.Of(keywords));
    return made;
  }

  void Mark(Element& element) {
    Element& application = model_.Apply(element, model_.Stereotype(choices_.Of(stereotypes)));
    if (!choices_.Chance(30)) return;
    const Symbol tag(choices_.Of(tags));
    const Text value = choices_.Of(values);
    if (choices_.Chance(70)) {
      model_.SetTag(application, tag, value);
    } else {
      model_.SetListTag(application, tag, {{value, choices_.Of(values)}});
    }
  }

  /// Something that the artifact asks for, or nearly.
  void Manifest(Element& artifact) {
    const std::size_t count = 1 + choices_.Below(3);
    for (std::size_t i = 0; i < count; ++i) {
      Element& dependency = model_.Create(model::metaclasses::dependency);
      Element& supplier = *choices_.Of(elements_);
      if (!choices_.Chance(10)) dependency.SetEntity(model::properties::supplier, &supplier);
      if (!choices_.Chance(10)) model_.AddKeyword(dependency, "manifest");
      if (choices_.Chance(60)) {
        supplier.SetMetaclass(model::metaclasses::package);
        model_.Apply(supplier, model_.Stereotype("CORBAModule"));
      }
      artifact.AddEntity(model::properties::clientDependency, dependency);
    }
    elements_.push_back(&artifact);
  }

  void Connect() {
    Element& from = *choices_.Of(elements_);
    switch (choices_.Below(4)) {
      case 0:
        return from.SetEntity(Symbol(choices_.Of(singles)), choices_.Of(elements_));
      case 1:
        return from.SetText(Symbol(choices_.Of(texts)), choices_.Of(values));
      default:
        return from.AddEntity(Symbol(choices_.Of(lists)), *choices_.Of(elements_));
    }
  }

  model::Model& model_;
  Choices& choices_;
  std::vector<Element*> elements_;
};

}  // namespace

Element& GenerateWildModel(model::Model& model, Choices& choices) {
  return Generator(model, choices).Run();
}

}  // namespace support
