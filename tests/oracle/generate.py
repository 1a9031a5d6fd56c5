"""Random models from seeds: small ones, full of rings and of names that are in each other's way.

Declarations are made in a hidden order, in which each may need those before it, and use softly what
can be announced; then they are drawn in another. So most models have a legal form, which only a
witness can tell for sure.
"""

import random
from fractions import Fraction

import model
from meaning import basic_type, evaluated
from model import Array, Attribute, Basic, Box, Case, Component, Composition, Constant, Enumeration, Enumerator
from model import ExceptionType, Fixed, Home, Interface, Literal, Member, Model, Module, Named, NamedSequence
from model import Operation, Parameter, Port, Reference, Segment, Sequence, StateMember, String, Struct, Typedef
from model import Union, Value

INTEGERS = {
    "octet": (0, 255), "short": (-(2**15), 2**15 - 1), "unsigned short": (0, 2**16 - 1),
    # Of the least values of the longer types one compiler counts the sign apart.
    "long": (-(2**31) + 1, 2**31 - 1), "unsigned long": (0, 2**32 - 1),
    "long long": (-(2**63) + 1, 2**63 - 1), "unsigned long long": (0, 2**64 - 1),
}  # fmt: skip
_FLOATS = ("float", "double", "long double")
_BASICS = (*INTEGERS, *_FLOATS, "boolean", "char", "wchar", "string", "wstring", "any", "Object")
_TYPE_NAMES = "Item Folder Status State Account Name Node Key List Data Link Owner Entry Part Note A B Money MoneySeq".split()
_FEATURE_NAMES = "item folder status state account name node key list data size next parts value find open a b".split()
_KEYWORDS = "context Context STATE Port interface Home emits struct Any Sequence factory In OBJECT long Custom finder".split()
_COMMENTS = (
    "As it says.", "Two lines,\nthe second of which is this.", "ends in a backslash \\", "C:\\dir\\\nC:\\other\\",
    "a backslash and a blank \\ ", "/* half a comment", "*/ the other half", "#include \"none.idl\"",
    "", "// struct S {", "\ttabs\tand \"quotes\"",
)  # fmt: skip


def redrawn(drawn, seed):
    """The same model in another drawing order. What is compared in order keeps it."""
    chance = random.Random(seed)
    for element in model.everything(drawn):
        if isinstance(element, (Model, Module, Interface)):
            chance.shuffle(element.members)


