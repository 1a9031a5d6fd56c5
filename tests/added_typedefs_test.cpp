// Types without a name where IDL wants one: they are written by the name of a definition, of the
// model's own or of an added typedef, and a compiler accepts what comes of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "tests/support/export.h"
#include "tests/support/process.h"
#include "tests/support/small_model.h"
#include "tests/support/xmi_files.h"

namespace {

using support::ExportBench;
using support::Exported;

/// What the compiler says of a file; empty when it accepts it.
std::string CompilerErrors(const std::string& file) {
  const support::ProcessResult compiled =
      support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "out/" + file});
  return compiled.status == 0 ? "" : compiled.errors;
}

/// The lines of a text that hold one of the words that matter here, without their indentation.
std::string LinesOfInterest(const std::string& text) {
  std::string lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    std::string line = text.substr(at, end - at);
    line.erase(0, line.find_first_not_of(' '));
    for (const char* word : {"typedef ", "attribute ", "(", "interface ", "module "}) {
      if (line.find(word) == std::string::npos || line.starts_with("//")) continue;
      lines += line + "\n";
      break;
    }
    at = end + 1;
  }
  return lines;
}

struct TypedefCase {
  std::string_view model;
  std::string_view written;
  std::string_view mapping = "ONE_FILE";
  std::string file = "Out.idl";
};

const TypedefCase typedefCases[] = {
    // One for all users in the innermost module that holds them, before the first; predefined
    // types.
    {"module M { interface I { attr a [*] op f : string { in x : double [ 10 ] } }"
     " interface J { attr b [*] } }",
     "module M {\ntypedef sequence<long> LongSeq;\ntypedef sequence<double, 10> DoubleSeq10;\n"
     "interface I {\nattribute LongSeq a;\nstring f(in DoubleSeq10 x);\n"
     "interface J {\nattribute LongSeq b;\n"},
    {"module M { module A { interface I { attr a [*] } } module B { interface J { attr a [*] } } }"
     " module N { interface K { attr a [*] } }",
     "module M {\ntypedef sequence<long> LongSeq;\nmodule A {\ninterface I {\n"
     "attribute LongSeq a;\nmodule B {\ninterface J {\nattribute LongSeq a;\n"
     "module N {\ntypedef sequence<long> LongSeq;\ninterface K {\nattribute LongSeq a;\n"},
    {"interface I { attr a [*] } interface J { attr b [*] }",
     "typedef sequence<long> LongSeq;\ninterface I {\nattribute LongSeq a;\n"
     "interface J {\nattribute LongSeq b;\n"},
    // Beside what it consists of where that is no module.
    {"module M { const MAX = 3 interface I { struct S { field x } attr a : M::I::S [ MAX ] }"
     " interface J { op f { in p : M::I::S [*] } } }",
     "module M {\ninterface I {\ntypedef sequence<S, MAX> SSeq_MAX;\ntypedef sequence<S> SSeq;\n"
     "attribute SSeq_MAX a;\ninterface J {\nvoid f(in M::I::SSeq p);\n"},
    // Not where that would come to need what needs it, nor what another file holds.
    {"module M { interface I { struct S { field x } } interface K : M::I { const MAX = 3 }"
     " interface J { attr a : M::I::S [ M::K::MAX ] } }",
     "module M {\ninterface I {\ninterface K : I {\n"
     "typedef sequence<M::I::S, M::K::MAX> SSeq_MAX;\ninterface J {\nattribute SSeq_MAX a;\n"},
    {"module M { interface I { const MAX = 3 struct S { field x } } struct E { field s : M::I::S }"
     " interface J { attr a : M::E [ M::I::MAX ] } }",
     "module M {\ninterface I {\ntypedef sequence<E, M::I::MAX> ESeq_MAX;\ninterface J {\n"
     "attribute ESeq_MAX a;\n"},
    {"module N { const MAX = 3 interface J { attr a : O::I::S [ N::MAX ] } }"
     " module O { interface I { struct S { field x } } }",
     "module N {\ntypedef sequence<O::I::S, MAX> SSeq_MAX;\ninterface J {\n"
     "attribute SSeq_MAX a;\n",
     "MODULE_FLAT", "N.idl"},
    {"module A { interface I { const MAX = 3 } } module B { typedef T : long }"
     " module C { interface J { attr a : B::T [ A::I::MAX ] } }",
     "module C {\ntypedef sequence<B::T, A::I::MAX> TSeq_MAX;\ninterface J {\n"
     "attribute TSeq_MAX a;\n",
     "MODULE_FLAT", "C.idl"},
    // The model's own: the nearest that means the same; fields keep their types.
    {"module M { struct S { field x [*] } sequence Far : long module N { sequence Near : long"
     " typedef Other : long interface I { attr a [*] } } interface J { attr a [*] } }",
     "module M {\ntypedef sequence<long> Far;\nmodule N {\ntypedef sequence<long> Near;\n"
     "typedef long Other;\ninterface I {\nattribute Near a;\n"
     "interface J {\nattribute Far a;\n"},
    // One outside would need the interface that needs it.
    {"module M { interface I { struct S { field x } attr a : M::I::S [*] }"
     " sequence Outside : M::I::S }",
     "module M {\ninterface I {\ntypedef sequence<S> SSeq;\nattribute SSeq a;\n"
     "typedef sequence<M::I::S> Outside;\n"},
    // Names that are taken: declared, used, of the scope itself, of what hides it from the user.
    {"module M { struct longseq { field x } interface I { attr a [*] } }",
     "module M {\ntypedef sequence<long> LongSeq_2;\ninterface I {\nattribute LongSeq_2 a;\n"},
    {"module LongSeq { interface I { attr a [*] } }",
     "module LongSeq {\ntypedef sequence<long> LongSeq_2;\ninterface I {\n"
     "attribute LongSeq_2 a;\n"},
    {"module M { interface Base { op longSeq } interface I : M::Base { op f { in p [*] } }"
     " enum E { literal LongSeq_2 } }",
     "module M {\ninterface Base {\nvoid longSeq();\ntypedef sequence<long> LongSeq_3;\n"
     "interface I : Base {\nvoid f(in LongSeq_3 p);\n"},
    // Elements of one name: their modules tell them apart, whichever is used first.
    {"module M { module A { struct S { field x } } module B { struct S { field x } }"
     " interface I { attr b : M::B::S [*] attr a : M::A::S [*] attr c : M::A::S [ 2 ] } }",
     "module M {\nmodule A {\nmodule B {\ntypedef sequence<M::B::S> BSSeq;\n"
     "typedef sequence<M::A::S> ASSeq;\ntypedef sequence<M::A::S, 2> SSeq2;\n"
     "interface I {\nattribute BSSeq b;\nattribute ASSeq a;\nattribute SSeq2 c;\n"},
    // Each file has its own, so that none has to include another.
    {"module M { interface I { attr a [*] } module N { interface J { attr a [*] } } }",
     "module M {\nmodule N {\ntypedef sequence<long> LongSeq;\ninterface J {\n"
     "attribute LongSeq a;\n",
     "MODULE_FLAT", "M_N.idl"},
};

