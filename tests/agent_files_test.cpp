// How an export is spread over files under the three mappings, and that a compiler takes each file
// by itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/process.h"

namespace {

using model::Element;
using support::ExportBench;
using support::Exported;
using testing::ElementsAre;
using testing::Pair;

/// The files of modules A, A::B and A::B::C with a struct in each but B: each with what it holds.
Exported ExportNestedModules(ExportBench& bench, support::Tags settings) {
  auto& a = bench.Module("A");
  bench.Attribute(bench.Struct(a, "S"), "x", "long");
  auto& c = bench.Comment(bench.Module(bench.Module(a, "B"), "C"), "the innermost");
  bench.Attribute(bench.Struct(c, "T"), "x", "long");
  Exported run = bench.Export({&a}, settings);
  for (auto& [file, text] : run.files) text = run.Body(file);
  return run;
}

const std::string fileOfA = "\n\n\nmodule A {\n    \n    struct S {\n        long x;\n    };\n};";
// The enclosing modules are opened innermost first.
const std::string fileOfC = R"(

module B {
    module A {
        
        // the innermost
        module C {
            
            struct T {
                long x;
            };
        };
    };
};)";

TEST(AgentFiles, AreOneForEachModule) {
  ExportBench bench;
  EXPECT_THAT(
      ExportNestedModules(bench, {{"fileMapping", "MODULE_FLAT"}, {"fileSuffix", ".v1"}}).files,
      ElementsAre(Pair("A.v1.idl", fileOfA), Pair("A_B.v1.idl", ""), Pair("A_B_C.v1.idl", fileOfC),
                  Pair("Out.v1.idl", "")));
  EXPECT_THAT(ExportNestedModules(bench, {{"fileMapping", "MODULE_STRUCTURED"}}).files,
              ElementsAre(Pair("A/A.idl", fileOfA), Pair("A/B/B.idl", ""),
                          Pair("A/B/C/C.idl", fileOfC), Pair("Out.idl", "")));
}

TEST(AgentFiles, HaveTheMainFileForWhatIsOutsideAllModules) {
  ExportBench bench;
  auto& package = bench.Package("P");
  const Exported run =
      bench.Export({&bench.Interface(package, "I"), &bench.Interface(package, "J")},
                   {{"fileMapping", "MODULE_FLAT"}});
  EXPECT_EQ(run.Body(), "\n\n\ninterface I {\n};\n\ninterface J {\n};");
  // A stray message for each of them is part of the output.
  EXPECT_THAT(run.pieces,
              ElementsAre("\nIDL exporter started...\n", "3", "3", "IDL exporter finished.\n"));
}

/// The names of the files that a file includes, each with a blank behind it.
std::string Includes(const Exported& run, const std::string& file) {
  const std::string_view directive = "\n#include \"";
  const std::string text = run.Body(file);
  std::string found;
  for (auto at = text.find(directive); at != text.npos; at = text.find(directive, at + 1)) {
    const auto begin = at + directive.size();
    found += text.substr(begin, text.find('"', begin) - begin) + " ";
  }
  return found;
}

/// Modules that use each other in one direction, nested two deep, in every way that one can.
Exported ExportModules(ExportBench& b, std::string_view mapping) {
  auto& users = b.Module("Users");
  auto& inner = b.Module(users, "Inner");
  auto& base = b.Module("Base");
  auto& deep = b.Module(base, "Deep");
  auto& top = b.Interface(b.Package("P"), "Top");
  auto& other = b.Interface(b.Package("P"), "Other");
  b.Attribute(b.Struct(base, "Thing"), "a", b.Template("sequence", {b.Struct(deep, "S")}));
  b.Attribute(*deep.Entities(model::Symbol("OwnedMember"))[0], "x", "long");
  b.Attribute(top, "a", other);
  b.Attribute(other, "a", top);

  auto& own = b.Struct(users, "Own");
  b.Range(b.Attribute(own, "colors", b.Enum(deep, "Color", {"red", "green"})), 0,
          b.Constant(base, "SIZE", "long", 3));
  b.Attribute(own, "a", b.Enum(inner, "Part", {"one"}));
  b.Attribute(b.Struct(inner, "Tops"), "a", top);
  return b.Export({&users, &base, &top, &other}, {{"fileMapping", mapping}});
}

void ExpectEachCompiles(const Exported& run) {
  for (const auto& [file, text] : run.files) {
    const auto judged = support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "-Iout", "out/" + file});
    EXPECT_EQ(judged.status, 0) << file << ":\n" << text << judged.errors;
  }
}

TEST(AgentFiles, IncludeTheFilesOfWhatTheyUseAndCompileByThemselves) {
  ExportBench bench;
  const Exported flat = ExportModules(bench, "MODULE_FLAT");
  ExpectEachCompiles(flat);
  EXPECT_EQ(Includes(flat, "Out.idl") + Includes(flat, "Base_Deep.idl"), "");
  EXPECT_EQ(Includes(flat, "Base.idl"), "Base_Deep.idl ");
  EXPECT_EQ(Includes(flat, "Users_Inner.idl"), "Out.idl ");
  // What a nested module uses outside is used by the modules around it, too.
  EXPECT_EQ(Includes(flat, "Users.idl"), "Out.idl Users_Inner.idl Base.idl Base_Deep.idl ");
  ExportBench otherBench;
  const Exported structured = ExportModules(otherBench, "MODULE_STRUCTURED");
  ExpectEachCompiles(structured);
  EXPECT_EQ(Includes(structured, "Users/Users.idl"),
            "Out.idl Users/Inner/Inner.idl Base/Base.idl Base/Deep/Deep.idl ");
}

TEST(AgentFiles, IncludeWhatTheirPackagesImport) {
  ExportBench bench;
  auto& a = bench.Module("A");
  auto& b = bench.Module("B");
  auto& c = bench.Module("C");
  auto& inC = bench.Struct(bench.Module(c, "Nested"), "S");
  bench.Depend(a, c, "import");
  bench.Depend(a, b, "access");
  bench.Depend(a, a, "import");                   // itself
  bench.Depend(a, c, "access");                   // once more
  bench.Depend(a, bench.Module("D"), "import");   // no part of the export
  bench.Depend(a, bench.Package("P"), "import");  // nothing of CORBA
  bench.Depend(b, c, "use");                      // no import
  bench.Depend(b, inC, "import");                 // what is in a file
  bench.Make(b, "Dependency", "", "", "ClientDependency");
  const Exported run = bench.Export({&a, &b, &c}, {{"fileMapping", "MODULE_FLAT"}});
  EXPECT_EQ(Includes(run, "A.idl"), "C.idl B.idl ");
  EXPECT_EQ(Includes(run, "B.idl"), "C_Nested.idl ");
  // In one file there is nothing to include.
  EXPECT_EQ(bench.Export({&a, &b, &c}).Body().find("#include"), std::string::npos);
}

}  // namespace
