// Value types, event types, components, homes and compositions as IDL text, as far as the examples
// don't show them.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "model/model.h"
#include "tests/support/component_grammar.h"
#include "tests/support/export.h"
#include "tests/support/file_tree.h"

namespace {

using model::Element;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

TEST(ConstructValue, HasItsKindBasesAndMembers) {
  const OutcomeCase cases[] = {
      {"bases, each once and the one to cut first, and nested types before their use",
       [](ExportBench& b, Element& m) {
         auto& value = b.Value(m, "V");
         auto& hidden = b.Set(b.Attribute(value, "hidden", ""), "Visibility", "VkPrivate");
         auto& nested = b.Enum(value, "Nested", {"A"});
         b.SetType(hidden, nested);
         b.Attribute(value, "grid", b.Template("sequence", {"octet", 3}));
         auto& base = b.Set(b.Value(b.Module(m, "N"), "Base"), "isAbstract", "true");
         b.Generalize(value, base);
         b.Mark(b.Generalize(value, b.Value(m, "Cut")), "CORBATruncatable");
         b.Generalize(value, base);
         b.Generalize(value, b.Class(m, "Plain", ""));
       },
       R"(Warning - attribute M::V::grid has an anonymous template type; consider using a typedef instead

module N {
    
    abstract valuetype Base {
    };
};

valuetype Cut {
};

valuetype V : truncatable Cut, M::N::Base {
    
    enum Nested {
        A
    };
    private Nested hidden;
    public sequence<octet, 3> grid;
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

TEST(ConstructComponent, IsHeldAgainstTheGrammar) {
  const std::string idl =
      support::ReadFile(IDLEXPORT_SOURCE_DIR "/tests/golden/dining/assembly/files/idl/dining.idl");
  EXPECT_EQ(support::GrammarFault(idl), "");
  const std::pair<const char*, const char*> faults[] = {
      {"component HeadWaiter :", "component HeadWaiter : ,"},
      {"uses multiple Inspection places", "uses multiple Inspection"},
      {"provides Fork tool", "provide Fork tool"},
      {"manages Philosopher primarykey Seat", "primarykey Seat manages Philosopher"},
      {"supports Named", "supports Named Other"},
      {"factory seat_down(in", "factory seat_down(out"},
      {"composition process", "composition fast"},
      {"implements Dining::PlaceHome;", ""},
      {"{ provides facet tool; }", "{ }"},
      {"eventtype Bell {", "eventtype {"},
  };
  for (const auto& [right, wrong] : faults) {
    EXPECT_NE(support::GrammarFault(support::Replaced(idl, right, wrong)), "") << wrong;
  }
}

TEST(ConstructComponent, HasBasesPortsAndCompositions) {
  const OutcomeCase cases[] = {
      {"components that are each other's base, one with what it supports and ports of all kinds",
       [](ExportBench& b, Element& m) {
         auto& near = b.Interface(m, "Near");
         auto& far = b.Interface(b.Module(m, "N"), "Far");
         auto& first = b.Component(m, "First");
         auto& second = b.Component(m, "Second");
         for (Element* general : {&second, &near, &far}) b.Generalize(first, *general);
         b.Generalize(second, first);
         b.Port(first, "boss", "CORBAReceptacle", {}, {&far});
         b.Port(first, "news", "CORBAEventSource", {}, {&b.Event(m, "Tick")});
         b.Port(first, "foreign", "CORBAFacet", {&b.Interface(b.Package("P"), "Foreign")});
         b.Port(first, "plain", "", {&near});
         auto& home = b.Home(m, "H");
         b.Generalize(home, far);
         b.Mark(b.Depend(home, second), "CORBAManages");
       },
       R"(component First;
component Second;

interface Near {
};

module N {
    
    interface Far {
    };
};

component Second : First {
};

eventtype Tick {
};

component First : Second supports Near, M::N::Far {
    uses Far boss;
    publishes Tick news;
};

home H supports M::N::Far manages Second {
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
