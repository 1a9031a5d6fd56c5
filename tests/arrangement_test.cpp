// Declarations come into an order that compilers take, in whichever order they are drawn.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/export.h"
#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

using support::Exported;

/// The pieces of a model, one for each permutation.
std::vector<std::string> DrawnInAllOrders(std::vector<std::string> pieces) {
  std::ranges::sort(pieces);
  std::vector<std::string> models;
  do {
    std::string model;
    for (const std::string& piece : pieces) model += piece + " ";
    models.push_back(model);
  } while (std::ranges::next_permutation(pieces).found);
  return models;
}

/// Each file is compiled by itself.
void ExpectCompiled(const Exported& run) {
  ASSERT_FALSE(run.files.empty()) << run.Messages();
  const support::ScratchDirectory directory;
  for (const auto& [file, text] : run.files) support::WriteFile(directory.Path() / file, text);
  for (const auto& [file, text] : run.files) {
    if (!file.ends_with(".idl")) continue;
    const auto judged =
        support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "-I.", file}, directory.Path());
    EXPECT_EQ(judged.status, 0) << file << ":\n" << text << judged.errors;
  }
}

Exported ExportLegally(const std::string& model, const std::string& mapping) {
  return support::ExportSmallModel(model, "isVerbatim=\"false\" fileMapping=\"" + mapping + "\"");
}

struct OrderCase {
  std::vector<std::string> pieces;  // of the module M, or modules
  std::string error;                // part of what is said; empty when it is legal
  std::string errorOfFiles = "";    // the same with a file for each module
};

TEST(Arrangement, IsLegalInWhicheverOrderAModelIsDrawn) {
  const OrderCase cases[] = {
      {{"interface Server { attr all : M::ServerSeq }", "sequence ServerSeq : M::Server",
        "struct Pool { field all : M::ServerSeq }"},
       ""},
      {{"interface Item { attr around : M::Folder attr kind : M::Kind }", "enum Kind { literal k }",
        "interface Folder : M::Item { attr all : M::Items }", "sequence Items : M::Item"},
       ""},
      {{"struct Tree { field kids : M::Trees }", "sequence Trees : M::Tree",
        "interface I { attr all : M::Trees }"},
       ""},
      {{"struct A { field b : M::Bs }", "struct B { field a : M::As }", "sequence As : M::A",
        "sequence Bs : M::B"},
       "needs itself complete"},
      {{"struct A { field b : M::B }", "struct B { field a : M::A }", "enum E { literal e }"},
       "struct M::A holds M::B; struct M::B holds M::A"},
      {{"module A { interface I { attr j : B::J } struct S { field x } }",
        "module B { interface J : A::I { attr s : A::S } }"},
       ""},
      {{"module A { interface I { attr t : B::T } }",
        "module B { interface J { attr i : A::I } "
        "struct T { field x } }"},
       ""},
      {{"module A { struct S { field t : B::T } struct U { field x } }",
        "module B { struct T { field u : A::U } }", "module C { struct V { field s : A::S } }"},
       "",
       "need each other complete"},
      {{"module X { struct T { field y : Y::U } interface I { attr z : Z::W } }",
        "module Y { struct U { field i : X::I } interface K { attr i : Z::J } }",
        "module Z { interface J : X::I { } struct W { field x } }"},
       "",
       "need each other complete"},
      {{"module X { struct T { field y : Y::U } }", "module Y { struct U { field j : Z::J } }",
        "module Z { interface J { attr t : X::T } }"},
       ""},
      {{"module A { module B { module C { interface I { attr d : D::E } } } }",
        "module D { interface E : A::B::C::I { } }"},
       ""},
  };
  for (const OrderCase& each : cases) {
    const bool areModules = each.pieces.front().starts_with("module");
    for (const std::string& drawn : DrawnInAllOrders(each.pieces)) {
      for (const std::string mapping : {"ONE_FILE", "MODULE_FLAT"}) {
        if (!areModules && mapping != "ONE_FILE") continue;
        SCOPED_TRACE(mapping + ": " + drawn);
        const std::string model = areModules ? drawn : "module M { " + drawn + "}";
        const Exported run = ExportLegally(model, mapping);
        const std::string& error =
            mapping != "ONE_FILE" && !each.errorOfFiles.empty() ? each.errorOfFiles : each.error;
        if (error.empty()) {
          ExpectCompiled(run);
        } else if (run.Messages().find(error) == std::string::npos &&
                   run.Messages().find("struct M::B holds M::A; struct M::A holds M::B") ==
                       std::string::npos) {
          ADD_FAILURE() << run.Messages();
        }
      }
    }
  }
}

}  // namespace
