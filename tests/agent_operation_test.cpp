// Operations and parameters as IDL text, and the rules that are checked for them.
#include <gtest/gtest.h>

#include <span>
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
         b.SetType(*op.Entities(Symbol("Parameter"))[3], b.Struct(m, "S"));
         b.Set(op, "Visibility", "VkPublic");
       },
       R"(Warning - struct M::S has no members

struct S {
};

interface I {
    double op(in long a, inout string b, out S c, in any d);
};)"},
      {"of two results the last one counts",
       [](ExportBench& b, Element& m) {
         auto& op = Operation(b, m);
         b.Parameter(op, "first", "long", "DkReturn");
         b.Returns(op, "short");
       },
       "\ninterface I {\n    short op(long first);\n};"},
      {"result and exception of other scopes",
       [](ExportBench& b, Element& m) {
         auto& op = Operation(b, m);
         auto& n = b.Module(m, "N");
         b.Returns(op, b.Interface(n, "J"));
         b.Parameter(op, "j", *n.Entities(Symbol("OwnedMember"))[0]);
         b.Raises(op, b.Exception(m, "E"));
         b.Raises(op, b.Exception(m, "F"));
       },
       R"(
module N {
    
    interface J {
    };
};

exception E {
};

exception F {
};

interface I {
    M::N::J op(in M::N::J j) raises (E, F);
};)"},
      {"context",
       [](ExportBench& b, Element& m) {
         const std::string_view names[] = {"\"sys_*\"", "\"user\""};
         const auto context = [&](std::string_view name, std::span<const std::string_view> list) {
           auto& op = b.Operation(m, name);
           auto& stereotype = b.Model().Stereotype("CORBAOperation");
           b.Model().SetListTag(b.Model().Apply(op, stereotype), Symbol("context"), list);
           return &op;
         };
         auto& i = b.Interface(m, "I");
         i.AddEntity(Symbol("OwnedMember"), *context("two", names));
         i.AddEntity(Symbol("OwnedMember"), *context("none", {}));
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
  const OutcomeCase synchronous[] = {{"two-way by default", build, R"(
interface I {
    void byDefault();
    void twoWay();
    oneway void oneWay();
    oneway void odd();
    oneway void sig();
};)"}};
  const OutcomeCase asynchronous[] = {{"oneway by default", build, R"(
interface I {
    oneway void byDefault();
    void twoWay();
    oneway void oneWay();
    oneway void odd();
    oneway void sig();
};)"}};
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
      {"an exception that is not exported",
       [](ExportBench& b, Element& m) {
         b.Raises(Operation(b, m), b.Exception(b.Package("P"), "Foreign"));
       },
       "Error - operation M::I::op raises an undefined exception Foreign\n"},
      {"a result without a type",
       [](ExportBench& b, Element& m) { b.Returns(Operation(b, m), ""); },
       R"(Error - operation M::I::op has a return type that could not be identified
Error - parameter M::I::op:: has a type that could not be identified
)"},
      {"a result and parameters that are not exported",
       [](ExportBench& b, Element& m) {
         auto& op = Operation(b, m);
         auto& foreign = b.Struct(b.Package("P"), "Foreign");
         b.Parameter(op, "p", foreign);
         b.Set(b.Returns(op, foreign), "Name", "result");
       },
       R"(Error - operation M::I::op has a return type that is not marked as a CORBA type or not included in the generation
Error - parameter M::I::op::p has a type that is not marked as a CORBA type or not included in the generation
Error - parameter M::I::op::result has a type that is not marked as a CORBA type or not included in the generation
)"},
      {"multiplicities of parameters",
       [](ExportBench& b, Element& m) {
         auto& op = Operation(b, m);
         b.Range(b.Parameter(op, "many", "long"), 0, "*");
         b.Range(b.Parameter(op, "some", "long"), 0,
                 b.Constant(b.Package("P"), "FOREIGN", "long", 5));
         b.Range(b.Returns(op, "long"), 0, 9);
       },
       R"(Warning - operation M::I::op has an anonymous return template type; consider using a typedef instead
Warning - parameter M::I::op:: has an anonymous template type; consider using a typedef instead
Warning - parameter M::I::op::many has an anonymous template type; consider using a typedef instead
Warning - parameter M::I::op::some has an anonymous template type; consider using a typedef instead
Error - attribute M::I::op::somehas a multiplicity constant that could not be identified
)"},
  };
  ExpectOutcomes(cases);
}

}  // namespace
