// An IDL compiler that knows nothing of this project accepts what the agent writes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/process.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExportBench;
using support::Exported;

/// Compiles every file of an export by itself.
void ExpectValid(const ExportBench& bench, const Exported& run) {
  ASSERT_EQ(run.Messages().find("Error"), std::string::npos) << run.Messages();
  for (const auto& [file, text] : run.files) {
    const support::ProcessResult result = support::RunProcess(
        {IDLEXPORT_OMNIIDL, "-bdump", "-Iout", "out/" + file}, bench.Directory());
    EXPECT_EQ(result.status, 0) << result.errors << "\n" << text;
  }
}

/// Every kind of member and value that a module can have.
void BuildDataTypes(ExportBench& b, Element& m) {
  auto& size = b.Constant(m, "Size", "unsigned long", 8);
  b.Default(b.Constant(m, "Ratio", "double", 0), "RealValue", "1.5");
  b.Default(b.Constant(m, "Letter", "char", 0), "CharacterValue", "'x'");
  b.Default(b.Constant(m, "Greeting", "string", 0), "CharstringValue", "\"hello\"");
  b.Constant(m, "Same", "unsigned long", size);
  auto& color = b.Enum(m, "Color", {"red", "green"});
  b.Constant(m, "Favourite", color, *color.Entities(Symbol("Literal"))[1]);

  auto& all = b.Comment(b.Struct(m, "All"), "every predefined type\nand templates");
  int number = 0;
  for (const char* type : {"long", "short", "boolean", "char", "octet", "unsigned long long",
                           "float", "wchar", "any", "string", "wstring", "Object", "TypeCode"}) {
    b.Attribute(all, "p" + std::to_string(number++), type);
  }
  auto& text = b.Template("string", {20});
  b.Attribute(all, "bounded", text);
  b.Attribute(all, "price", b.Template("fixed", {9, 2}));
  b.Attribute(all, "names", b.Template("sequence", {b.Template("sequence", {text}), size}));
  b.Attribute(all, "grid", b.Template("array", {"double", 3, size}));
  b.Range(b.Attribute(all, "colors", color), 0, "*");
  b.Range(b.Attribute(all, "some", text), 1, size);

  auto& node = b.Struct(m, "TreeNode");
  b.Range(b.Attribute(node, "subtrees", node), 0, "*");
  b.Exception(m, "Empty");
  b.Attribute(b.Exception(m, "Refused"), "why", all);
}

void BuildInterfaces(ExportBench& b, Element& m) {
  auto& account = b.Interface(m, "Account");
  auto& bank = b.Set(b.Interface(m, "Bank"), "IsAbstract", "true");
  b.Mark(b.Interface(m, "Cache", ""), "CORBAInterface", {{"isLocal", "true"}});
  auto& savings = b.Class(m, "Savings", "CORBAInterface");
  b.Generalize(savings, account);
  b.Returns(b.Operation(account, "owner"), bank);
  b.Parameter(b.Operation(bank, "close"), "who", account);

  auto& entry = b.Struct(account, "Entry");
  b.Attribute(entry, "amount", "double");
  auto& refused = b.Exception(account, "Refused");
  b.Attribute(refused, "item", entry);
  auto& book = b.Raises(b.Operation(account, "book"), refused);
  b.Returns(book, "long");
  b.Parameter(book, "item", entry);
  b.Parameter(book, "now", b.Enum(account, "State", {"open", "closed"}), "DkInOut");
  b.Parameter(book, "text", "string", "DkOut");
  b.Parameter(b.Signal(account, "changed"), "item", entry);
  b.Constant(account, "Limit", "long", 100);
  b.Set(b.Attribute(account, "last", entry), "Changeability", "CkFrozen");
  b.Attribute(savings, "first", entry);
}

TEST(AgentIdl, IsAcceptedByACompilerUnderEachMapping) {
  for (const char* mapping : {"ONE_FILE", "MODULE_FLAT", "MODULE_STRUCTURED"}) {
    SCOPED_TRACE(mapping);
    ExportBench bench;
    auto& user = bench.Module("User");
    auto& data = bench.Module("Data");
    auto& inner = bench.Module(bench.Module("Services"), "Accounts");
    BuildDataTypes(bench, data);
    BuildInterfaces(bench, inner);
    const auto member = [](Element& owner, std::size_t index) -> Element& {
      return *owner.Entities(Symbol("OwnedMember"))[index];
    };
    auto& view = bench.Struct(user, "View");
    bench.Attribute(view, "account", member(inner, 0));
    bench.Attribute(view, "entry", member(member(inner, 0), 1));
    bench.Range(bench.Attribute(view, "views", view), 0, member(data, 0));
    Element& services = *bench.Model().Roots().back();
    ExpectValid(bench, bench.Export({&user, &services, &data}, {{"fileMapping", mapping}}));
  }
}

TEST(AgentIdl, IsAcceptedForWhatStandsOutsideAllModules) {
  ExportBench bench;
  auto& package = bench.Package("P");
  auto& first = bench.Interface(package, "First");
  auto& second = bench.Interface(package, "Second");
  auto& module = bench.Module("M");
  bench.Attribute(first, "a", second);
  bench.Attribute(second, "b", first);
  bench.Attribute(bench.Struct(module, "S"), "c", first);
  ExpectValid(bench, bench.Export({&module, &first, &second}));
  ExpectValid(bench, bench.Export({&module, &first, &second}, {{"fileMapping", "MODULE_FLAT"}}));
}

}  // namespace
