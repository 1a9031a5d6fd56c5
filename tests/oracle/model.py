"""Models of IDL declarations, and the XMI files in which idlexport reads them.

What is used is referred to by the element itself. `members`, `enumerators`, `cases` and `parameters`
are what an element owns, in the order in which it is drawn.
"""

import dataclasses
import xml.etree.ElementTree as xml
from dataclasses import dataclass, field

# --- Types and values -------------------------------------------------------------------------------


@dataclass(eq=False)
class Basic:
    name: str  # as IDL writes it


@dataclass(eq=False)
class Named:
    target: "Element"


@dataclass(eq=False)
class Sequence:
    element: object
    bound: object = None  # None, a number or a `Constant`
    is_multiplicity: bool = False  # drawn so, where the element's type stands


@dataclass(eq=False)
class String:
    bound: object
    is_wide: bool = False


@dataclass(eq=False)
class Fixed:
    digits: int
    scale: int


@dataclass(eq=False)
class Array:
    element: object
    sizes: list  # of numbers or `Constant`s


@dataclass(eq=False)
class Literal:
    value: object  # an integer, a float, a truth, a text, or a `Fraction` of a fixed-point number
    text: str = ""  # as it is written, where that isn't the usual way


@dataclass(eq=False)
class Reference:
    target: "Element"  # a `Constant` or an `Enumerator`


# --- Elements ---------------------------------------------------------------------------------------


@dataclass(eq=False)
class Element:
    name: str
    comments: list = field(default_factory=list, kw_only=True)


@dataclass(eq=False)
class Module(Element):
    members: list = field(default_factory=list)


@dataclass(eq=False)
class Constant(Element):
    type: object
    value: object


@dataclass(eq=False)
class Enumerator(Element):
    pass


@dataclass(eq=False)
class Enumeration(Element):
    enumerators: list = field(default_factory=list)


@dataclass(eq=False)
class Typedef(Element):
    type: object
    is_general: bool = False  # drawn as a generalization


@dataclass(eq=False)
class NamedSequence(Element):
    """A class marked CORBASequence."""

    type: object  # of its elements


@dataclass(eq=False)
class Member(Element):
    type: object


@dataclass(eq=False)
class Struct(Element):
    members: list = field(default_factory=list)


@dataclass(eq=False)
class ExceptionType(Struct):
    pass


@dataclass(eq=False)
class Case(Element):
    type: object
    labels: list = field(default_factory=list)  # of values
    is_default: bool = False


@dataclass(eq=False)
class Union(Element):
    switch: object
    cases: list = field(default_factory=list)
    is_simple: bool = False


@dataclass(eq=False)
class Box(Element):
    type: object


@dataclass(eq=False)
class Attribute(Element):
    type: object
    is_readonly: bool = False


@dataclass(eq=False)
class Parameter(Element):
    type: object
    direction: str = "in"


@dataclass(eq=False)
class Operation(Element):
    result: object = None  # None is void
    parameters: list = field(default_factory=list)
    raises: list = field(default_factory=list)
    context: list = field(default_factory=list)
    is_oneway: bool = False
    kind: str = "operation"  # or "factory", "finder"


@dataclass(eq=False)
class Interface(Element):
    bases: list = field(default_factory=list)
    members: list = field(default_factory=list)
    is_abstract: bool = False
    is_local: bool = False


@dataclass(eq=False)
class StateMember(Element):
    type: object
    is_public: bool = True


@dataclass(eq=False)
class Value(Element):
    bases: list = field(default_factory=list)
    supports: list = field(default_factory=list)
    members: list = field(default_factory=list)
    is_event: bool = False
    is_abstract: bool = False
    is_custom: bool = False
    is_truncatable: bool = False


PORTS = {  # by their IDL: the mark, its settings, and whether the port is conjugated
    "provides": ("CORBAFacet", {}, False),
    "uses": ("CORBAReceptacle", {}, True),
    "uses multiple": ("CORBAReceptacle", {"isMultiple": "true"}, True),
    "consumes": ("CORBAEventSink", {}, False),
    "publishes": ("CORBAEventSource", {}, True),
    "emits": ("CORBAEventSource", {"sourceKind": "Emitter"}, True),
}


