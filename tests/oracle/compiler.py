"""What files of IDL mean to the compiler omniidl, asked through the modules that it is made of.

Each file is read in a child process of its own, since the compiler keeps what it has read and may
crash; that takes a few milliseconds.
"""

import os
import pickle
import shutil
import signal
import subprocess
import sys
import tempfile
from fractions import Fraction

import meaning
from meaning import Type

_SECONDS = 60


class Refused(Exception):
    """What the compiler says of a file that it doesn't take."""


def _load():
    """The compiler's modules, which stand in its own directory beside the programs'."""
    program = shutil.which("omniidl")
    if program is None:
        raise RuntimeError("the IDL compiler omniidl is not installed")
    sys.path.insert(0, os.path.join(os.path.dirname(os.path.dirname(program)), "lib", "omniidl"))
    import _omniidl
    from omniidl import idlast, idltype

    return _omniidl, idlast, idltype


def read(file, directories=()):
    """What a file means with all that it includes; raises `Refused` if the compiler doesn't take it.
    What is announced and never declared is refused, too, of which the compiler only warns."""
    _load()  # once for all children
    receiver, sender = os.pipe()
    with tempfile.TemporaryFile() as said:
        child = os.fork()
        if child == 0:
            _run_child(sender, said, file, directories)
        os.close(sender)
        with os.fdopen(receiver, "rb") as stream:
            told = stream.read()
        status = os.waitstatus_to_exitcode(os.waitpid(child, 0)[1])
        said.seek(0)
        text = said.read().decode(errors="replace").strip()
    if status != 0:
        raise Refused(text or f"the compiler ends with {status}")
    if "was never fully defined" in text:
        raise Refused(text)
    return pickle.loads(told)


def _run_child(sender, said, file, directories):
    """Never returns."""
    status = 1
    try:
        signal.alarm(_SECONDS)
        for descriptor in (1, 2):
            os.dup2(said.fileno(), descriptor)
        sys.stderr = open(2, "w", closefd=False)
        with os.fdopen(sender, "wb") as stream:
            told = _compiled(file, directories)
            if told is not None:
                pickle.dump(told, stream)
                status = 0
    except Exception as fault:
        print(f"{type(fault).__name__}: {fault}", file=sys.stderr, flush=True)
    finally:
        os._exit(status)


def _compiled(file, directories):
    front_end, _, _ = _load()
    command = ["omnicpp", "-lang-c++", "-undef", f"-D__OMNIIDL__={front_end.version}"]
    command += [f"-I{directory}" for directory in directories]
    with subprocess.Popen(command + [file], stdout=subprocess.PIPE, text=True, encoding="latin-1") as preprocessor:
        tree = front_end.compile(preprocessor.stdout, file)
    if tree is None or preprocessor.returncode != 0:
        return None
    reader = _Reader()
    reader.read(tree.declarations())
    return reader.meaning


def _name(declaration):
    return "::".join(declaration.scopedName())


