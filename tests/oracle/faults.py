"""Faults of which every model has to be refused. Each is declared by a few elements of its own, in
random modules of a model that is sound without them."""

import random

import model
from model import Array, Attribute, Basic, Box, Case, Component, Constant, Enumeration, Enumerator, ExceptionType
from model import Fixed, Home, Interface, Literal, Member, Module, Named, NamedSequence, Operation, Parameter, Port
from model import Reference, Sequence, StateMember, String, Struct, Typedef, Union, Value

LONG = Basic("long")
_ILLEGAL = ("has blank", "_under", "9lives", "a-b", "größe", "x.y", "")


def plant(drawn, seed, which=None):
    """Plants a fault; returns it and the names of the elements of which an error may speak."""
    chance = random.Random(seed)
    fault = which or chance.choice(FAULTS)
    modules = [each for each in model.everything(drawn) if isinstance(each, Module)]
    elements = fault(chance)
    for element in elements:
        chance.choice(modules).members.insert(0, element)
    return fault, sorted({part.name for element in elements for part in model.everything(element)})


def told(fault):
    return fault.__name__.replace("_", " ")


def needs_files(fault):
    """Whether it is none when all modules are written into one file."""
    return fault is modules_that_need_each_other


def struct(name, *types):
    return Struct(name, [Member(f"m{number}", type_) for number, type_ in enumerate(types)])


def operation(name="act", **attributes):
    return Operation(name, **attributes)


def two_members_of_one_name(chance):
    return [Struct("BadStruct", [Member("twice", LONG), Member(chance.choice(["twice", "Twice"]), LONG)])]


def two_declarations_of_one_name(chance):
    other = chance.choice(["BadTwin", "BADTWIN"])
    return [Module("BadPair", [struct("BadTwin", LONG), Enumeration(other, [Enumerator("ONE")])])]


def an_enumerator_named_as_a_type(chance):
    return [Module("BadPair", [Enumeration("BadEnum", [Enumerator("badstruct")]), struct("BadStruct", LONG)])]


def a_member_named_as_its_struct(chance):
    return [Struct("BadStruct", [Member("badStruct", LONG)])]


def two_parameters_of_one_name(chance):
    return [Interface("BadUser", [], [operation(parameters=[Parameter("twice", LONG), Parameter("Twice", LONG)])])]


def a_struct_that_holds_itself(chance):
    bad = struct("BadStruct", LONG)
    bad.members[0].type = chance.choice([Named(bad), Array(Named(bad), [2])])
    return [bad]


def structs_that_hold_each_other(chance):
    one, other = struct("BadOne", LONG), struct("BadOther", LONG)
    alias = Typedef("BadAlias", Named(one))
    one.members[0].type = Named(other)
    other.members[0].type = chance.choice([Named(one), Named(alias)])
    return [one, other, alias]


def structs_that_hold_sequences_of_each_other(chance):
    one, other = struct("BadOne", LONG), struct("BadOther", LONG)
    one.members[0].type = Sequence(Named(other), None, True)
    other.members[0].type = Sequence(Named(one), None, True)
    return [one, other]


def a_union_that_holds_itself(chance):
    bad = Union("BadUnion", LONG)
    bad.cases = [Case("whole", Named(bad), [Literal(1)])]
    return [bad]


def a_circle_of_typedefs(chance):
    one, other = Typedef("BadOne", None), Typedef("BadOther", None)
    one.type = chance.choice([Named(other), Sequence(Named(other))])
    other.type = Named(one)
    return [one, other]


def a_circle_of_sequences(chance):
    one, other = NamedSequence("BadOne", None), NamedSequence("BadOther", None)
    one.type, other.type = Named(other), Named(one)
    return [one, other]


def a_circle_of_constants(chance):
    one, other = Constant("BAD_ONE", LONG, None), Constant("BAD_OTHER", LONG, None)
    one.value, other.value = Reference(other), Reference(one)
    return [one, other]


def a_circle_of_interfaces(chance):
    one, other = Interface("BadOne"), Interface("BadOther")
    one.bases, other.bases = [other], [one]
    return [one, other]


def a_circle_of_values(chance):
    one, other = Value("BadOne"), Value("BadOther")
    one.bases, other.bases = [other], [one]
    return [one, other]


