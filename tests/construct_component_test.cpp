// Value types, event types, components, homes and compositions as IDL text.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "model/model.h"
#include "tests/support/component_grammar.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

TEST(ConstructValue, HasItsKindBasesAndMembers) {
  const OutcomeCase cases[] = {
      {"all that a value may have",
       [](ExportBench& b, Element& m) {
         auto& value = b.Comment(b.Value(m, "V"), "a value");
         b.Attribute(value, "open", "long");
         auto& hidden = b.Set(b.Attribute(value, "hidden", ""), "Visibility", "VkPrivate");
         auto& nested = b.Struct(value, "Nested");
         b.Attribute(nested, "x", "long");
         b.SetType(hidden, nested);
         b.Attribute(value, "grid", b.Template("sequence", {"octet", 3}));
         b.Set(b.Mark(b.Attribute(value, "a", "long"), "CORBAAttribute"), "Changeability",
               "CkFrozen");
         b.Constant(value, "C", "long", 1);
         b.Parameter(b.Mark(b.Operation(value, "init"), "CORBAValueFactory"), "x", "long");
         b.Operation(value, "op");
         auto& base = b.Set(b.Value(b.Module(m, "N"), "Base"), "isAbstract", "true");
         b.Generalize(value, base);
         b.Mark(b.Generalize(value, b.Value(m, "Cut")), "CORBATruncatable");
         b.Generalize(value, base);
         b.Generalize(value, b.Class(m, "Plain", ""));
         b.Mark(b.Generalize(value, b.Interface(m, "I")), "CORBASupports");
       },
       R"(Warning - attribute M::V::grid has an anonymous template type; consider using a typedef instead

module N {
    
    abstract valuetype Base {
    };
};

valuetype Cut {
};

interface I {
};

// a value
valuetype V : truncatable Cut, M::N::Base supports I {
    public long open;
    
    struct Nested {
        long x;
    };
    private Nested hidden;
    public sequence<octet, 3> grid;
    readonly attribute long a;
    const long C = 1;
    factory init(in long x);
    void op();
};)"},
      {"custom values, event types, and forward declarations",
       [](ExportBench& b, Element& m) {
         auto& custom = b.Mark(b.Interface(m, "Custom", ""), "CORBAValue", {{"isCustom", "true"}});
         auto& event = b.Set(b.Event(m, "Event"), "isAbstract", "true");
         b.Attribute(custom, "next", event);
         b.Returns(b.Operation(event, "back"), custom);
         b.Generalize(b.Event(m, "Special"), event);
       },
       R"(valuetype Custom;
abstract valuetype Event;

abstract eventtype Event {
    Custom back();
};

custom valuetype Custom {
    public Event next;
};

eventtype Special : Event {
};)"},
  };
  ExpectOutcomes(cases);
}

/// A component with everything, its home and its composition.
void BuildAssembly(ExportBench& b, Element& m) {
  auto& facet = b.Interface(m, "Facet");
  auto& tick = b.Event(b.Module(m, "Events"), "Tick");
  auto& key = b.Value(m, "Key");
  auto& worker = b.Component(m, "Worker");
  b.Attribute(worker, "limit", "long");
  auto& port = b.Port(worker, "work", "CORBAFacet", {&facet});
  b.Mark(b.Port(worker, "helpers", "", {}, {&facet}), "CORBAReceptacle", {{"isMultiple", "true"}});
  b.Port(worker, "boss", "CORBAReceptacle", {}, {&facet});
  b.Mark(b.Port(worker, "done", "", {}, {&tick}), "CORBAEventSource", {{"sourceKind", "Emitter"}});
  b.Port(worker, "news", "CORBAEventSource", {}, {&tick});
  b.Port(worker, "orders", "CORBAEventSink", {&tick});
  b.Port(worker, "foreign", "CORBAFacet", {&b.Interface(b.Package("P"), "Foreign")});
  b.Port(worker, "plain", "", {&facet});
  auto& base = b.Component(m, "Base");
  auto& supported = b.Interface(b.Module(m, "Far"), "Supported");
  b.Generalize(worker, base);
  b.Generalize(worker, facet);
  b.Generalize(worker, supported);

  auto& home = b.Home(m, "WorkerHome");
  b.Returns(b.Operation(home, "count"), "long");
  b.Parameter(b.Mark(b.Operation(home, "make"), "CORBAFactory"), "limit", "unsigned long");
  b.Parameter(b.Mark(b.Operation(home, "find"), "CORBAFinder"), "key", key);
  auto& baseHome = b.Home(m, "BaseHome");
  b.Mark(b.Depend(baseHome, base), "CORBAManages");
  b.Generalize(home, baseHome);
  b.Generalize(home, supported);
  b.Mark(b.Depend(home, worker), "CORBAManages");
  b.Mark(b.Depend(home, key), "CORBAPrimaryKey");

  auto& implementation = b.Mark(b.Class(m, "WorkerImpl", ""), "CORBAComponentImpl",
                                {{"category", "process"}, {"composite", "WorkerComposition"}});
  b.Mark(b.Depend(implementation, worker), "CORBAImplements");
  auto& executor = b.Class(implementation, "HomeExecutor", "CORBAHomeImpl");
  b.Mark(b.Depend(executor, home), "CORBAImplements");
  b.Mark(b.Depend(executor, implementation), "CORBAManages");
  b.Mark(b.Depend(b.Class(implementation, "Front", "CORBASegment"), port), "CORBAIsProvidedBy");
}

