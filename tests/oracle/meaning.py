"""What declarations of IDL mean, whoever tells it: a compiler of its files or the model.

A meaning maps the scoped name of each declaration ("A::B") to a record: a dictionary with its kind
and what makes it up. Types in it are `Type`s with every name resolved, so that spelling, order and
forward declarations leave no trace. `differences` compares what a model means with what files mean.
"""

import struct
from fractions import Fraction

import model


class Type(tuple):
    """A type as a tuple: ("long",), ("name", SCOPED_NAME), ("string", BOUND), ("fixed", DIGITS,
    SCALE), ("sequence", ELEMENT, BOUND) or ("array", ELEMENT, SIZE). A bound of 0 is none; an array
    of several dimensions is an array of arrays.
    """

    __slots__ = ()

    def __str__(self):
        if self[0] == "name":
            return self[1]
        parts = [str(part) for part in self[1:] if part != 0]
        return self[0] + (f"<{', '.join(parts)}>" if parts else "")

    __repr__ = __str__


def array(element, sizes):
    """The array of these sizes, the outermost first."""
    for size in reversed(sizes):
        element = Type(("array", element, size))
    return element


def is_template(type_):
    """Whether it is one that IDL wants to have a name."""
    return type_[0] in ("sequence", "array", "fixed") or type_[0] in ("string", "wstring") and type_[1] > 0


def constant_value(base, value):
    """A constant's value as it stands in a record. `base` is the kind of its basic type."""
    if base == "float":
        return struct.unpack("f", struct.pack("f", value))[0]
    if base in ("double", "long double"):
        return float(value)
    if base == "fixed":
        return str(Fraction(value))
    if base == "boolean":
        return bool(value)
    return value


# --- The meaning of a model ---------------------------------------------------------------------------


def of_model(drawn):
    """What the model says; packages in which nothing is declared say nothing."""
    told = _Teller(drawn)
    for element in model.everything(drawn):
        told.tell(element)
    return told.meaning


def basic_type(type_):
    """Without the type definitions that it is behind."""
    while isinstance(type_, model.Named) and isinstance(type_.target, model.Typedef):
        type_ = type_.target.type
    return type_


def evaluated(value):
    """The literal or the enumerator that a value leads to."""
    while isinstance(value, model.Reference) and isinstance(value.target, model.Constant):
        value = value.target.value
    return value


class _Teller:
    def __init__(self, drawn):
        self.names = model.scoped_names(drawn)
        self.meaning = {}

    def tell(self, element):
        """Parts of declarations have no record of their own."""
        if isinstance(element, model.Module) and all(isinstance(each, model.Module) for each in model.everything(element)):
            return
        teller = getattr(self, f"tell_{type(element).__name__.lower()}", None)
        if teller is not None:
            self.meaning[self.names[element]] = teller(element)

    def all_names(self, elements):
        return [self.names[element] for element in elements]

    def type(self, type_):
        if type_ is None:
            return Type(("void",))
        if isinstance(type_, model.Basic):
            return Type((type_.name, 0) if type_.name in ("string", "wstring") else (type_.name,))
        if isinstance(type_, model.Named):
            return Type(("name", self.names[type_.target]))
        if isinstance(type_, model.Sequence):
            return Type(("sequence", self.type(type_.element), self.bound(type_.bound)))
        if isinstance(type_, model.Array):
            return array(self.type(type_.element), [self.bound(size) for size in type_.sizes])
        if isinstance(type_, model.Fixed):
            return Type(("fixed", type_.digits, type_.scale))
        return Type(("wstring" if type_.is_wide else "string", self.bound(type_.bound)))

    def bound(self, bound):
        return evaluated(bound.value).value if isinstance(bound, model.Constant) else bound or 0

    def value(self, value):
        literal = evaluated(value)
        return self.names[literal.target] if isinstance(literal, model.Reference) else literal.value

    def tell_constant(self, element):
        base = basic_type(element.type)
        kind = base.name if isinstance(base, model.Basic) else "fixed" if isinstance(base, model.Fixed) else ""
        told = constant_value(kind, self.value(element.value))
        return {"kind": "constant", "type": self.type(element.type), "value": told}

    def tell_module(self, element):
        return {"kind": "module"}

    def tell_enumeration(self, element):
        return {"kind": "enumeration", "enumerators": [each.name for each in element.enumerators]}

    def tell_typedef(self, element):
        return {"kind": "typedef", "type": self.type(element.type)}

    def tell_namedsequence(self, element):
        return {"kind": "typedef", "type": Type(("sequence", self.type(element.type), 0))}

    def tell_struct(self, element):
        return {"kind": "struct", "members": [[each.name, self.type(each.type)] for each in element.members]}

    def tell_exceptiontype(self, element):
        return self.tell_struct(element) | {"kind": "exception"}

    def tell_union(self, element):
        cases = [[self.labels(element, case), case.name, self.type(case.type)] for case in element.cases]
        return {"kind": "union", "switch": self.type(element.switch), "cases": cases}

    def labels(self, union, case):
        if union.is_simple:
            enumerators = basic_type(union.switch).target.enumerators
            return [self.names[enumerators[union.cases.index(case)]]]
        return sorted([str(self.value(label)) for label in case.labels] + ["default"] * case.is_default)

    def tell_box(self, element):
        return {"kind": "boxed value", "type": self.type(element.type)}

    def contents(self, element, **groups):
        """The attributes, and the operations of each kind under the name of their group."""
        attributes = [each for each in element.members if isinstance(each, model.Attribute)]
        record = {"attributes": {each.name: self.attribute(each) for each in attributes}}
        operations = [each for each in element.members if isinstance(each, model.Operation)]
        for group, kind in groups.items():
            record[group] = {each.name: self.operation(each) for each in operations if each.kind == kind}
        return record

    def attribute(self, element):
        return {"readonly": element.is_readonly, "type": self.type(element.type), "raises": {"get": [], "set": []}}

    def operation(self, element):
        record = {
            "parameters": [[each.direction, each.name, self.type(each.type)] for each in element.parameters],
            "raises": sorted(self.all_names(element.raises)),
        }
        if element.kind == "operation":
            record |= {"oneway": element.is_oneway, "result": self.type(element.result), "context": element.context}
        return record

    def tell_interface(self, element):
        return {
            "kind": "interface", "abstract": element.is_abstract, "local": element.is_local,
            "bases": self.all_names(element.bases), **self.contents(element, operations="operation"),
        }  # fmt: skip

    def tell_value(self, element):
        state = [each for each in element.members if isinstance(each, model.StateMember)]
        return {
            "kind": "event type" if element.is_event else "value type", "abstract": element.is_abstract,
            "custom": element.is_custom, "truncatable": element.is_truncatable,
            "bases": self.all_names(element.bases), "supports": self.all_names(element.supports),
            "state": [[("private", "public")[each.is_public], each.name, self.type(each.type)] for each in state],
            **self.contents(element, operations="operation", factories="factory"),
        }  # fmt: skip

    def tell_component(self, element):
        ports = [each for each in element.members if isinstance(each, model.Port)]
        return {
            "kind": "component", "bases": self.all_names(element.bases), "supports": self.all_names(element.supports),
            "ports": {each.name: [each.kind, self.names[each.target]] for each in ports}, **self.contents(element),
        }  # fmt: skip

    def tell_home(self, element):
        return {
            "kind": "home", "bases": self.all_names(element.bases), "supports": self.all_names(element.supports),
            "manages": self.names[element.manages], "key": self.names[element.key] if element.key else "",
            **self.contents(element, operations="operation", factories="factory", finders="finder"),
        }  # fmt: skip

    def tell_composition(self, element):
        return {
            "kind": "composition", "category": element.category, "home executor": element.executor,
            "implements": self.names[element.home], "manages": element.implementation,
            "segments": {each.name: sorted(facet.name for facet in each.facets) for each in element.members},
        }  # fmt: skip