class _Reader:
    """Turns the compiler's declarations into a meaning."""

    def __init__(self):
        _, self.ast, self.types = _load()
        self.meaning = {}

    def read(self, declarations):
        ast = self.ast
        readers = {
            ast.Module: self.module, ast.Const: self.constant, ast.Typedef: self.alias, ast.Struct: self.structure,
            ast.Exception: self.structure, ast.Union: self.union, ast.Enum: self.enumeration, ast.Native: self.native,
            ast.Interface: self.interface, ast.Value: self.value, ast.ValueAbs: self.value, ast.ValueBox: self.box,
        }  # fmt: skip
        for declaration in declarations:
            reader = readers.get(type(declaration))
            if reader is not None:
                reader(declaration)

    def keep(self, declaration, kind, **record):
        self.meaning[_name(declaration)] = {"kind": kind} | record

    def module(self, declaration):
        self.keep(declaration, "module")
        self.read(declaration.definitions())

    def native(self, declaration):
        self.keep(declaration, "native")

    def constant(self, declaration):
        base = self.types.kind_map[declaration.constKind()].removeprefix("tk_")
        base = {"ulong": "integer", "longdouble": "long double"}.get(base, base)
        value = declaration.value()
        told = meaning.constant_value(base, Fraction(value) if base == "fixed" else self.plain_value(value, base))
        self.keep(declaration, "constant", type=self.type(declaration.constType()), value=told)

    def plain_value(self, value, base):
        if isinstance(value, self.ast.Enumerator):
            return _name(value)
        if base == "wchar":
            return chr(value)
        if base == "wstring":
            return "".join(map(chr, value))
        return bool(value) if base == "boolean" else value

    def type(self, type_, sizes=()):
        types = self.types
        if isinstance(type_, (types.String, types.WString)):
            made = Type(("string" if isinstance(type_, types.String) else "wstring", type_.bound()))
        elif isinstance(type_, types.Fixed):
            made = Type(("fixed", type_.digits(), type_.scale()) if type_.digits() else ("fixed",))
        elif isinstance(type_, types.Sequence):
            made = Type(("sequence", self.type(type_.seqType()), type_.bound()))
        elif isinstance(type_, types.Declared):
            name = "::".join(type_.scopedName())
            known = {"CORBA::Object": ("Object",), "CORBA::ValueBase": ("ValueBase",)}
            made = Type(known.get(name, ("name", name)))
        else:
            made = self.base_type(types.kind_map[type_.kind()].removeprefix("tk_"))
        return meaning.array(made, sizes)

    def base_type(self, kind):
        if kind == "TypeCode":
            return Type(("name", "CORBA::TypeCode"))
        names = {
            "ushort": "unsigned short", "ulong": "unsigned long", "longlong": "long long",
            "ulonglong": "unsigned long long", "longdouble": "long double",
        }  # fmt: skip
        return Type((names.get(kind, kind),))

    def declare_inside(self, holder, type_):
        """A type may be declared where it is used."""
        if holder.constrType():
            self.read([type_.decl()])

    def alias(self, declaration):
        self.declare_inside(declaration, declaration.aliasType())
        for declarator in declaration.declarators():
            self.keep(declarator, "typedef", type=self.type(declaration.aliasType(), declarator.sizes()))

    def members(self, holder, type_):
        self.declare_inside(holder, type_)
        return [[each.identifier(), self.type(type_, each.sizes())] for each in holder.declarators()]

    def structure(self, declaration):
        kind = "struct" if isinstance(declaration, self.ast.Struct) else "exception"
        members = [pair for each in declaration.members() for pair in self.members(each, each.memberType())]
        self.keep(declaration, kind, members=members)

    def union(self, declaration):
        self.declare_inside(declaration, declaration.switchType())
        cases = []
        for case in declaration.cases():
            self.declare_inside(case, case.caseType())
            labels = sorted(self.label(label) for label in case.labels())
            declarator = case.declarator()
            cases.append([labels, declarator.identifier(), self.type(case.caseType(), declarator.sizes())])
        self.keep(declaration, "union", switch=self.type(declaration.switchType()), cases=cases)

    def label(self, label):
        base = self.types.kind_map[label.labelKind()].removeprefix("tk_")
        return "default" if label.default() else str(self.plain_value(label.value(), base))

    def enumeration(self, declaration):
        names = [each.identifier() for each in declaration.enumerators()]
        self.keep(declaration, "enumeration", enumerators=names)

    def interface(self, declaration):
        self.keep(
            declaration, "interface", abstract=bool(declaration.abstract()), local=bool(declaration.local()),
            bases=[_name(base.fullDecl()) for base in declaration.inherits()], **self.callables(declaration),
        )  # fmt: skip
        self.read(declaration.declarations())

    def callables(self, declaration):
        attributes, operations = {}, {}
        for each in declaration.callables():
            if isinstance(each, self.ast.Attribute):
                record = {"readonly": bool(each.readonly()), "type": self.type(each.attrType()), "raises": {"get": [], "set": []}}
                attributes |= {name: record for name in each.identifiers()}
            else:
                operations[each.identifier()] = self.signature(each) | {
                    "oneway": bool(each.oneway()), "result": self.type(each.returnType()), "context": each.contexts(),
                }  # fmt: skip
        return {"attributes": attributes, "operations": operations}

    def signature(self, operation):
        directions = ("in", "out", "inout")
        parameters = [
            [directions[each.direction()], each.identifier(), self.type(each.paramType())]
            for each in operation.parameters()
        ]
        return {"parameters": parameters, "raises": sorted(map(_name, operation.raises()))}

    def box(self, declaration):
        self.declare_inside(declaration, declaration.boxedType())
        self.keep(declaration, "boxed value", type=self.type(declaration.boxedType()))

    def value(self, declaration):
        is_abstract = isinstance(declaration, self.ast.ValueAbs)
        state = [
            [("public", "private")[member.memberAccess()]] + pair
            for member in declaration.statemembers()
            for pair in self.members(member, member.memberType())
        ]
        self.keep(
            declaration, "value type", abstract=is_abstract, custom=not is_abstract and bool(declaration.custom()),
            truncatable=not is_abstract and bool(declaration.truncatable()),
            bases=[_name(base.fullDecl()) for base in declaration.inherits()],
            supports=[_name(base.fullDecl()) for base in declaration.supports()], state=state,
            factories={each.identifier(): self.signature(each) for each in declaration.factories()},
            **self.callables(declaration),
        )  # fmt: skip
        self.read(declaration.declarations())
