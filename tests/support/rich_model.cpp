#include "tests/support/rich_model.h"

namespace support {

namespace {

/// Data types, and a nested module that uses some and is used by others.
void AddTypes(ModelBuilder& b, Element& module) {
  auto& size = b.Constant(module, "SIZE", "long", 5);
  b.Constant(module, "ALIAS", "long", size);
  auto& colour = b.Enum(module, "Colour", {"RED", "GREEN"});
  auto& record = b.Comment(b.Struct(module, "Record"), "A record\nof two lines");
  b.Range(b.Attribute(record, "all", "octet"), 0, size);
  b.Attribute(record, "grid", b.Template("array", {"double", 3, size}));
  b.Attribute(record, "names", b.Template("sequence", {b.Template("string", {20})}));
  auto& nested = b.Module(module, "Nested");
  b.Attribute(b.Class(nested, "Price", "CORBATypedef"), "of", b.Template("fixed", {9, 2}));
  b.Attribute(b.Struct(nested, "Inner"), "colour", colour);
  b.Attribute(b.Class(module, "Records", "CORBASequence"), "of", record);
  b.Attribute(b.Class(module, "Boxed", "CORBABoxedValue"), "of", record);
  auto& choice = b.Class(module, "Choice", "CORBAUnion");
  b.Attribute(choice, "kind", colour);
  b.Mark(b.Keyword(b.Attribute(choice, "red", "long"), "case"), "case", {{"label", "RED"}});
  b.Mark(b.Keyword(b.Attribute(choice, "rest", record), "case"), "case", {{"isDefault", "true"}});
}

/// Interfaces that use each other, and a value.
Element& AddInterfaces(ModelBuilder& b, Element& module) {
  auto& failure = b.Exception(module, "Failure");
  b.Attribute(failure, "why", "string");
  auto& account = b.Interface(module, "Account");
  auto& bank = b.Interface(module, "Bank");
  b.Set(b.Attribute(account, "owner", bank), "Changeability", "CkFrozen");
  auto& find = b.Raises(b.Operation(bank, "find"), failure);
  b.Returns(find, account);
  b.Parameter(find, "key", "string");
  b.Mark(find, "CORBAOperation", {{"overrideIsDefaultAsync", "true"}});
  b.Generalize(b.Interface(module, "Branch"), bank);
  auto& value = b.Value(module, "Money");
  b.Set(b.Attribute(value, "amount", "long"), "Visibility", "VkPrivate");
  b.Generalize(value, bank);
  return bank;
}

void AddComponents(ModelBuilder& b, Element& module, Element& interface) {
  auto& event = b.Event(module, "Tick");
  auto& component = b.Component(module, "Clock");
  b.Port(component, "face", "CORBAFacet", {&interface});
  b.Port(component, "source", "CORBAReceptacle", {}, {&interface});
  b.Port(component, "ticks", "CORBAEventSource", {}, {&event});
  b.Port(component, "stops", "CORBAEventSink", {&event});
  auto& home = b.Home(module, "ClockHome");
  b.Mark(b.Depend(home, component), "CORBAManages");
  auto& composition = b.Class(module, "ClockImpl", "CORBAComponentImpl");
  b.Mark(b.Depend(composition, component), "CORBAImplements");
  auto& executor = b.Class(composition, "ClockHomeExec", "CORBAHomeImpl");
  b.Mark(b.Depend(executor, home), "CORBAImplements");
  b.Mark(b.Depend(executor, composition), "CORBAManages");
}

}  // namespace

Element& BuildRichModel(ModelBuilder& b, std::string_view fileMapping) {
  auto& module = b.Module("M");
  AddTypes(b, module);
  AddComponents(b, module, AddInterfaces(b, module));
  auto& artifact = b.Generator("Out", {{"targetDir", "out"}, {"fileMapping", fileMapping}});
  b.Manifest(artifact, module);
  auto& file = b.Mark(b.Make(b.Package("Other"), "Artifact", "F"), "IDLFile", {{"file", "o.idl"}});
  b.Depend(artifact, file);
  return artifact;
}

}  // namespace support