def an_interface_and_a_nested_type_in_a_circle(chance):
    one, other = Interface("BadOne"), Interface("BadOther")
    for each in (one, other):
        each.members.append(struct(f"PartOf{each.name}", LONG))
    one.members.append(Attribute("part", Named(other.members[0])))
    other.members.append(Attribute("part", Named(one.members[0])))
    return [one, other]


def an_exception_as_a_type(chance):
    bad = ExceptionType("BadException")
    user = Interface("BadUser", [], [Attribute("caught", Named(bad))])
    return [bad, chance.choice([struct("BadStruct", Named(bad)), Typedef("BadAlias", Named(bad)), user])]


def an_enumeration_as_a_base(chance):
    bad = Enumeration("BadEnum", [Enumerator("BAD_ONE")])
    return [bad, Interface("BadHeir", [bad])]


def a_value_as_the_base_of_an_interface(chance):
    bad = Value("BadValue")
    return [bad, Interface("BadHeir", [bad])]


def an_abstract_heir_of_what_is_not(chance):
    kind = chance.choice([Interface, Value])
    bad = kind("BadBase")
    return [bad, kind("BadHeir", [bad], is_abstract=True)]


def a_local_base(chance):
    bad = Interface("BadBase", is_local=True)
    return [bad, Interface("BadHeir", [bad])]


def a_label_twice(chance):
    if chance.random() < 0.5:
        return [Union("BadUnion", LONG, [Case("a", LONG, [Literal(1), Literal(1, "0x1")])])]
    cases = [Case("a", LONG, [Literal(5)]), Case("b", LONG, [Literal(5)])]
    return [Union("BadUnion", Basic("short"), cases)]


def two_defaults(chance):
    return [Union("BadUnion", LONG, [Case("a", LONG, [], True), Case("b", LONG, [], True)])]


def a_default_without_values_left(chance):
    labels = [Literal(True), Literal(False)]
    return [Union("BadUnion", Basic("boolean"), [Case("a", LONG, labels), Case("b", LONG, [], True)])]


def a_label_of_another_type(chance):
    switch, label = chance.choice(
        [(Basic("short"), Literal(40000)), (Basic("char"), Literal(10)), (LONG, Literal("x", "'x'")), (LONG, Literal(1.5))]
    )
    return [Union("BadUnion", switch, [Case("a", LONG, [label])])]


def a_label_of_another_enumeration(chance):
    one, other = Enumeration("BadEnum", [Enumerator("BAD_ONE")]), Enumeration("Other", [Enumerator("OTHER_ONE")])
    union = Union("BadUnion", Named(one), [Case("a", LONG, [Reference(other.enumerators[0])])])
    return [one, other, union]


def a_discriminator_of_no_such_type(chance):
    return [Union("BadUnion", Basic(chance.choice(["double", "octet", "string"])), [Case("a", LONG, [Literal(1)])])]


def a_value_out_of_range(chance):
    type_, value = chance.choice(
        [("octet", 256), ("octet", -1), ("short", 40000), ("unsigned short", -2), ("long", 2**31), ("unsigned long", -1)]
    )
    return [Constant("BAD_CONSTANT", Basic(type_), Literal(value))]


def a_constant_out_of_range_for_another(chance):
    large = Constant("LARGE_CONSTANT", LONG, Literal(70000))
    return [large, Constant("BAD_CONSTANT", Basic("short"), Reference(large))]


def a_value_of_another_type(chance):
    type_, value = chance.choice(
        [("long", "text"), ("long", 1.5), ("boolean", 7), ("char", "two"), ("string", True), ("double", "1")]
    )
    return [Constant("BAD_CONSTANT", Basic(type_), Literal(value))]


def a_text_that_is_too_long(chance):
    short = Typedef("BadText", String(3))
    return [short, Constant("BAD_CONSTANT", Named(short), Literal("four"))]


def a_constant_of_no_such_type(chance):
    bad = struct("BadStruct", LONG)
    return [bad, Constant("BAD_CONSTANT", chance.choice([Named(bad), Basic("any"), Basic("Object")]), Literal(1))]


def too_many_digits(chance):
    return [Typedef("BadFixed", chance.choice([Fixed(32, 2), Fixed(3, 4)]))]


def an_empty_enumeration(chance):
    return [Enumeration("BadEnum")]


def an_empty_struct(chance):
    return [Struct("BadStruct")]


def an_empty_union(chance):
    return [Union("BadUnion", LONG)]


