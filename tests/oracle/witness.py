"""Writes a model as IDL in the plainest way that could be legal: every name in full, every
declaration in an opening of its module of its own, behind all that it needs, and everything that can
be announced is.

When compilers take what is written here, the model has a legal form, and an export of it has to
succeed. When they don't, nothing is known of the model.
"""

import model
from idl3 import COMPOSITION_WORDS, KEYWORDS
from meaning import basic_type, evaluated
from model import Array, Case, Component, Composition, Constant, ExceptionType, Fixed, Home, Interface, Literal
from model import Member, Module, Named, NamedSequence, Reference, Sequence, String, Struct, Typedef, Union, Value


class NoWitness(Exception):
    """Declarations need each other in a circle."""


MAIN_FILE = "main.idl"


def files(drawn, is_one_file=True):
    """The texts of files by their names: of one, or of one for each module."""
    try:
        writer = _Writer(drawn)
        return {MAIN_FILE: writer.one_file()} if is_one_file else writer.files()
    except RecursionError:  # definitions of types lead back to themselves
        raise NoWitness("types are defined in a circle") from None


class _Writer:
    def __init__(self, drawn):
        self.drawn = drawn
        self.names, self.owners = model.scoped_names(drawn), model.owners(drawn)
        self.units = [each for each in model.everything(drawn) if self.is_unit(each)]
        self.keywords = dict(KEYWORDS)
        if any(isinstance(each, Composition) for each in self.units):
            self.keywords |= COMPOSITION_WORDS
        self.added = 0

    def is_unit(self, element):
        return isinstance(self.owners.get(element), (Module, model.Model)) and not isinstance(element, Module)

    # Order.

    def uses(self, user):
        """What an element itself uses, each with whether an announcement of it suffices."""
        if isinstance(user, Typedef):
            return self.type_uses(user.type, None, False)
        if isinstance(user, NamedSequence):
            return self.type_uses(user.type, None, True)
        typed = getattr(user, "type", None) or getattr(user, "result", None)
        holder = self.owners.get(user) if isinstance(user, (Member, Case)) else user
        found = [] if isinstance(user, Constant) or typed is None else self.type_uses(typed, holder, False)
        of_type = model.mentioned(typed) if found else []
        return found + [(each, False) for each in model.mentioned(user) if each not in of_type]

    def type_uses(self, type_, holder, in_sequence):
        """Without a holder the type is given a name, which a sequence of an announced struct may have;
        a struct may hold sequences of itself."""
        if isinstance(type_, Named):
            return self.target_uses(type_.target, holder, in_sequence)
        found = [(each, False) for each in (getattr(type_, "bound", None), *getattr(type_, "sizes", ()))]
        if isinstance(type_, (Sequence, Array)):
            found += self.type_uses(type_.element, holder, in_sequence or isinstance(type_, Sequence))
        return [use for use in found if isinstance(use[0], model.Element)]

    def target_uses(self, target, holder, in_sequence):
        if isinstance(target, (Interface, Value, Component)):
            return [(target, True)]
        if isinstance(target, (Struct, Union)):
            return [] if in_sequence and target is holder else [(target, holder is None and in_sequence)]
        waiting = [each for each, is_soft in self.uses(target) if is_soft and isinstance(each, (Struct, Union))]
        structs = [(each, holder is None and in_sequence) for each in waiting if each is not holder]
        return [(target, False)] + structs if isinstance(target, (Typedef, NamedSequence)) else [(target, False)]

    def is_inside(self, element, scope):
        while element is not None and element is not scope:
            element = self.owners.get(element)
        return element is scope

    def hard_uses(self, element):
        """What must stand before an element as a whole, itself left out."""
        found = {}
        for part in model.everything(element):
            for used, is_soft in self.uses(part):
                scope = self.owners.get(used)
                is_nested = not isinstance(scope, (Module, model.Model)) and not self.is_inside(part, scope)
                if not is_soft or is_nested:
                    found[used] = None
        return found

    def ordered(self, siblings):
        place = {part: each for each in siblings for part in model.everything(each)}
        needs = {each: [place[use] for use in self.hard_uses(each) if place.get(use, each) is not each] for each in siblings}
        done, open_ = {}, set()

        def visit(each):
            if each in open_:
                raise NoWitness(self.names[each])
            if each in done:
                return
            open_.add(each)
            for need in needs[each]:
                visit(need)
            open_.remove(each)
            done[each] = None

        for each in siblings:
            visit(each)
        return list(done)

    # Files.

    def one_file(self):
        lines = [line for unit in self.units for line in self.in_module(unit, self.announcement(unit))]
        return "\n".join(lines + [self.unit_text(unit) for unit in self.ordered(self.units)]) + "\n"

    def files(self):
        groups = {self.drawn: []}
        for unit in self.units:
            groups.setdefault(self.owners[unit], []).append(unit)
        self.ordered_modules(groups)
        return {self.file_name(module): self.file(module, units, groups) for module, units in groups.items()}

    def file_name(self, module):
        return MAIN_FILE if module is self.drawn else self.names[module].replace("::", "_") + ".idl"

    def needs(self, units, module):
        """The modules whose files come first: structs and unions are announced in their own file only."""
        uses = {use: None for unit in units for use in self.hard_uses(unit)}
        all_uses = [use for unit in units for part in model.everything(unit) for use, _ in self.uses(part)]
        uses |= {use: None for use in all_uses if isinstance(use, (Struct, Union))}
        return {self.module_of(use): None for use in uses if self.module_of(use) is not module}

    def module_of(self, element):
        while not isinstance(element, (Module, model.Model)):
            element = self.owners[element]
        return element

    def ordered_modules(self, groups):
        """Raises when files of modules need each other in a circle."""
        done = []

        def visit(module, open_):
            if module in open_:
                raise NoWitness(self.names[module])
            if module not in done:
                for need in self.needs(groups[module], module):
                    visit(need, open_ + [module])
                done.append(module)

        for module in groups:
            visit(module, [])

    def file(self, module, units, groups):
        needs = self.needs(units, module)
        used = {each for unit in units for part in model.everything(unit) for each, _ in self.uses(part)}
        soft = [each for each in self.units if each in used or each in units]
        guard = self.file_name(module).replace(".", "_")
        lines = [f"#ifndef {guard}", f"#define {guard}"]
        announced = [each for each in soft if each in units or not isinstance(each, (Struct, Union))]
        lines += [line for each in announced for line in self.in_module(each, self.announcement(each))]
        lines += [f'#include "{self.file_name(each)}"' for each in needs]
        lines += [self.unit_text(unit) for unit in self.ordered(units)]
        later = {self.module_of(each): None for each in soft if self.module_of(each) is not module}
        lines += [f'#include "{self.file_name(each)}"' for each in later]
        return "\n".join(lines + ["#endif", ""])

    def in_module(self, unit, text):
        """The text in the modules around the unit; none when there is no text."""
        module = self.owners[unit]
        while text and module is not self.drawn:
            text = f"module {self.spelled(module.name)} {{ {text} }};"
            module = self.owners[module]
        return [text] if text else []

    def unit_text(self, unit):
        return "\n".join(self.in_module(unit, self.declaration(unit)))

    # Names and types.

    def spelled(self, name):
        return "_" + name if name.lower() in self.keywords else name

    def full(self, element):
        return "::" + "::".join(map(self.spelled, self.names[element].split("::")))

    def full_names(self, word, elements):
        return f" {word} {', '.join(map(self.full, elements))}" if elements else ""

    def bound(self, bound):
        return self.full(bound) if isinstance(bound, Constant) else str(bound)

    def type(self, type_):
        if type_ is None:
            return "void"
        if isinstance(type_, model.Basic):
            return type_.name
        if isinstance(type_, Named):
            return self.full(type_.target)
        if isinstance(type_, Fixed):
            return f"fixed<{type_.digits}, {type_.scale}>"
        if isinstance(type_, String):
            return f"{'w' if type_.is_wide else ''}string<{self.bound(type_.bound)}>"
        bound = "" if type_.bound is None else f", {self.bound(type_.bound)}"
        return f"sequence<{self.type(type_.element)}{bound} >"

    def declared(self, type_, name):
        """A name with its type, as members and type definitions have it."""
        sizes = ""
        if isinstance(type_, Array):
            sizes = "".join(f"[{self.bound(size)}]" for size in type_.sizes)
            type_ = type_.element
        return f"{self.type(type_)} {self.spelled(name)}{sizes}"

    def passed(self, type_, before):
        """A type as operations and attributes have it; what needs a name is given one before."""
        if not isinstance(type_, (Sequence, Array, Fixed)):
            return self.type(type_)
        self.added += 1
        before.append(f"typedef {self.declared(type_, f'Added_{self.added}')};")
        return f"Added_{self.added}"

    def value(self, value, type_):
        leads_to = evaluated(value)
        if isinstance(value, Reference):
            return self.full(value.target)
        base = basic_type(type_)
        kind = base.name if isinstance(base, model.Basic) else type(base).__name__
        return leads_to.text or literal_text(leads_to.value, kind, getattr(base, "is_wide", False))

    # Declarations.

    def announcement(self, element):
        if isinstance(element, Interface):
            words = "abstract " * element.is_abstract + "local " * element.is_local + "interface"
        elif isinstance(element, Value):
            words = "abstract " * element.is_abstract + ("eventtype" if element.is_event else "valuetype")
        elif isinstance(element, Component):
            words = "component"
        elif isinstance(element, (Struct, Union)) and not isinstance(element, ExceptionType):
            words = "union" if isinstance(element, Union) else "struct"
        else:
            return ""
        return f"{words} {self.spelled(element.name)};"

    def declaration(self, element):
        return getattr(self, f"write_{type(element).__name__.lower()}")(element)

    def write_constant(self, element):
        value = self.value(element.value, element.type)
        return f"const {self.type(element.type)} {self.spelled(element.name)} = {value};"

    def write_enumeration(self, element):
        names = ", ".join(self.spelled(each.name) for each in element.enumerators)
        return f"enum {self.spelled(element.name)} {{ {names} }};"

    def write_typedef(self, element):
        return f"typedef {self.declared(element.type, element.name)};"

    def write_namedsequence(self, element):
        return f"typedef sequence<{self.type(element.type)} > {self.spelled(element.name)};"

    def write_struct(self, element, word="struct"):
        members = " ".join(self.declared(each.type, each.name) + ";" for each in element.members)
        return f"{word} {self.spelled(element.name)} {{ {members} }};"

    def write_exceptiontype(self, element):
        return self.write_struct(element, "exception")

    def write_union(self, element):
        cases = " ".join(self.case(element, case) for case in element.cases)
        return f"union {self.spelled(element.name)} switch ({self.type(element.switch)}) {{ {cases} }};"

    def case(self, union, case):
        labels = case.labels
        if union.is_simple:
            labels = [Reference(basic_type(union.switch).target.enumerators[union.cases.index(case)])]
        texts = [f"case {self.value(label, union.switch)}:" for label in labels] + ["default:"] * case.is_default
        return " ".join(texts + [self.declared(case.type, case.name) + ";"])

    def write_box(self, element):
        return f"valuetype {self.spelled(element.name)} {self.type(element.type)};"

    def body(self, element, before):
        """What stands in an interface and the like; types that were added for it are appended."""
        features = (model.Attribute, model.Operation, model.StateMember, model.Port)
        types = self.ordered([each for each in element.members if not isinstance(each, features)])
        texts = [self.announcement(each) for each in types] + [self.declaration(each) for each in types]
        rest = [getattr(self, f"write_{type(each).__name__.lower()}")(each, before) for each in element.members if each not in types]
        if not isinstance(element, Component):
            texts += before
            before.clear()
        return f" {{ {' '.join(texts + rest)} }};"

    def write_interface(self, element):
        heading = self.announcement(element)[:-1] + self.full_names(":", element.bases)
        return heading + self.body(element, [])

    def value_heading(self, element):
        bases = self.full_names(": truncatable" if element.is_truncatable else ":", element.bases)
        return bases + self.full_names("supports", element.supports)

    def write_attribute(self, element, before):
        words = "readonly attribute" if element.is_readonly else "attribute"
        return f"{words} {self.passed(element.type, before)} {self.spelled(element.name)};"

    def write_operation(self, element, before):
        heads = {"factory": "factory", "finder": "finder"}
        head = heads.get(element.kind) or "oneway " * element.is_oneway + self.passed(element.result, before)
        parameters = ", ".join(
            f"{each.direction} {self.passed(each.type, before)} {self.spelled(each.name)}" for each in element.parameters
        )
        raises = f" raises ({', '.join(map(self.full, element.raises))})" if element.raises else ""
        context = ", ".join(f'"{name}"' for name in element.context)
        return f"{head} {self.spelled(element.name)}({parameters}){raises}{f' context ({context})' if context else ''};"

    def write_statemember(self, element, before):
        return f"{'public' if element.is_public else 'private'} {self.declared(element.type, element.name)};"

    def write_port(self, element, before):
        return f"{element.kind} {self.full(element.target)} {self.spelled(element.name)};"

    def write_value(self, element):
        heading = "custom " * element.is_custom + self.announcement(element)[:-1] + self.value_heading(element)
        return heading + self.body(element, [])

    def write_component(self, element):
        heading = self.announcement(element)[:-1] + self.full_names(":", element.bases)
        before = []
        text = heading + self.full_names("supports", element.supports) + self.body(element, before)
        return " ".join(before + [text])

    def write_home(self, element):
        heading = f"home {self.spelled(element.name)}{self.full_names(':', element.bases)}"
        heading += self.full_names("supports", element.supports) + f" manages {self.full(element.manages)}"
        heading += self.full_names("primarykey", [element.key] if element.key else [])
        return heading + self.body(element, [])

    def write_composition(self, element):
        segments = " ".join(
            f"segment {self.spelled(each.name)} {{ provides facet {', '.join(self.spelled(facet.name) for facet in each.facets)}; }}"
            for each in element.members
        )
        return (
            f"composition {element.category} {self.spelled(element.name)} {{"
            f" home executor {self.spelled(element.executor)} {{ implements {self.full(element.home)};"
            f" manages {self.spelled(element.implementation)} {{ {segments} }}; }}; }};"
        )


_ESCAPES = {"\\": "\\\\", '"': '\\"', "'": "\\'", "\n": "\\n", "\t": "\\t"}


def literal_text(value, kind, is_wide=False):
    """A literal as IDL writes it for a type of that kind."""
    if isinstance(value, bool):
        return str(value).upper()
    if isinstance(value, str):
        wide = "L" if is_wide or kind in ("wchar", "wstring") else ""
        quote = "'" if kind in ("char", "wchar") else '"'
        return wide + quote + "".join(_ESCAPES.get(letter, letter) for letter in value) + quote
    if kind in ("float", "double", "long double"):
        return repr(float(value))
    return str(value)