class Generator:
    def __init__(self, seed, has_components=False):
        self.chance = random.Random(seed)
        self.has_components = has_components
        self.model = Model("drawn")
        self.scopes = [self.model]  # the modules, and the model itself
        self.units = []  # what stands in them, in the hidden order
        self.owners = {}
        self.taken = {self.model: {"corba", "components"}}  # names by their scope

    def made(self):
        self.make_modules()
        count = self.chance.randint(3, 14)
        self.announce_types()
        while len(self.units) < count:
            self.make_unit()
        for unit in self.units:
            if unit in self.announced or isinstance(unit, (Home, Composition)):
                self.fill(unit)  # what they need is filled by then
        self.prune()
        redrawn(self.model, self.chance.random())
        self.comment()
        return self.model

    # Chances and names.

    def maybe(self, percent):
        return self.chance.random() * 100 < percent

    def pick(self, things):
        return self.chance.choice(list(things))

    def some(self, things, most):
        things = list(things)
        return self.chance.sample(things, min(len(things), self.chance.randint(0, most)))

    def free(self, scope, names):
        """The first of these names that is not taken in the scope, else one with a number; takes it."""
        taken = self.taken.setdefault(scope, set())
        own_name = "" if isinstance(scope, Operation) else getattr(scope, "name", "").lower()
        candidates = list(names) + [f"{name}{number}" for number in range(2, 99) for name in names]
        name = next(each for each in candidates if each.lower() not in taken | {own_name})
        taken.add(name.lower())
        return name

    def type_name(self, scope):
        names = [self.pick(_TYPE_NAMES)]
        others = [unit.name for unit in self.units] + [module.name for module in self.scopes[1:]]
        if others and self.maybe(25):
            names.insert(0, self.pick(others))
        if self.maybe(4):
            names.insert(0, self.pick(_KEYWORDS))
        return self.free(scope, names)

    def feature_name(self, scope, type_=None):
        """Often that of the feature's type, in small letters."""
        names = [self.pick(_FEATURE_NAMES)]
        used = model.mentioned(type_) if type_ else []
        if used and self.maybe(40):
            name = used[0].name
            names.insert(0, self.pick([name.lower(), name, self.owners[used[0]].name.lower() or name, scope.name]))
        if self.maybe(4):
            names.insert(0, self.pick(_KEYWORDS))
        return self.free(scope, names)

    def comment(self):
        for element in model.everything(self.model):
            if self.maybe(8) and not isinstance(element, (Model, Case)):
                element.comments.append(self.pick(_COMMENTS))

    # Modules and units.

    def make_modules(self):
        depths = {self.model: 0}
        for _ in range(self.chance.randint(1, 5)):
            owner = self.pick(scope for scope in self.scopes if depths[scope] < 3)
            names = [self.pick("MABCK")] + [scope.name for scope in self.scopes[1:] if self.maybe(30)][:1]
            module = self.add(Module(self.free(owner, names[::-1])), owner)
            depths[module] = depths[owner] + 1
            self.scopes.append(module)
        self.is_layered = self.maybe(50)  # the hidden order goes module by module

    def add(self, element, owner):
        owner.members.append(element)
        self.owners[element] = owner
        return element

    def add_unit(self, make, owner):
        unit = self.add(make(self.type_name(owner)), owner)
        self.units.append(unit)
        return unit

    def module(self):
        if not self.is_layered:
            return self.pick(self.scopes[1:])
        at = min(len(self.units) * len(self.scopes) // 14 + 1, len(self.scopes) - 1)
        return self.scopes[at]

    def announce_types(self):
        """Makes what can be announced, so that all others can use it."""
        self.announced = {}
        kinds = [(Interface, 60), (Value, 40)] + ([(Component, 60)] if self.has_components else [])
        for kind, percent in kinds:
            while self.maybe(percent) and len(self.announced) < 8:
                owner = self.model if kind is Interface and self.maybe(8) else self.pick(self.scopes[1:])
                element = self.add(kind(self.type_name(owner)), owner)
                self.announced[element] = None
        waiting = list(self.announced)
        self.chance.shuffle(waiting)
        for element in waiting:
            if isinstance(element, Interface):
                element.is_abstract = self.maybe(12)
                element.is_local = not element.is_abstract and self.maybe(12)
            elif isinstance(element, Value):
                element.is_event = self.maybe(60 if self.has_components else 0)
                element.is_abstract = self.maybe(20)
        self.waiting = waiting

    def make_unit(self):
        if self.waiting and self.maybe(60):
            self.units.append(self.waiting.pop())
            return
        makers = [
            self.make_constant, self.make_enumeration, self.make_typedef, self.make_sequence, self.make_struct,
            self.make_struct, self.make_exception, self.make_union, self.make_box, self.make_recursion,
        ]  # fmt: skip
        if self.has_components:
            makers += [self.make_home, self.make_composition] * 2
        self.pick(makers)(self.module())

    def prune(self):
        """Leaves no module that is empty; what is still waiting is filled last."""
        for element in self.waiting:
            self.units.append(element)
            self.fill(element)

    # Types.

    def reach(self, user, kinds):
        """What a user may need complete, of these kinds: what comes before it, and what is in it."""
        at = self.units.index(user) if user in self.units else len(self.units)
        found = []
        for unit in self.units[:at] + [user]:
            nested = unit.members if isinstance(unit, (Interface, Value)) else []
            found += [each for each in [unit, *nested] if isinstance(each, kinds) and each is not user]
        return found

    def interfaces(self, user):
        """Those that anyone may use."""
        return [each for each in self.reach(user, Interface) if not each.is_local]

    def named_type(self, user):
        soft = [each for each in self.announced if not getattr(each, "is_local", False)]
        hard = self.reach(user, (Struct, Union, Enumeration, Typedef, NamedSequence, Box))
        hard = [each for each in hard if not isinstance(each, ExceptionType)]
        choice = (soft if soft and (not hard or self.maybe(45)) else hard) or None
        return Named(self.pick(choice)) if choice else Basic(self.pick(_BASICS))

    def plain_type(self, user):
        """One that needs no template."""
        return Basic(self.pick(_BASICS)) if self.maybe(35) else self.named_type(user)

    def bound(self, user):
        constants = [each for each in self.reach(user, Constant) if self.is_count(each)]
        return self.pick(constants) if constants and self.maybe(50) else self.chance.randint(2, 9)

    @staticmethod
    def is_count(constant):
        base, value = basic_type(constant.type), evaluated(constant.value)
        is_integer = isinstance(base, Basic) and base.name in INTEGERS
        return is_integer and isinstance(value, Literal) and 1 < value.value < 1000 and not value.text.startswith("(")

    def template(self, user, may_be_array=True):
        kind = self.pick(["sequence"] * 4 + ["string", "fixed"] + ["array"] * may_be_array)
        if kind == "string":
            return String(self.bound(user), self.maybe(30))
        if kind == "fixed":
            digits = self.chance.randint(1, 31)
            return Fixed(digits, self.chance.randint(0, digits))
        if kind == "array":
            sizes = [self.bound(user) for _ in range(self.chance.randint(1, 2))]
            return Array(self.plain_type(user), sizes)
        element = self.template(user, False) if self.maybe(10) else self.plain_type(user)
        return Sequence(element, self.bound(user) if self.maybe(30) else None)

    def multiplicity(self, user):
        return Sequence(self.plain_type(user), self.bound(user) if self.maybe(35) else None, True)

    def type(self, user):
        """The type of a feature."""
        if self.maybe(15):
            return self.multiplicity(user)
        return self.template(user) if self.maybe(10) else self.plain_type(user)

    # Values.

    def integer(self, name):
        least, most = INTEGERS[name]
        value = self.pick([self.chance.randint(2, 9), self.chance.randint(2, 9), least, most, 0, self.chance.randint(least, most)])
        texts = ["", "", ""] + ([hex(value), f"0{value:o}"] if value >= 0 else [])
        return Literal(value, self.pick(texts))

    def literal(self, base):
        if isinstance(base, String):
            return Literal("ab"[: self.bound_of(base.bound)])
        if isinstance(base, Fixed):
            whole = "" if base.digits == base.scale else "7"
            text = whole + ("." + "5" * min(base.scale, 2) if base.scale else "")
            return Literal(Fraction(text if whole else "0" + text), (text if whole else "0" + text) + "d")
        if base.name in INTEGERS:
            return self.integer(base.name)
        if base.name in _FLOATS:
            return self.pick([Literal(0.5), Literal(-2.25), Literal(1500.0, "1.5e3"), Literal(3), Literal(0.125, ".125")])
        if base.name == "boolean":
            return Literal(self.maybe(50))
        return Literal(self.pick("xyz/") if base.name in ("char", "wchar") else self.pick(["", "Good day", "a/b", "it's"]))

    @staticmethod
    def bound_of(bound):
        return evaluated(bound.value).value if isinstance(bound, Constant) else bound

    def value_kind(self, type_):
        """The kind of the type's values: those of one kind can stand for each other, if they fit."""
        base = basic_type(type_)
        if isinstance(base, Named):
            return base.target if isinstance(base.target, Enumeration) else None
        if isinstance(base, Basic) and base.name in (*INTEGERS, *_FLOATS):
            return "integer" if base.name in INTEGERS else "float"
        kind = base.name if isinstance(base, Basic) else "wstring" if getattr(base, "is_wide", False) else type(base).__name__
        return None if kind in ("any", "Object", "Sequence", "Array") else kind.lower()

    def value(self, type_, user):
        base, kind = basic_type(type_), self.value_kind(type_)
        constants = [each for each in self.reach(user, Constant) if each is not user and self.fits(each, base, kind)]
        if constants and self.maybe(40):
            return Reference(self.pick(constants))
        return Reference(self.pick(kind.enumerators)) if isinstance(kind, Enumeration) else self.literal(base)

    def fits(self, constant, base, kind):
        if self.value_kind(constant.type) != kind or isinstance(base, (String, Fixed)):
            return False
        value = evaluated(constant.value)
        return kind != "integer" or INTEGERS[base.name][0] <= value.value <= INTEGERS[base.name][1]

    # Declarations of types and constants.

    def make_constant(self, owner):
        return self.add_unit(lambda name: Constant(name.upper(), Basic("short"), Literal(2)), owner) and self.fill(self.units[-1])

    def fill_constant(self, element):
        types = [Named(each) for each in self.reach(element, (Typedef, Enumeration))] + [Basic(name) for name in _BASICS]
        element.type = self.pick(type_ for type_ in types if self.value_kind(type_) is not None)
        element.value = self.value(element.type, element)

    def make_enumeration(self, owner):
        self.fill_enumeration(self.add_unit(Enumeration, owner))

    def fill_enumeration(self, element):
        scope = self.owners[element]
        for _ in range(self.chance.randint(1, 4)):
            name = self.free(scope, [self.pick(["RED", "GREEN", "OPEN", "item", "P", "Q", "state"])])
            self.own(element.enumerators, Enumerator(name), element)

    def own(self, group, child, element):
        group.append(child)
        self.owners[child] = element
        return child

    def make_typedef(self, owner):
        self.fill_typedef(self.add_unit(lambda name: Typedef(name, None), owner))

    def fill_typedef(self, element):
        element.type = self.template(element) if self.maybe(60) else self.plain_type(element)
        is_classifier = isinstance(element.type, Named) and not isinstance(element.type.target, Component)
        element.is_general = is_classifier and self.maybe(40)

    def make_sequence(self, owner):
        unit = self.add_unit(lambda name: NamedSequence(name, None), owner)
        unit.type = self.plain_type(unit)

    def make_struct(self, owner):
        self.fill_struct(self.add_unit(Struct, owner))

    def fill_struct(self, element):
        for _ in range(self.chance.randint(0 if isinstance(element, ExceptionType) else 1, 4)):
            type_ = Sequence(Named(element), None, True) if self.maybe(5) and type(element) is Struct else self.type(element)
            self.own(element.members, Member(self.feature_name(element, type_), type_), element)

    def make_exception(self, owner):
        self.fill_struct(self.add_unit(ExceptionType, owner))

    def make_union(self, owner):
        self.fill_union(self.add_unit(lambda name: Union(name, None), owner))

    def fill_union(self, element):
        enumerations = [Named(each) for each in self.reach(element, (Enumeration, Typedef))]
        plain = [Basic(name) for name in (*(set(INTEGERS) - {"octet"}), "char", "boolean")]
        plain.sort(key=lambda type_: type_.name)
        usable = [each for each in enumerations if self.labels_of(each)]
        element.switch = self.pick(usable if usable and self.maybe(60) else plain)
        labels = self.labels_of(element.switch)
        is_enumeration = isinstance(labels[0], Reference)
        element.is_simple = is_enumeration and self.maybe(25)
        self.chance.shuffle(labels)
        while labels and (not element.cases or self.maybe(60)):
            own = [labels.pop() for _ in range(min(len(labels), self.chance.randint(1, 2)))]
            self.add_case(element, [] if element.is_simple else own)
        if element.cases and labels and not element.is_simple and self.maybe(40):
            self.add_case(element, []).is_default = True

    def add_case(self, element, labels):
        type_ = self.type(element)
        return self.own(element.cases, Case(self.feature_name(element, type_), type_, labels), element)

    def labels_of(self, type_):
        """Labels that can be told apart; none when the type is no discriminator."""
        base = basic_type(type_)
        if isinstance(base, Named):
            return [Reference(each) for each in getattr(base.target, "enumerators", ())]
        if not isinstance(base, Basic) or base.name in ("octet", "wchar"):
            return []
        if base.name in INTEGERS:
            return [Literal(value) for value in ((-3, 7) if INTEGERS[base.name][0] < 0 else (3, 7)) + (0, 1)]
        texts = {"char": "xyz/"}.get(base.name, "")
        return [Literal(text, f"'{text}'") for text in texts] or [Literal(True), Literal(False)] * (base.name == "boolean")

    def make_box(self, owner):
        unit = self.add_unit(lambda name: Box(name, None), owner)
        unit.type = self.template(unit, False) if self.maybe(30) else self.plain_type(unit)
        base = basic_type(unit.type)
        if isinstance(base, Named) and isinstance(base.target, (Value, Box)):
            unit.type = Basic("long")

    def make_recursion(self, owner):
        """A struct that holds a named sequence of itself."""
        struct = self.add_unit(Struct, owner)
        kind = self.pick([NamedSequence, Typedef])
        named = self.add_unit(lambda name: kind(name, Named(struct)), self.pick([owner, self.pick(self.scopes[1:])]))
        if kind is Typedef:
            named.type = Sequence(Named(struct))
        self.fill_struct(struct)
        self.own(struct.members, Member(self.feature_name(struct, Named(named)), Named(named)), struct)

    # Interfaces, values, components and homes.

    def fill(self, element):
        getattr(self, f"fill_{type(element).__name__.lower()}")(element)
        return element

    def features(self, element):
        """What heirs of the element can't declare again, by the lower-case name."""
        kinds = (Attribute, Operation, StateMember, Port)
        found = {each.name.lower(): each for each in element.members if isinstance(each, kinds)}
        for base in (*element.bases, *getattr(element, "supports", ())):
            found |= self.features(base)
        return found

    def inherit(self, element, candidates, most, group="bases"):
        """Adds bases that don't clash with each other, and takes their names."""
        known = self.features(element)
        for base in self.some(candidates, most):
            new = self.features(base)
            if all(known.get(name, feature) is feature for name, feature in new.items()):
                getattr(element, group).append(base)
                known |= new
        self.taken.setdefault(element, set()).update(known)

    def fill_interface(self, element):
        bases = [each for each in self.reach(element, Interface) if each.is_abstract or not element.is_abstract]
        bases = [each for each in bases if element.is_local or not each.is_local]
        self.inherit(element, bases, 2)
        for _ in range(self.pick([0, 0, 1, 2])):
            self.make_nested(element)
        self.add_attributes(element)
        self.add_operations(element, self.chance.randint(0, 3))

    def make_nested(self, element):
        makers = {Enumeration: (), Struct: (), Typedef: (None,), ExceptionType: (), Constant: (Basic("short"), Literal(2)), Union: (None,)}
        kind = self.pick(makers)
        name = self.type_name(element)
        nested = self.add(kind(name.upper() if kind is Constant else name, *makers[kind]), element)
        element.members.remove(nested)  # so that it doesn't use itself
        self.units.insert(self.units.index(element), nested)
        getattr(self, f"fill_{kind.__name__.lower()}", self.fill_struct)(nested)
        self.units.remove(nested)
        element.members.append(nested)

    def fill_exceptiontype(self, element):
        self.fill_struct(element)

    def add_attributes(self, element):
        for _ in range(self.pick([0, 0, 1, 2])):
            type_ = self.type(element)
            self.add(Attribute(self.feature_name(element, type_), type_, self.maybe(40)), element)

    def add_operations(self, element, count, kind="operation"):
        for _ in range(count):
            made = self.add(Operation(self.feature_name(element), kind=kind), element)
            made.is_oneway = kind == "operation" and self.maybe(10)
            for _ in range(self.pick([0, 1, 1, 2])):
                type_ = self.type(element)
                parameter = self.own(made.parameters, Parameter(self.feature_name(made, type_), type_), made)
                if kind == "operation" and not made.is_oneway:
                    parameter.direction = self.pick(["in", "in", "inout", "out"])
            if not made.is_oneway:
                made.result = self.type(element) if kind == "operation" and self.maybe(50) else None
                exceptions = self.reach(element, ExceptionType) if kind == "operation" else []  # makers raise none
                made.raises = self.some(exceptions, 2) if self.maybe(30) else []
                made.context = ["PRINTER", "a.b*"] if kind == "operation" and self.maybe(4) else []

    def fill_value(self, element):
        values = [each for each in self.reach(element, Value) if each.is_event == element.is_event]
        self.inherit(element, [each for each in values if not each.is_abstract and not element.is_abstract], 1)
        if element.bases:
            element.is_custom = element.bases[0].is_custom or self.maybe(10)
            element.is_truncatable = not element.is_custom and self.maybe(40)
        else:
            element.is_custom = not element.is_abstract and self.maybe(10)
        self.inherit(element, [each for each in values if each.is_abstract and not each.supports], 1)
        if not any(self.supported(base) for base in element.bases):
            self.inherit(element, self.interfaces(element), 1, "supports")
        if self.maybe(25):
            self.make_nested(element)
        self.add_attributes(element)
        self.add_operations(element, self.pick([0, 1]))
        if not element.is_abstract:
            for _ in range(self.chance.randint(0, 3)):
                type_ = self.type(element)
                self.add(StateMember(self.feature_name(element, type_), type_, self.maybe(60)), element)
            self.add_operations(element, self.pick([0, 0, 1]), "factory")

    def supported(self, value):
        return value.supports or any(self.supported(base) for base in value.bases)

    def fill_component(self, element):
        self.inherit(element, self.reach(element, Component), 1)
        self.inherit(element, self.interfaces(element), 1, "supports")
        self.add_attributes(element)
        events = [each for each in self.reach(element, Value) if each.is_event]
        for _ in range(self.chance.randint(0, 4)):
            kind = self.pick(model.PORTS)
            choice = self.interfaces(element) if kind in ("provides", "uses", "uses multiple") else events
            if choice:
                target = self.pick(choice)
                self.add(Port(self.feature_name(element, Named(target)), kind, target), element)

    def make_home(self, owner):
        components = [each for each in self.units if isinstance(each, Component)]
        if not components:
            return
        self.add_unit(lambda name: Home(name, self.pick(components)), owner)

    def fill_home(self, home):
        homes = [each for each in self.reach(home, Home) if each.manages is home.manages]
        self.inherit(home, homes, 1)
        self.inherit(home, self.interfaces(home), 1, "supports")
        keys = [each for each in self.reach(home, Value) if not each.is_event and not each.is_abstract]
        home.key = self.pick(keys) if keys and self.maybe(50) else None
        for kind in ("factory", "finder", "operation"):
            self.add_operations(home, self.pick([0, 1]), kind)

    def make_composition(self, owner):
        homes = [each for each in self.units if isinstance(each, Home)]
        if not homes:
            return
        category = self.pick(["session", "service", "entity", "process"])
        scope = Module("")  # the composition's
        names = [self.free(scope, [self.pick(_TYPE_NAMES) + end]) for end in ("Maker", "Impl")]
        self.add_unit(lambda name: Composition(name, category, self.pick(homes), *names), owner)

    def fill_composition(self, made):
        facets = [each for each in made.home.manages.members if isinstance(each, Port) and each.kind == "provides"]
        while facets and made.category in ("entity", "process") and self.maybe(60):
            name = self.free(made, [self.pick(_TYPE_NAMES) + "Part"])
            self.add(Segment(name, [facets.pop()]), made)