constexpr std::string_view assembly = R"(
interface Facet {
};

module Events {
    
    eventtype Tick {
    };
};

valuetype Key {
};

component Base {
};

module Far {
    
    interface Supported {
    };
};

component Worker : Base supports Facet, M::Far::Supported {
    attribute long limit;
    provides Facet work;
    uses multiple Facet helpers;
    uses Facet boss;
    emits Tick done;
    publishes Tick news;
    consumes Tick orders;
};

home BaseHome manages Base {
};

home WorkerHome : BaseHome supports M::Far::Supported manages Worker primarykey Key {
    long count();
    factory make(in unsigned long limit);
    finder find(in Key key);
};

composition process WorkerComposition {
    home executor HomeExecutor {
        implements WorkerHome;
        manages WorkerImpl {
            segment Front { provides work; };
        };
    };
};)";

TEST(ConstructComponent, AssemblyIsWrittenInOrder) {
  const OutcomeCase cases[] = {{"an assembly", BuildAssembly, assembly}};
  ExpectOutcomes(cases);
}

TEST(ConstructComponent, AssemblyObeysTheGrammar) {
  ExportBench bench;
  auto& module = bench.Module("M");
  BuildAssembly(bench, module);
  const std::string idl = bench.Export({&module}).Body();
  EXPECT_EQ(support::GrammarFault(idl), "");
  const std::pair<const char*, const char*> faults[] = {
      {"component Worker :", "component Worker : ,"},
      {"uses multiple Facet helpers", "uses multiple Facet"},
      {"provides Facet work", "provide Facet work"},
      {"manages Worker primarykey Key", "primarykey Key manages Worker"},
      {"supports Facet, M", "supports Facet M"},
      {"factory make(in", "factory make(out"},
      {"composition process", "composition fast"},
      {"implements WorkerHome;", ""},
      {"{ provides work; };", "{ };"},
      {"eventtype Tick {", "eventtype {"},
  };
  for (const auto& [right, wrong] : faults) {
    EXPECT_NE(support::GrammarFault(support::Replaced(idl, right, wrong)), "") << wrong;
  }
}

TEST(ConstructComponent, CyclesAndPlainCompositions) {
  const OutcomeCase cases[] = {
      {"components that are each other's base are declared forward",
       [](ExportBench& b, Element& m) {
         auto& first = b.Component(m, "First");
         auto& second = b.Component(m, "Second");
         b.Generalize(first, second);
         b.Generalize(second, first);
       },
       R"(component First;
component Second;

component Second : First {
};

component First : Second {
};)"},
      {"nested types of a home are ordered and declared forward",
       [](ExportBench& b, Element& m) {
         auto& home = b.Home(m, "H");
         b.Mark(b.Depend(home, b.Component(m, "C")), "CORBAManages");
         auto& op = b.Operation(home, "op");
         auto& s = b.Struct(home, "S");
         b.Parameter(op, "s", s);
         b.Range(b.Attribute(s, "more", s), 0, "*");
       },
       R"(Warning - attribute M::H::S::more has an anonymous template type; consider using a typedef instead

component C {
};

home H manages C {
    struct S;
    
    struct S {
        sequence<S> more;
    };
    void op(in S s);
};)"},
      {"a composition without segments, of a home elsewhere",
       [](ExportBench& b, Element& m) {
         auto& implementation = b.Class(m, "Impl", "CORBAComponentImpl");
         auto& executor = b.Comment(b.Class(implementation, "Exec", "CORBAHomeImpl"), "makes it");
         auto& home = b.Home(b.Module(m, "N"), "H");
         b.Mark(b.Depend(home, b.Component(m, "C")), "CORBAManages");
         b.Mark(b.Depend(executor, home), "CORBAImplements");
         b.Mark(b.Depend(executor, implementation), "CORBAManages");
       },
       R"(
component C {
};

module N {
    
    home H manages C {
    };
};

composition session Impl {
    // makes it
    home executor Exec {
        implements M::N::H;
        manages Impl;
    };
};)"},
  };
  ExpectOutcomes(cases);
}

}  // namespace