TEST(AddedTypedefs, NameTypesWhereTheModelDoesNot) {
  for (const auto& [model, written, mapping, file] : typedefCases) {
    SCOPED_TRACE(model);
    const ExportBench bench;
    support::XmiFiles files;
    const std::string settings = "targetDir=\"out\" fileMapping=\"" + std::string(mapping) + "\"";
    files.Write("model.uml", support::SmallModel(model, settings)).Read();
    const Exported exported = bench.Run(&files["out"]);
    EXPECT_EQ(LinesOfInterest(exported.Body(file)), written);
    support::WriteFile("out/orb.idl", "");
    EXPECT_EQ(CompilerErrors(file), "") << exported.files.at(file);
  }
}

TEST(AddedTypedefs, TellTemplatesByTheirNames) {
  ExportBench b;
  auto& m = b.Module("M");
  auto& i = b.Interface(m, "I");
  b.Attribute(i, "b", b.Template("array", {"long", 3}));
  b.Attribute(i, "c", b.Template("array", {b.Template("sequence", {"any", 5}), 2, 3}));
  b.Attribute(i, "d", b.Template("fixed", {9, 2}));
  b.Attribute(i, "e", b.Template("sequence", {b.Template("sequence", {"unsigned long"}), 7}));
  b.Attribute(i, "f", b.Template("sequence", {b.Template("string", {10})}));
  b.Attribute(i, "g", b.Template("string", {10}));
  b.Range(b.Attribute(i, "h", b.Template("fixed", {9, 2})), 0, "*");
  const Exported exported = b.Export({&m}, {{"isVerbatim", "false"}});
  EXPECT_EQ(exported.Diagnostics(), "");
  EXPECT_EQ(LinesOfInterest(exported.Body()),
            "module M {\n"
            "typedef long LongArray3[3];\n"
            "typedef sequence<any, 5> AnySeq5Array2x3[2][3];\n"
            "typedef fixed<9, 2> Fixed9_2;\n"
            "typedef sequence<sequence<unsigned long>, 7> ULongSeqSeq7;\n"
            "typedef sequence<string<10> > String10Seq;\n"
            "typedef sequence<fixed<9, 2> > Fixed9_2Seq;\n"
            "interface I {\n"
            "attribute LongArray3 b;\n"
            "attribute AnySeq5Array2x3 c;\n"
            "attribute Fixed9_2 d;\n"
            "attribute ULongSeqSeq7 e;\n"
            "attribute String10Seq f;\n"
            "attribute string<10> g;\n"
            "attribute Fixed9_2Seq h;\n");
  EXPECT_EQ(CompilerErrors("Out.idl"), "");
}

}  // namespace
