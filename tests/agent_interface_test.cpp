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

TEST(AgentInterface, IsWrittenAsItIsMarkedAndDerived) {
  const OutcomeCase cases[] = {
      {"the kinds of forward declarations; abstract is more than local, and odd is local",
       [](ExportBench& b, Element& m) {
         auto& a = b.Mark(b.Interface(m, "A", ""), "CORBAInterface", {{"isLocal", "true"}});
         auto& l = b.Mark(b.Interface(m, "L", ""), "CORBAInterface", {{"isLocal", "maybe"}});
         auto& p = b.Mark(b.Interface(m, "P", ""), "CORBAInterface", {{"isLocal", "false"}});
         b.Set(p, "IsAbstract", "false");
         b.Attribute(b.Set(a, "IsAbstract", "true"), "l", l);
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
      {"supertypes in scope, elsewhere, and twice; a type elsewhere",
       [](ExportBench& b, Element& m) {
         auto& i = b.Interface(m, "I");
         auto& far = b.Interface(b.Module(m, "N"), "Far");
         auto& near = b.Interface(m, "Near");
         for (Element* general : {&far, &near, &far}) b.Generalize(i, *general);
         b.Make(i, "Generalization", "", "", "Generalization");  // without a supertype
         b.Set(b.Attribute(i, "far", far), "Changeability", "CkAddOnly");
       },
       R"(
module N {
    
    interface Far {
    };
};

interface Near {
};

interface I : M::N::Far, Near {
    attribute M::N::Far far;
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
  };
  ExpectOutcomes(cases);
}

TEST(AgentInterface, OrdersItsDeclarationsByUse) {
  const support::SmallCase cases[] = {
      {"nested declarations are ordered by use, with forward declarations of their own",
       "interface I { op op { in a : M::I::A raises M::I::E } struct A { field b : M::I::B [*] } "
       "struct B { field a : M::I::A [*] } exception E }",
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

}  // namespace