@dataclass(eq=False)
class Port(Element):
    kind: str
    target: Element


@dataclass(eq=False)
class Component(Element):
    bases: list = field(default_factory=list)
    supports: list = field(default_factory=list)
    members: list = field(default_factory=list)


@dataclass(eq=False)
class Home(Element):
    manages: Element
    key: Element = None
    bases: list = field(default_factory=list)
    supports: list = field(default_factory=list)
    members: list = field(default_factory=list)


@dataclass(eq=False)
class Segment(Element):
    facets: list = field(default_factory=list)


@dataclass(eq=False)
class Composition(Element):
    category: str
    home: Home
    executor: str  # the name of the home's executor
    implementation: str  # the name of the component's
    members: list = field(default_factory=list)


@dataclass(eq=False)
class Model(Element):
    """Its members are modules and interfaces, all of which are exported."""

    members: list = field(default_factory=list)


_OWNED = ("members", "enumerators", "cases", "parameters")


def children(element):
    return [child for name in _OWNED for child in getattr(element, name, ())]


def lists_of_children(element):
    return [getattr(element, name) for name in _OWNED if hasattr(element, name)]


def everything(element):
    """The element and all that it owns, from the outside in."""
    yield element
    for child in children(element):
        yield from everything(child)


def mentioned(thing):
    """The elements that an element, a type or a value refers to directly."""
    found = []
    for each in dataclasses.fields(thing):
        values = () if each.name in _OWNED else getattr(thing, each.name)
        for value in values if isinstance(values, (list, tuple)) else [values]:
            if isinstance(value, Element):
                found.append(value)
            elif dataclasses.is_dataclass(value):
                found += mentioned(value)
    return found


def owners(model):
    """The owner of each element."""
    return {child: element for element in everything(model) for child in children(element)}


def scoped_names(model):
    """The IDL name of each element: an enumerator's is beside its enumeration's."""
    names = {model: ""}
    for element in everything(model):
        scope = names[element].rpartition("::")[0] if isinstance(element, Enumeration) else names[element]
        for child in children(element):
            names[child] = f"{scope}::{child.name}" if scope else child.name
    return names


# --- XMI --------------------------------------------------------------------------------------------

_NAMESPACES = {
    "xmi:version": "20131001",
    "xmlns:xmi": "http://www.omg.org/spec/XMI/20131001",
    "xmlns:xsi": "http://www.w3.org/2001/XMLSchema-instance",
    "xmlns:CORBA": "http://idlexport/schemas/CORBA/1",
    "xmlns:ecore": "http://www.eclipse.org/emf/2002/Ecore",
    "xmlns:uml": "http://www.eclipse.org/uml2/5.0.0/UML",
}
_LIBRARY = "CORBA.library.uml#"
_PROFILE = "CORBA.profile.uml#"
_TEMPLATES = {Sequence: "sequence", String: "string", Fixed: "fixed", Array: "array"}


def write_xmi(model, path, mapping="ONE_FILE"):
    """Writes the model with one artifact, which exports all of it into a file of its name."""
    tree = xml.ElementTree(_Writer(model, mapping).written())
    xml.indent(tree)
    tree.write(path, encoding="UTF-8", xml_declaration=True)


def _truth(**values):
    return {name: "true" for name, value in values.items() if value}