def an_operation_declared_again(chance):
    base = Interface("BadBase", [], [operation("again")])
    middle = Interface("BadMiddle", [base])
    again = chance.choice([operation("Again"), Attribute("again", LONG), Typedef("Again", LONG)])
    return [base, middle, Interface("BadHeir", [middle], [again])]


def two_bases_with_one_operation(chance):
    bases = [Interface("BadOne", [], [operation("same")]), Interface("BadOther", [], [Attribute("Same", LONG)])]
    return [*bases, Interface("BadHeir", bases)]


def a_state_member_declared_again(chance):
    base = Value("BadBase", members=[StateMember("again", LONG)])
    return [base, Value("BadHeir", [base], members=[StateMember("again", LONG)])]


def two_operations_of_one_name(chance):
    other = chance.choice([operation("ACT"), operation(), Attribute("act", LONG), struct("Act", LONG)])
    return [Interface("BadUser", [], [operation(), other])]


def a_nested_type_that_needs_its_interface_complete(chance):
    bad = Interface("BadUser")
    heir = Interface("BadHeir", [bad], [struct("BadPart", LONG)])
    bad.members = [Attribute("part", Named(heir.members[0]))]
    return [bad, heir]


def modules_that_need_each_other(chance):
    one = struct("BadOne", LONG)
    other = struct("BadOther", Named(one))
    last = struct("BadLast", Named(other))
    return [Module("BadModules", [Module("Outer", [one, last]), Module("Middle", [other])])]


def a_value_that_supports_two_interfaces(chance):
    supported = [Interface("BadOne"), Interface("BadOther")]
    return [*supported, Value("BadHeir", [], supported)]


def a_custom_base(chance):
    base = Value("BadBase", is_custom=True)
    return [base, Value("BadHeir", [base])]


def raising_what_is_no_exception(chance):
    bad = chance.choice([struct("BadStruct", LONG), Interface("BadInterface")])
    return [bad, Interface("BadUser", [], [operation(raises=[bad])])]


def a_oneway_operation_that_answers(chance):
    raised = ExceptionType("BadException")
    acts = [operation(result=LONG), operation(parameters=[Parameter("given", LONG, "out")]), operation(raises=[raised])]
    act = chance.choice(acts)
    act.is_oneway = True
    return [raised, Interface("BadUser", [], [act])]


def a_value_with_two_concrete_bases(chance):
    bases = [Value("BadOne"), Value("BadOther")]
    return [*bases, Value("BadHeir", bases)]


def a_custom_value_that_is_truncatable(chance):
    base = Value("BadBase")
    return [base, Value("BadHeir", [base], is_custom=True, is_truncatable=True)]


def an_abstract_value_with_state(chance):
    return [Value("BadValue", members=[StateMember("state", LONG)], is_abstract=True)]


def a_box_of_a_value(chance):
    bad = Value("BadValue")
    return [bad, Box("BadBox", Named(bad))]


def a_component_as_the_base_of_an_interface(chance):
    bad = Component("BadComponent")
    return [bad, Interface("BadHeir", [bad])]


def a_component_with_two_bases(chance):
    bases = [Component("BadOne"), Component("BadOther")]
    return [*bases, Component("BadHeir", bases)]


def a_port_of_no_such_type(chance):
    kind, bad = chance.choice([("consumes", Interface("BadType")), ("provides", Value("BadType")), ("emits", Value("BadType"))])
    return [bad, Component("BadComponent", members=[Port("port", kind, bad)])]


def two_ports_of_one_name(chance):
    type_ = Interface("BadType")
    ports = [Port("twice", "provides", type_), Port("Twice", "uses", type_)]
    return [type_, Component("BadComponent", members=ports)]


def a_home_that_manages_no_component(chance):
    bad = Interface("BadType")
    return [bad, Home("BadHome", bad)]


def a_key_that_is_no_value(chance):
    component, bad = Component("BadComponent"), struct("BadKey", LONG)
    return [component, bad, Home("BadHome", component, bad)]


def an_illegal_name(chance):
    name = chance.choice(_ILLEGAL)
    user = Interface("BadUser", [], [operation(name)])
    return [chance.choice([struct(name, LONG), Struct("BadStruct", [Member(name, LONG)]), user, Constant(name, LONG, Literal(1))])]


FAULTS = [
    made for made in list(globals().values())
    if getattr(made, "__module__", "") == __name__ and made.__code__.co_varnames[:1] == ("chance",)
]  # fmt: skip
