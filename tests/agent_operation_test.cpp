// Operations and parameters as IDL text, and the rules that are checked for them.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "model/model.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

/// An interface "I" with an operation "op".
Element& Operation(ExportBench& bench, Element& module) {
  return bench.Operation(bench.Interface(module, "I"), "op");
}

TEST(AgentOperation, IsWrittenWithItsPrefixAndParameters) {
  const OutcomeCase cases[] = {
      {"results and directions",
       [](ExportBench& b, Element& m) {
         auto& op = Operation(b, m);
         b.Parameter(op, "a", "long");
         b.Parameter(op, "b", "string", "DkInOut");
         b.Returns(op, "double");
         b.Parameter(op, "c", m.Owner().Create(Symbol("Class")), "DkOut");
         b.Parameter(op, "d", "any", "DkNone");
         b.SetType(*op.Entities(Symbol("Parameter"))[3], b.Interface(b.Module(m, "N"), "S"));
         b.Set(op, "Visibility", "VkPublic");
       },
       R"(
module N {
    
    interface S {
    };
};

interface I {
    double op(in long a, inout string b, out M::N::S c, in any d);
};)"},
      {"of two results the last one counts",
       [](ExportBench& b, Element& m) {
         auto& op = Operation(b, m);
         b.Parameter(op, "first", "long", "DkReturn");
         b.Returns(op, "short");
       },
       "\ninterface I {\n    short op(long first);\n};"},
      {"context",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         auto& stereotype = b.Model().Stereotype("CORBAOperation");
         const std::string_view names[] = {"\"sys_*\"", "\"user\""};
         auto& two = b.Model().Apply(b.Operation(i, "two"), stereotype);
         b.Model().SetListTag(two, Symbol("context"), names);
         auto& none = b.Model().Apply(b.Operation(i, "none"), stereotype);
         b.Model().SetListTag(none, Symbol("context"), {});
         b.Mark(b.Operation(i, "text"), "CORBAOperation", {{"context", "no list"}});
       },
       R"(
interface I {
    void two() context ("sys_*", "user");
    void none();
    void text();
};)"},
      {"an anonymous result, and an array's suffix behind it",
       [](ExportBench& b, Element& m) {
         b.Returns(Operation(b, m), b.Template("array", {"long", 4}));
       },
       R"(Warning - operation M::I::op has an anonymous return template type; consider using a typedef instead
Warning - parameter M::I::op:: has an anonymous template type; consider using a typedef instead

interface I {
    long[4] op();
};)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentOperation, DecidesWhetherItIsOneway) {
  static constexpr auto build = [](ExportBench& b, Element& m) {
    auto& i = b.Interface(m, "I");
    b.Operation(i, "byDefault");
    b.Mark(b.Operation(i, "twoWay"), "CORBAOperation", {{"overrideIsDefaultAsync", "true"}});
    b.Mark(b.Operation(i, "oneWay"), "CORBAOperation", {{"overrideIsDefaultAsync", "false"}});
    b.Mark(b.Operation(i, "odd"), "CORBAOperation", {{"overrideIsDefaultAsync", "True"}});
    b.Signal(i, "sig");
  };
  const std::string oneway = R"(
interface I {
    oneway void byDefault();
    void twoWay();
    oneway void oneWay();
    oneway void odd();
    oneway void sig();
};)";
  const std::string twoWay = support::Replaced(oneway, "oneway void byD", "void byD");
  const OutcomeCase asynchronous[] = {{"oneway by default", build, oneway}};
  const OutcomeCase synchronous[] = {{"two-way by default", build, twoWay}};
  ExpectOutcomes(synchronous);
  ExpectOutcomes(synchronous, {{"isAsyncDefault", "True"}});
  ExpectOutcomes(asynchronous, {{"isAsyncDefault", "true"}});
}

TEST(AgentOperation, ReportsWhatIsWrongWithIt) {
  const OutcomeCase cases[] = {
      {"a factory and a finder in an interface are written",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         b.Parameter(b.Mark(b.Operation(i, "make"), "CORBAFactory"), "x", "long");
         b.Mark(b.Operation(i, "init"), "CORBAValueFactory");
         b.Mark(b.Mark(b.Operation(i, "find"), "CORBAFinder"), "CORBAFactory");
       },
       R"(Warning - operation M::I::find cannot be a factory or finder operation
Warning - operation M::I::init cannot be a factory or finder operation
Warning - operation M::I::make cannot be a factory or finder operation

interface I {
    factory make(in long x);
    factory init();
    finder find();
};)"},
      {"they count as oneway",
       [](ExportBench& b, Element& m) {
         auto& make = b.Mark(Operation(b, m), "CORBAFactory");
         b.Returns(make, "long");
         b.Raises(make, b.Exception(m, "E"));
       },
       R"(Warning - operation M::I::op cannot be a factory or finder operation
Error - operation M::I::op has a value-returning parameter (inout, out, or return kind)
Error - operation M::I::op is oneway and cannot raise exceptions
)"},
      {"a signal can return nothing, and its exceptions aren't read",
       [](ExportBench& b, Element& m) {
         auto& signal = b.Signal(b.Interface(m, "I"), "sig");
         b.Parameter(signal, "x", "long", "DkOut");
         b.Parameter(signal, "y", "long", "DkInOut");
         b.Raises(signal, b.Exception(b.Package("P"), "Foreign"));
       },
       "Error - operation M::I::sig has a value-returning parameter (inout, out, or return "
       "kind)\n"},
  };
  ExpectOutcomes(cases);
}

}  // namespace
