// Interfaces and their attributes as IDL text, and the rules that are checked for them.
#include <gtest/gtest.h>

#include "model/model.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

TEST(AgentInterface, IsAbstractOrLocalOrPlain) {
  const OutcomeCase cases[] = {
      {"the kinds",
       [](ExportBench& b, Element& m) {
         b.Set(b.Interface(m, "Abstract"), "IsAbstract", "true");
         b.Mark(b.Interface(m, "Local", ""), "CORBAInterface", {{"isLocal", "true"}});
         b.Mark(b.Interface(m, "Odd", ""), "CORBAInterface", {{"isLocal", "maybe"}});
         b.Set(b.Mark(b.Interface(m, "Plain", ""), "CORBAInterface", {{"isLocal", "false"}}),
               "IsAbstract", "false");
         b.Set(b.Mark(b.Interface(m, "Both", ""), "CORBAInterface", {{"isLocal", "true"}}),
               "IsAbstract", "true");
       },
       R"(
abstract interface Abstract {
};

local interface Local {
};

local interface Odd {
};

interface Plain {
};

abstract interface Both {
};)"},
      {"the kinds of forward declarations",
       [](ExportBench& b, Element& m) {
         auto& a = b.Set(b.Interface(m, "A"), "IsAbstract", "true");
         auto& l = b.Mark(b.Interface(m, "L", ""), "CORBAInterface", {{"isLocal", "true"}});
         auto& p = b.Interface(m, "P");
         b.Attribute(a, "l", l);
         b.Attribute(l, "p", p);
         b.Attribute(p, "a", a);
       },
       R"(abstract interface A;
local interface L;
interface P;

interface P {
    attribute A a;
};

local interface L {
    attribute P p;
};

abstract interface A {
    attribute L l;
};)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentInterface, InheritsFromItsSupertypes) {
  const OutcomeCase cases[] = {
      {"in scope, elsewhere, and twice",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         auto& far = b.Interface(b.Module(m, "N"), "Far");
         auto& near = b.Interface(m, "Near");
         b.Generalize(i, far);
         b.Generalize(i, near);
         b.Generalize(i, far);
         b.Make(i, "Generalization", "", "", "Generalization");  // without a supertype
       },
       R"(
module N {
    
    interface Far {
    };
};

interface Near {
};

interface I : M::N::Far, Near {
};)"},
      {"not exported",
       [](ExportBench& b, Element& m) {
         b.Generalize(b.Interface(m, "I"), b.Interface(b.Package("P"), "Foreign"));
       },
       "Error - a supertype of interfaceM::I is not marked as a CORBA type\n"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentInterface, ClassifiesItsMembers) {
  const OutcomeCase cases[] = {
      {"in model order",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         b.Constant(i, "C", "long", 1);
         b.Set(b.Attribute(i, "a", "long"), "Changeability", "CkFrozen");
         b.Enum(i, "Enum", {"A"});
         b.Exception(i, "E");
         b.Operation(i, "op");
         b.Signal(i, "sig");
         b.Attribute(b.Mark(b.Exception(i, "S"), "CORBAStruct"), "x", "long");
       },
       R"(
interface I {
    const long C = 1;
    readonly attribute long a;
    
    enum Enum {
        A
    };
    
    exception E {
    };
    void op();
    oneway void sig();
    
    struct S {
        long x;
    };
};)"},
      {"what can't be nested, and what isn't public, is passed over",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         for (auto* member : {&b.Constant(i, "C", "long", 1), &b.Attribute(i, "a", "long"),
                              &b.Operation(i, "op"), &b.Signal(i, "sig")}) {
           b.Set(*member, "Visibility", "VkPrivate");
         }
         b.Interface(i, "J");
         b.Class(i, "K", "CORBAInterface");
         b.Module(i, "N");
         b.DataType(i, "D", "CORBAStruct");
       },
       "\ninterface I {\n};"},
      {"nested declarations are ordered by use, with forward declarations of their own",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         auto& op = b.Operation(i, "op");
         auto& a = b.Struct(i, "A");
         auto& c = b.Struct(i, "B");
         b.Parameter(op, "a", a);
         b.Attribute(a, "b", b.Template("sequence", {c}));
         b.Attribute(c, "a", b.Template("sequence", {a}));
         b.Raises(op, b.Exception(i, "E"));
       },
       R"(Warning - attribute M::I::A::b has an anonymous template type; consider using a typedef instead
Warning - attribute M::I::B::a has an anonymous template type; consider using a typedef instead

interface I {
    struct A;
    struct B;
    
    struct B {
        sequence<A> a;
    };
    
    struct A {
        sequence<B> b;
    };
    
    exception E {
    };
    void op(in A a) raises (E);
};)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentAttribute, ResolvesItsType) {
  const OutcomeCase cases[] = {
      {"in scope, elsewhere and at the top",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         b.Attribute(i, "near", b.Interface(m, "J"));
         b.Attribute(i, "nested", b.Enum(i, "E", {"A"}));
         b.Set(b.Attribute(i, "far", b.Enum(b.Interface(m, "K"), "E", {"A"})), "Changeability",
               "CkAddOnly");
       },
       R"(
interface J {
};

interface K {
    
    enum E {
        A
    };
};

interface I {
    attribute J near;
    
    enum E {
        A
    };
    attribute E nested;
    attribute M::K::E far;
};)"},
      {"what is wrong with it",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         auto& foreign = b.Package("P");
         b.Attribute(i, "none", "");
         b.Attribute(i, "foreign", b.Struct(foreign, "Foreign"));
         b.Attribute(i, "unknown", "Unknown");
         b.Range(b.Attribute(i, "bound", "long"), 0, b.Constant(foreign, "N", "long", 2));
       },
       R"(Warning - attribute M::I::bound has an anonymous template type; consider using a typedef instead
Error - attribute M::I::bound has a multiplicity constant that could not be identified
Error - attribute M::I::foreign has a type that is not marked as a CORBA type or not included in the generation
Error - attribute M::I::none has a type that could not be identified
Error - attribute M::I::unknown has a type that is not marked as a CORBA type or not included in the generation
)"},
  };
  ExpectOutcomes(cases);
}

}  // namespace