# --- Comparing ----------------------------------------------------------------------------------------


def merged(meanings):
    """The union of what several files mean, and where two of them say different things."""
    union, conflicts = {}, []
    for file, meaning in meanings:
        for name, record in meaning.items():
            if union.setdefault(name, record) != record:
                conflicts.append(f"{name}: means something else in {file}: {record}, not {union[name]}")
    return union, conflicts


class _Comparison:
    def __init__(self, expected, actual):
        self.expected = expected
        self.actual = actual
        self.found = []
        self.added = {
            name
            for name, record in actual.items()
            if name not in expected and record["kind"] == "typedef" and is_template(record["type"])
        }

    def run(self):
        for name, record in self.expected.items():
            if name not in self.actual:
                self.found.append(f"{name}: the {record['kind']} is missing")
            else:
                self.compare(name, record, self.actual[name])
        for name, record in self.actual.items():
            if name not in self.expected and name not in self.added:
                self.found.append(f"{name}: a {record['kind']} that the model doesn't have")
        return self.found

    def compare(self, path, expected, actual):
        if isinstance(expected, Type) and isinstance(actual, Type):
            if not self.is_same_type(expected, actual):
                self.found.append(f"{path}: {actual} instead of {expected}")
        elif isinstance(expected, dict) and isinstance(actual, dict):
            self.compare_entries(path, expected, actual)
        elif isinstance(expected, list) and isinstance(actual, list) and len(expected) == len(actual):
            for number, (wanted, given) in enumerate(zip(expected, actual)):
                self.compare(f"{path}[{number}]", wanted, given)
        elif expected != actual:
            self.found.append(f"{path}: {actual!r} instead of {expected!r}")

    def compare_entries(self, path, expected, actual):
        for key in expected.keys() | actual.keys():
            if key not in actual:
                self.found.append(f"{path}.{key}: is missing")
            elif key not in expected:
                self.found.append(f"{path}.{key}: the model doesn't have it")
            else:
                self.compare(f"{path}.{key}", expected[key], actual[key])

    def is_same_type(self, expected, actual):
        """A template without a name may be written as any type definition that stands for it; a
        type that has a name can't be written as another."""
        if is_template(expected):
            while actual[0] == "name" and self.actual.get(actual[1], {}).get("kind") == "typedef":
                actual = self.actual[actual[1]]["type"]
        if len(expected) != len(actual) or expected[0] != actual[0]:
            return False
        return all(
            self.is_same_type(wanted, given) if isinstance(wanted, Type) else wanted == given
            for wanted, given in zip(expected[1:], actual[1:])
        )


def differences(expected, actual):
    """How what files mean differs from what the model means, one line each; empty if it doesn't.
    Type definitions that were added for templates without a name are no difference."""
    return sorted(_Comparison(expected, actual).run())