class _Writer:
    def __init__(self, model, mapping):
        self.model, self.mapping = model, mapping
        self.ids = {element: f"e{number}" for number, element in enumerate(everything(model))}
        self.owners, self.names = owners(model), scoped_names(model)
        self.marks = []
        self.bindings = {}
        self.last_id = 0

    def written(self):
        root = xml.Element("xmi:XMI", _NAMESPACES)
        top = xml.SubElement(root, "uml:Model", {"xmi:id": self.ids[self.model], "name": self.model.name})
        self.write_members(top, self.model.members)
        templates = self.packaged(top, "Package", "templates")
        for key, type_ in _growing(self.bindings):
            self.write_binding(templates, key, type_)
        self.write_artifact(top)
        application = xml.SubElement(top, "profileApplication")
        xml.SubElement(application, "appliedProfile", {"href": _PROFILE + "CORBA_profile"})
        root.extend(self.marks)
        return root

    def write_artifact(self, top):
        artifact = self.packaged(top, "Artifact", "files", self.model.name)
        for member in self.model.members:
            ends = {"client": "files", "supplier": self.ids[member], "utilizedElement": self.ids[member]}
            xml.SubElement(artifact, "manifestation", ends)
        self.mark("IDLGenerator", "Artifact", "files", fileMapping=self.mapping)

    # Pieces.

    def packaged(self, parent, metaclass, id_, name=None, tag="packagedElement", **attributes):
        names = {} if name is None else {"name": name}
        return xml.SubElement(parent, tag, {"xmi:type": f"uml:{metaclass}", "xmi:id": id_} | names | attributes)

    def new_id(self):
        self.last_id += 1
        return f"n{self.last_id}"

    def mark(self, stereotype, metaclass, id_, **settings):
        made = xml.Element(f"CORBA:{stereotype}", {f"base_{metaclass}": id_} | settings)
        self.marks.append(made)
        return made

    def classifier(self, parent, element, metaclass, stereotype, settings=None, **attributes):
        """An element of a package or nested in a class."""
        tag = "nestedClassifier" if parent.get("xmi:type") in ("uml:Class", "uml:Interface") else "packagedElement"
        made = self.packaged(parent, metaclass, self.ids[element], element.name, tag, **attributes)
        self.mark(stereotype, metaclass, self.ids[element], **(settings or {}))
        self.comment(made, element)
        return made

    def feature(self, parent, tag, element, **attributes):
        made = xml.SubElement(parent, tag, {"xmi:id": self.ids[element], "name": element.name} | attributes)
        self.comment(made, element)
        return made

    def comment(self, parent, element):
        for text in element.comments:
            xml.SubElement(xml.SubElement(parent, "ownedComment"), "body").text = text

    def dependency(self, parent, stereotype, client, supplier):
        id_ = self.new_id()
        self.packaged(parent, "Dependency", id_, client=client, supplier=supplier)
        self.mark(stereotype, "Dependency", id_)

    def relations(self, made, element):
        """Generalizations and realizations."""
        for number, base in enumerate(element.bases):
            id_ = self.new_id()
            xml.SubElement(made, "generalization", {"xmi:id": id_, "general": self.ids[base]})
            if number == 0 and getattr(element, "is_truncatable", False):
                self.mark("CORBATruncatable", "Generalization", id_)
        for interface in getattr(element, "supports", ()):
            ends = {"client": self.ids[element], "supplier": self.ids[interface], "contract": self.ids[interface]}
            xml.SubElement(made, "interfaceRealization", ends)

    # Types and values.

    def write_type(self, parent, type_):
        upper = None
        if isinstance(type_, Sequence) and type_.is_multiplicity:
            upper, type_ = type_, type_.element
        if isinstance(type_, Named):
            parent.set("type", self.ids[type_.target])
        elif isinstance(type_, Basic):
            self.library_type(parent, "type", type_)
        else:
            parent.set("type", self.binding(type_))
        if upper is not None:
            xml.SubElement(parent, "lowerValue", {"xmi:type": "uml:LiteralInteger"})
            self.write_upper(parent, upper.bound)

    def library_type(self, parent, tag, type_):
        href = _LIBRARY + type_.name.replace(" ", "_")
        xml.SubElement(parent, tag, {"xmi:type": "uml:PrimitiveType", "href": href})

    def write_upper(self, parent, bound):
        if isinstance(bound, Constant):
            self.opaque(parent, "upperValue", self.name_for(bound, parent))
        else:
            value = "*" if bound is None else str(bound)
            xml.SubElement(parent, "upperValue", {"xmi:type": "uml:LiteralUnlimitedNatural", "value": value})

    def opaque(self, parent, tag, text):
        xml.SubElement(xml.SubElement(parent, tag, {"xmi:type": "uml:OpaqueExpression"}), "body").text = text

    def name_for(self, constant, user):
        """By its simple name, when that can't be taken for something else on the way outward."""
        ids = {id_: element for element, id_ in self.ids.items()}
        scope = ids[user.get("xmi:id").removesuffix(".result")]
        while scope in self.owners:
            scope = self.owners[scope]
            if any(child.name.lower() == constant.name.lower() for child in children(scope)):
                return constant.name if self.owners[constant] is scope else self.names[constant]
        return self.names[constant]

    def binding(self, type_):
        """The id of the data type that binds a template, one for all types that are the same."""
        key = self.binding_key(type_)
        self.bindings.setdefault(key, type_)
        return key

    def binding_key(self, type_):
        parts = [_TEMPLATES[type(type_)], "wide" if getattr(type_, "is_wide", False) else ""]
        for part in self.actuals(type_):
            if isinstance(part, Named):
                parts.append(self.ids[part.target])
            elif isinstance(part, Basic):
                parts.append(part.name.replace(" ", "_"))
            elif isinstance(part, Constant):
                parts.append(self.ids[part])
            else:
                parts.append(str(part) if isinstance(part, int) else self.binding_key(part))
        return ".".join(filter(None, parts))

    @staticmethod
    def actuals(type_):
        if isinstance(type_, Sequence):
            return [type_.element] + ([] if type_.bound is None else [type_.bound])
        if isinstance(type_, Array):
            return [type_.element] + type_.sizes
        return [type_.bound] if isinstance(type_, String) else [type_.digits, type_.scale]

    def write_binding(self, parent, id_, type_):
        made = self.packaged(parent, "DataType", id_, id_)
        template = "wstring" if getattr(type_, "is_wide", False) else _TEMPLATES[type(type_)]
        bound = xml.SubElement(made, "templateBinding")
        signature = f"{_LIBRARY}{template}_signature"
        xml.SubElement(bound, "signature", {"xmi:type": "uml:RedefinableTemplateSignature", "href": signature})
        formals = {"sequence": ("element", "bound"), "array": ("element", "size"), "fixed": ("digits", "scale")}
        formal = formals.get(template, ("bound",))
        for number, actual in enumerate(self.actuals(type_)):
            self.write_actual(bound, f"{template}_{formal[min(number, len(formal) - 1)]}", actual)

    def write_actual(self, parent, formal, actual):
        made = xml.SubElement(parent, "parameterSubstitution")
        metaclass = "TemplateParameter" if isinstance(actual, (int, Constant)) else "ClassifierTemplateParameter"
        xml.SubElement(made, "formal", {"xmi:type": f"uml:{metaclass}", "href": _LIBRARY + formal})
        if isinstance(actual, int):
            id_ = self.new_id()
            made.set("actual", id_)
            xml.SubElement(made, "ownedActual", {"xmi:type": "uml:LiteralInteger", "xmi:id": id_, "value": str(actual)})
        elif isinstance(actual, Basic):
            self.library_type(made, "actual", actual)
        elif isinstance(actual, Constant):
            made.set("actual", self.ids[actual])
        else:
            made.set("actual", self.ids[actual.target] if isinstance(actual, Named) else self.binding(actual))

    def write_default(self, parent, value):
        if isinstance(value, Reference) and isinstance(value.target, Constant):
            self.opaque(parent, "defaultValue", self.name_for(value.target, parent))
        elif isinstance(value, Reference):
            attributes = {"xmi:type": "uml:InstanceValue", "instance": self.ids[value.target]}
            xml.SubElement(parent, "defaultValue", attributes)
        elif value.text:
            self.opaque(parent, "defaultValue", value.text)
        else:
            kinds = {bool: "Boolean", int: "Integer", float: "Real", str: "String"}
            text = str(value.value).lower() if isinstance(value.value, bool) else str(value.value)
            metaclass = f"uml:Literal{kinds[type(value.value)]}"
            xml.SubElement(parent, "defaultValue", {"xmi:type": metaclass, "value": text})

    # Elements.

    def write_members(self, parent, members):
        holder = None  # of constants that follow each other
        for member in members:
            if not isinstance(member, Constant):
                holder = None
                self.write(parent, member)
            elif parent.get("xmi:type") == "uml:Package":
                if holder is None:
                    holder = self.packaged(parent, "Class", self.new_id(), "constants")
                    self.mark("CORBAConstants", "Class", holder.get("xmi:id"))
                self.write_constant(holder, member)
            else:
                self.write_constant(parent, member)
                self.mark("CORBAAttribute", "Property", self.ids[member], isConstant="true")

    def write(self, parent, element):
        for kind in type(element).__mro__:
            writer = getattr(self, f"write_{kind.__name__.lower()}", None)
            if writer is not None:
                return writer(parent, element)
        raise TypeError(f"{type(element).__name__} can't be written")

    def write_module(self, parent, element):
        made = self.classifier(parent, element, "Package", "CORBAModule")
        self.write_members(made, element.members)

    def write_constant(self, parent, element):
        made = self.feature(parent, "ownedAttribute", element, isReadOnly="true")
        self.write_type(made, element.type)
        self.write_default(made, element.value)

    def write_enumeration(self, parent, element):
        made = self.classifier(parent, element, "Enumeration", "CORBAEnum")
        for enumerator in element.enumerators:
            self.feature(made, "ownedLiteral", enumerator)

    def write_typedef(self, parent, element):
        made = self.classifier(parent, element, "Class", "CORBATypedef")
        if element.is_general:
            xml.SubElement(made, "generalization", {"general": self.ids[element.type.target]})
        else:
            self.write_type(xml.SubElement(made, "ownedAttribute", {"name": "type"}), element.type)

    def write_namedsequence(self, parent, element):
        made = self.classifier(parent, element, "Class", "CORBASequence")
        self.write_type(xml.SubElement(made, "ownedAttribute", {"name": "element"}), element.type)

    def write_struct(self, parent, element):
        stereotype = "CORBAException" if isinstance(element, ExceptionType) else "CORBAStruct"
        self.write_members(self.classifier(parent, element, "Class", stereotype), element.members)

    def write_member(self, parent, element):
        self.write_type(self.feature(parent, "ownedAttribute", element), element.type)

    def write_union(self, parent, element):
        made = self.classifier(parent, element, "Class", "CORBAUnion", _truth(isSimple=element.is_simple))
        self.write_type(xml.SubElement(made, "ownedAttribute", {"name": "discriminator"}), element.switch)
        for case in element.cases:
            self.write_type(self.feature(made, "ownedAttribute", case), case.type)
            mark = self.mark("case", "Property", self.ids[case], **_truth(isDefault=case.is_default))
            for label in () if element.is_simple else case.labels:
                xml.SubElement(mark, "label").text = label_text(label)

    def write_box(self, parent, element):
        made = self.classifier(parent, element, "Class", "CORBABoxedValue")
        self.write_type(xml.SubElement(made, "ownedAttribute", {"name": "value"}), element.type)

    def write_interface(self, parent, element):
        settings = _truth(isLocal=element.is_local)
        abstract = _truth(isAbstract=element.is_abstract)
        made = self.classifier(parent, element, "Interface", "CORBAInterface", settings, **abstract)
        self.relations(made, element)
        self.write_members(made, element.members)

    def write_attribute(self, parent, element):
        made = self.feature(parent, "ownedAttribute", element, **_truth(isReadOnly=element.is_readonly))
        self.write_type(made, element.type)
        if isinstance(self.owners[element], Value):
            self.mark("CORBAAttribute", "Property", self.ids[element])

    def write_operation(self, parent, element):
        raised = " ".join(self.ids[each] for each in element.raises)
        made = self.feature(parent, "ownedOperation", element, **({"raisedException": raised} if raised else {}))
        for parameter in element.parameters:
            direction = {} if parameter.direction == "in" else {"direction": parameter.direction}
            self.write_type(self.feature(made, "ownedParameter", parameter, **direction), parameter.type)
        if element.result is not None:
            attributes = {"xmi:id": self.ids[element] + ".result", "name": "result", "direction": "return"}
            self.write_type(xml.SubElement(made, "ownedParameter", attributes), element.result)
        self.mark_operation(element)

    def mark_operation(self, element):
        id_ = self.ids[element]
        if element.kind != "operation":
            of_value = isinstance(self.owners[element], Value)
            makers = {"factory": "CORBAValueFactory" if of_value else "CORBAFactory", "finder": "CORBAFinder"}
            self.mark(makers[element.kind], "Operation", id_)
        if element.is_oneway or element.context:
            settings = {"overrideIsDefaultAsync": "false"} if element.is_oneway else {}
            made = self.mark("CORBAOperation", "Operation", id_, **settings)
            for name in element.context:
                xml.SubElement(made, "context").text = f'"{name}"'

    def write_value(self, parent, element):
        stereotype = "CORBAEvent" if element.is_event else "CORBAValue"
        settings = _truth(isCustom=element.is_custom)
        made = self.classifier(parent, element, "Class", stereotype, settings, **_truth(isAbstract=element.is_abstract))
        self.relations(made, element)
        self.write_members(made, element.members)

    def write_statemember(self, parent, element):
        visibility = "public" if element.is_public else "private"
        self.write_type(self.feature(parent, "ownedAttribute", element, visibility=visibility), element.type)

    def write_component(self, parent, element):
        made = self.classifier(parent, element, "Component", "CORBAComponent")
        self.relations(made, element)
        self.write_members(made, element.members)

    def write_port(self, parent, element):
        stereotype, settings, is_conjugated = PORTS[element.kind]
        attributes = {"xmi:type": "uml:Port", "type": self.ids[element.target], "aggregation": "composite"}
        self.feature(parent, "ownedAttribute", element, **attributes, **_truth(isConjugated=is_conjugated))
        self.mark(stereotype, "Port", self.ids[element], **settings)

    def write_home(self, parent, element):
        made = self.classifier(parent, element, "Class", "CORBAHome")
        self.relations(made, element)
        self.write_members(made, element.members)
        self.dependency(parent, "CORBAManages", self.ids[element], self.ids[element.manages])
        if element.key is not None:
            self.dependency(parent, "CORBAPrimaryKey", self.ids[element], self.ids[element.key])

    def write_composition(self, parent, element):
        implementation, executor = self.ids[element], self.new_id()
        made = self.packaged(parent, "Class", implementation, element.implementation)
        self.mark("CORBAComponentImpl", "Class", implementation, category=element.category, composite=element.name)
        self.comment(made, element)
        self.packaged(made, "Class", executor, element.executor, "nestedClassifier")
        self.mark("CORBAHomeImpl", "Class", executor)
        for segment in element.members:
            self.packaged(made, "Class", self.ids[segment], segment.name, "nestedClassifier")
            self.mark("CORBASegment", "Class", self.ids[segment])
            for facet in segment.facets:
                self.dependency(parent, "CORBAIsProvidedBy", self.ids[segment], self.ids[facet])
        self.dependency(parent, "CORBAImplements", implementation, self.ids[element.home.manages])
        self.dependency(parent, "CORBAImplements", executor, self.ids[element.home])
        self.dependency(parent, "CORBAManages", executor, implementation)


def label_text(label):
    """A label as it is written into the model: an enumerator by its simple name."""
    if isinstance(label, Reference):
        return label.target.name
    if isinstance(label.value, bool):
        return str(label.value).upper()
    return label.text or str(label.value)


def _growing(mapping):
    """The entries of a mapping, also those that are added meanwhile."""
    done = 0
    while done < len(mapping):
        entry = list(mapping.items())[done]
        done += 1
        yield entry
