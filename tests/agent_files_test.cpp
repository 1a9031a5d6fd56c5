// How an export is spread over files under the three mappings, and that a compiler takes each file
// by itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/process.h"

namespace {

using support::ExportBench;
using support::Exported;
using testing::ElementsAre;
using testing::Pair;

/// The files of modules A, A::B and A::B::C with a struct in each but B: each with what it holds.
std::map<std::string, std::string> NestedModules(const std::string& settings) {
  Exported run = support::ExportSmallModel(
      "module A { struct S { field x } module B { module C { struct T { field x } } } }", settings);
  for (auto& [file, text] : run.files) text = run.Body(file);
  return run.files;
}

const std::string fileOfA = "\n\n\nmodule A {\n    \n    struct S {\n        long x;\n    };\n};";
// The enclosing modules are opened innermost first.
const std::string fileOfC = R"(

module B {
    module A {
        
        module C {
            
            struct T {
                long x;
            };
        };
    };
};)";

TEST(AgentFiles, AreOneForEachModule) {
  EXPECT_THAT(NestedModules("fileMapping=\"MODULE_FLAT\" fileSuffix=\".v1\""),
              ElementsAre(Pair("A.v1.idl", fileOfA), Pair("A_B.v1.idl", ""),
                          Pair("A_B_C.v1.idl", fileOfC), Pair("Out.v1.idl", "")));
  EXPECT_THAT(NestedModules("fileMapping=\"MODULE_STRUCTURED\""),
              ElementsAre(Pair("A/A.idl", fileOfA), Pair("A/B/B.idl", ""),
                          Pair("A/B/C/C.idl", fileOfC), Pair("Out.idl", "")));
}

TEST(AgentFiles, HaveTheMainFileForWhatIsOutsideAllModules) {
  const Exported run =
      support::ExportSmallModel("interface I interface J", "fileMapping=\"MODULE_FLAT\"");
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

/// Modules that use each other in one direction, nested two deep; each file compiles by itself.
Exported ExportModules(const std::string& mapping) {
  const ExportBench bench;
  Exported run = support::ExportSmallModel(
      "module Users { module Inner { struct Tops { field a : Top } enum Part { literal one } } "
      "struct Own { field colors : Base::Deep::Color [ Base::SIZE ] field a : Users::Inner::Part } "
      "} module Base { module Deep { struct S { field x } enum Color { literal red } } "
      "struct Thing { field a : Base::Deep::S [*] } const SIZE = 3 } "
      "interface Top { attr a : Other } interface Other { attr a : Top }",
      "fileMapping=\"" + mapping + "\"");
  for (const auto& [file, text] : run.files) support::WriteFile("./" + file, text);
  for (const auto& [file, text] : run.files) {
    const auto judged = support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "-I.", file});
    EXPECT_EQ(judged.status, 0) << file << ":\n" << text << judged.errors;
  }
  return run;
}

TEST(AgentFiles, IncludeTheFilesOfWhatTheyUseAndCompileByThemselves) {
  const Exported flat = ExportModules("MODULE_FLAT");
  EXPECT_EQ(Includes(flat, "Out.idl") + Includes(flat, "Base_Deep.idl"), "");
  EXPECT_EQ(Includes(flat, "Base.idl"), "Base_Deep.idl ");
  EXPECT_EQ(Includes(flat, "Users_Inner.idl"), "Out.idl ");
  // What a nested module uses outside is used by the modules around it, too.
  EXPECT_EQ(Includes(flat, "Users.idl"), "Out.idl Users_Inner.idl Base.idl Base_Deep.idl ");
  EXPECT_EQ(Includes(ExportModules("MODULE_STRUCTURED"), "Users/Users.idl"),
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
  EXPECT_EQ(Includes(run, "A.idl"), "C.idl B.idl A.idl C.idl ");
  EXPECT_EQ(Includes(run, "B.idl"), "C_Nested.idl ");
  // In one file there is nothing to include.
  EXPECT_EQ(bench.Export({&a, &b, &c}).Body().find("#include"), std::string::npos);
}

}  // namespace
