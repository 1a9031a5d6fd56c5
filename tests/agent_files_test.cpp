// How an export is spread over files under the three mappings.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "model/model.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using support::ExportBench;
using support::Exported;
using testing::ElementsAre;
using testing::Pair;
using testing::UnorderedElementsAre;

std::vector<std::string> NamesOf(const Exported& run) {
  std::vector<std::string> names;
  for (const auto& [name, text] : run.files) names.push_back(name);
  return names;
}

/// The names of the files that a file includes, in order.
std::vector<std::string> IncludesOf(const Exported& run, const std::string& file) {
  const std::string directive = "\n#include \"";
  const std::string text = run.Body(file);
  std::vector<std::string> includes;
  for (auto at = text.find(directive); at != text.npos; at = text.find(directive, at + 1)) {
    const auto begin = at + directive.size();
    includes.push_back(text.substr(begin, text.find('"', begin) - begin));
  }
  return includes;
}

/// Modules A, A::B and A::B::C with a struct in each but B.
Element& BuildNestedModules(ExportBench& bench) {
  auto& a = bench.Module("A");
  bench.Attribute(bench.Struct(a, "S"), "x", "long");
  auto& c = bench.Module(bench.Module(a, "B"), "C");
  bench.Comment(c, "the innermost");
  bench.Attribute(bench.Struct(c, "T"), "x", "long");
  return a;
}

const std::string blockOfA = "\n\nmodule A {\n    \n    struct S {\n        long x;\n    };\n};";
const std::string fileOfA = "\n" + blockOfA;
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

TEST(AgentFiles, AreOneByDefault) {
  ExportBench bench;
  const Exported run = bench.Export({&BuildNestedModules(bench)}, {{"fileMapping", "ONE_FILE"}});
  EXPECT_THAT(NamesOf(run), ElementsAre("Out.idl"));
  EXPECT_EQ(run.Body(), R"(


module A {
    
    struct S {
        long x;
    };
    
    module B {
        
        // the innermost
        module C {
            
            struct T {
                long x;
            };
        };
    };
};)");
}

TEST(AgentFiles, AreOneForEachModuleInOneDirectory) {
  ExportBench bench;
  const Exported run = bench.Export({&BuildNestedModules(bench)},
                                    {{"fileMapping", "MODULE_FLAT"}, {"fileSuffix", ".v1"}});
  EXPECT_THAT(NamesOf(run), ElementsAre("A.v1.idl", "A_B.v1.idl", "A_B_C.v1.idl", "Out.v1.idl"));
  EXPECT_EQ(run.Body("Out.v1.idl"), "");
  EXPECT_EQ(run.Body("A.v1.idl"), fileOfA);
  EXPECT_EQ(run.Body("A_B.v1.idl"), "");
  EXPECT_EQ(run.Body("A_B_C.v1.idl"), fileOfC);
}

TEST(AgentFiles, AreOneForEachModuleInDirectories) {
  ExportBench bench;
  const Exported run =
      bench.Export({&BuildNestedModules(bench)}, {{"fileMapping", "MODULE_STRUCTURED"}});
  EXPECT_THAT(NamesOf(run), UnorderedElementsAre("Out.idl", "A/A.idl", "A/B/B.idl", "A/B/C/C.idl"));
  EXPECT_EQ(run.Body("A/A.idl"), fileOfA);
  EXPECT_EQ(run.Body("A/B/B.idl"), "");
  EXPECT_EQ(run.Body("A/B/C/C.idl"), fileOfC);
}

TEST(AgentFiles, HaveTheMainFileForWhatIsOutsideAllModules) {
  ExportBench bench;
  auto& a = BuildNestedModules(bench);
  auto& package = bench.Package("P");
  auto& artifact =
      bench.Artifact({&a, &bench.Interface(package, "I"), &bench.Interface(package, "J")},
                     {{"fileMapping", "MODULE_FLAT"}});
  const Exported run = bench.Run(&artifact);
  EXPECT_EQ(run.Body(), "\n\n\ninterface I {\n};\n\ninterface J {\n};");
  EXPECT_EQ(run.Body("A.idl"), fileOfA);
  // A stray message for each of them is part of the output.
  EXPECT_THAT(run.pieces,
              ElementsAre("\nIDL exporter started...\n", "3", "3", "IDL exporter finished.\n"));
}

TEST(AgentFiles, IncludeTheFilesOfWhatTheyUse) {
  for (const bool structured : {false, true}) {
    ExportBench bench;
    auto& package = bench.Package("P");
    auto& top = bench.Interface(package, "Top");
    auto& late = bench.Module("Late");
    auto& a = bench.Module("A");
    auto& b = bench.Module(a, "B");
    auto& inB = bench.Struct(b, "InB");
    auto& inLate = bench.Struct(late, "InLate");
    auto& user = bench.Struct(a, "User");
    bench.Attribute(user, "own", bench.Enum(a, "Own", {"X"}));
    bench.Attribute(user, "nested", inB);
    bench.Attribute(inB, "late", bench.Template("sequence", {inLate}));
    bench.Range(bench.Attribute(inB, "many", inLate), 0, bench.Constant(late, "N", "long", 3));
    bench.Attribute(inLate, "top", top);
    auto& artifact = bench.Artifact(
        {&a, &top, &late},
        {{"fileMapping", structured ? "MODULE_STRUCTURED" : "MODULE_FLAT"}, {"fileName", "main"}});
    const Exported run = bench.Run(&artifact);
    const std::string fileOfLate = structured ? "Late/Late.idl" : "Late.idl";
    // What a nested module uses outside is used by the modules around it, too.
    EXPECT_THAT(IncludesOf(run, structured ? "A/A.idl" : "A.idl"),
                ElementsAre(structured ? "A/B/B.idl" : "A_B.idl", fileOfLate));
    EXPECT_THAT(IncludesOf(run, structured ? "A/B/B.idl" : "A_B.idl"), ElementsAre(fileOfLate));
    EXPECT_THAT(IncludesOf(run, fileOfLate), ElementsAre("main.idl"));
    EXPECT_THAT(IncludesOf(run, "main.idl"), ElementsAre());
  }
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
  EXPECT_THAT(IncludesOf(run, "A.idl"), ElementsAre("C.idl", "B.idl"));
  EXPECT_THAT(IncludesOf(run, "B.idl"), ElementsAre("C_Nested.idl"));
  // In one file there is nothing to include.
  EXPECT_EQ(bench.Export({&a, &b, &c}).Body().find("#include"), std::string::npos);
}

}  // namespace
