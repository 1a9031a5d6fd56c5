#!/usr/bin/env python3
"""Judges IDL files, also those with components, event types, homes and compositions, which the
compilers at hand don't know, and tells what they mean.

    idl3.py FILE [-I DIR]...        exit status 0 when the file is legal, else 1 and the first fault

By default it is as strict as the strictest of compilers: it also refuses what only some refuse.
"""

import argparse
import os
import re
import sys
from fractions import Fraction
from typing import NamedTuple

import meaning
from meaning import Type


class Fault(Exception):
    """What is wrong, as "FILE:LINE: text"."""


class Options(NamedTuple):
    # Refuses what one compiler or another takes amiss, although others let it pass: what names in
    # headings and behind "raises" do to later declarations, a base with the name of its heir, other
    # names for sequences that aren't complete yet, comments that some take for longer.
    strict: bool = True


# --- Words ------------------------------------------------------------------------------------------


class Token(NamedTuple):
    kind: str  # name, escaped, keyword, mark, integer, floating, fixed, char, wchar, string, wstring, pragma, end
    text: str  # of an escaped name what stands behind the underscore
    value: object  # of a literal of characters what it stands for
    file: str
    line: int

    def is_name(self):
        return self.kind in ("name", "escaped")


def fail(token, what):
    raise Fault(f"{token.file}:{token.line}: {what}")


KEYWORDS = {
    word.lower(): word
    for word in """
    abstract any attribute boolean case char component const consumes context custom default double
    emits enum eventtype exception factory FALSE finder fixed float getraises home import in inout
    interface local long manages module multiple native Object octet oneway out primarykey private
    provides public publishes raises readonly sequence setraises short string struct supports switch
    TRUE truncatable typedef typeid typeprefix union unsigned uses ValueBase valuetype void wchar
    wstring""".split()
}
_CATEGORIES = ("entity", "process", "service", "session")
COMPOSITION_WORDS = {  # names in files without a composition
    word.lower(): word
    for word in """
    bindsTo catalog composition delegatesTo entity executor facet implements process proxy segment
    service session storagehome storage storedOn""".split()
}

_WORD = re.compile(
    r"""(?P<blank>[ \t\r\f\v]+) | (?P<newline>\n) | (?P<line_comment>//[^\n]*) | (?P<comment>/\*)
    | (?P<quote>L?["']) | (?P<name>_?[A-Za-z][A-Za-z0-9_]*)
    | (?P<number>0[xX][\w.]* | \.?[0-9](?:[eE][+-]|[\w.])*)
    | (?P<mark>::|<<|>>|[{}()\[\]<>:;,=+\-*/%~|^&.]) | (?P<directive>\#[^\n]*)""",
    re.X | re.A,
)
_NUMBERS = (
    ("integer", re.compile(r"0[xX][0-9a-fA-F]+|0[0-7]*|[1-9][0-9]*")),
    ("fixed", re.compile(r"(?:[0-9]+\.?[0-9]*|\.[0-9]+)[dD]")),
    ("floating", re.compile(r"(?:[0-9]+\.[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?|[0-9]+[eE][+-]?[0-9]+")),
)
_ESCAPE = re.compile(r"\\(?:(?P<octal>[0-7]{1,3})|x(?P<hex>[0-9a-fA-F]{1,2})|u(?P<wide>[0-9a-fA-F]{1,4})|(?P<letter>[ntvbrfa\\?'\"]))")
_LETTERS = dict(zip("ntvbrfa\\?'\"", "\n\t\v\b\r\f\a\\?'\""))


class Lexer:
    """Takes a file's text apart."""

    def __init__(self, text, file, options):
        self.text, self.file, self.options = text, file, options
        self.at, self.line, self.is_line_begun = 0, 1, False

    def token(self, kind, text, value=None):
        return Token(kind, text, value, self.file, self.line)

    def refuse(self, what):
        fail(self.token("end", ""), what)

    def up_to_directive(self, words, counts):
        """Appends the words up to the next line that begins with "#", or passes over them if they
        don't count. Returns that line as a word; None when there is no further one."""
        while self.at < len(self.text):
            match = _WORD.match(self.text, self.at)
            kind = match.lastgroup if match else None
            if kind in ("blank", "newline", "line_comment", "comment"):
                self.skip(kind, match)
            elif kind == "directive" and not self.is_line_begun:
                self.at = match.end()
                return self.token("pragma", match.group()[1:].strip())
            elif counts:
                self.is_line_begun = True
                words.append(self.word(kind, match))
            else:
                self.at = self.text.find("\n", self.at) % (len(self.text) + 1)
        return None

    def skip(self, kind, match):
        self.at = match.end()
        if kind == "newline":
            self.line += 1
            self.is_line_begun = False
        elif kind == "line_comment":
            self.check_comment(match.group())
        elif kind == "comment":
            end = self.text.find("*/", self.at)
            if end < 0:
                self.refuse("a comment without an end")
            self.line += self.text.count("\n", self.at, end)
            self.at = end + 2

    def check_comment(self, text):
        """Preprocessors join such lines, and what stands in the next one is lost: all of them at a
        last backslash, some also when blanks follow it."""
        is_plain = text.rstrip("\r").endswith("\\")
        if is_plain or (self.options.strict and text.rstrip().endswith("\\")):
            self.refuse("a comment that a \\ extends to the next line")

    def word(self, kind, match):
        text = match.group() if match else self.text[self.at]
        if kind == "quote":
            return self.quoted(text)
        if kind is None or kind == "directive":
            self.refuse("a name begins with a letter" if text == "_" else "a character that has no place in IDL")
        self.at = match.end()
        if kind == "number":
            return self.number(text)
        return self.name(text) if kind == "name" else self.token("mark", text)

    def name(self, text):
        if text[0] == "_":
            return self.token("escaped", text[1:])
        keyword = KEYWORDS.get(text.lower())
        if keyword not in (None, text):
            self.refuse(f"the name '{text}' is a keyword in other letters")
        return self.token("keyword" if keyword else "name", text)

    def number(self, text):
        for kind, form in _NUMBERS:
            if form.fullmatch(text):
                return self.token(kind, text)
        self.refuse(f"'{text}' is no number")

    def quoted(self, opening):
        begin, is_wide, quote = self.at, opening[0] == "L", opening[-1]
        kind = ("w" if is_wide else "") + ("char" if quote == "'" else "string")
        self.at += len(opening)
        characters = []
        while self.text[self.at : self.at + 1] != quote:
            characters.append(self.character(is_wide))
        self.at += 1
        if quote == "'" and len(characters) != 1:
            self.refuse("a character literal holds one character")
        if quote == '"' and "\0" in characters:
            self.refuse("a text holds no character 0")
        return self.token(kind, self.text[begin : self.at], "".join(characters))

    def character(self, is_wide):
        letter = self.text[self.at : self.at + 1]
        if letter in ("", "\n"):
            self.refuse("a literal without an end")
        escape = _ESCAPE.match(self.text, self.at)
        if letter == "\\" and not escape:
            is_bare = self.text[self.at + 1 : self.at + 2] in ("x", "u")
            self.refuse("an escape sequence without " + ("digits" if is_bare else "a meaning"))
        self.at = escape.end() if escape else self.at + 1
        if not escape:
            return letter
        octal, hexadecimal, wide, special = escape.group("octal", "hex", "wide", "letter")
        if wide and not is_wide:
            self.refuse("\\u stands in wide literals only")
        if octal and int(octal, 8) > 255:
            self.refuse("an escape sequence beyond \\377")
        return _LETTERS[special] if special else chr(int(octal, 8) if octal else int(hexadecimal or wide, 16))


# --- Files ------------------------------------------------------------------------------------------

# What files include that only an installation of a broker has.
_BUILT_IN_FILES = {
    "orb.idl": "",
    "Components.idl": """
module Components {
  typedef string FeatureName;
  abstract valuetype PrimaryKeyBase {};
  abstract valuetype EventBase {};
  valuetype Cookie { private sequence<octet> cookieValue; };
  exception CreateFailure { unsigned long reason; };
  exception FinderFailure { unsigned long reason; };
  exception RemoveFailure { unsigned long reason; };
  exception DuplicateKeyValue { unsigned long reason; };
  exception InvalidKey { unsigned long reason; };
  exception UnknownKeyValue { unsigned long reason; };
  interface CCMObject;
  interface CCMHome { void remove_component(in CCMObject comp) raises (RemoveFailure); };
  interface CCMObject { CCMHome get_ccm_home(); };
  interface KeylessCCMHome { CCMObject create_component() raises (CreateFailure); };
  local interface EnterpriseComponent {};
  local interface SessionComponent : EnterpriseComponent {};
  local interface EntityComponent : EnterpriseComponent {};
};
""",
}
_DEEPEST_INCLUDE = 200
_DIRECTIVE = re.compile(r"\s*(\w*)\s*(.*?)\s*(?://.*|/\*.*\*/\s*)?", re.S)


class Reader:
    """Reads a file with all that it includes as one row of words."""

    def __init__(self, directories, options):
        self.directories, self.options = directories, options
        self.words, self.defined = [], set()
        self.conditions = []  # of the blocks that are open, whether they hold

    def read(self, file):
        start = Token("end", "", None, file, 1)
        if not os.path.isfile(file):
            fail(start, "can't be read")
        last = self.read_text(file, _text_of(file), 0)
        self.words.append(start._replace(line=last))
        self.reserve_composition_words()
        return self.words

    def read_text(self, file, text, depth):
        outer = len(self.conditions)
        lexer = Lexer(text, file, self.options)
        while (directive := lexer.up_to_directive(self.words, all(self.conditions))) is not None:
            self.obey(directive, depth)
            if len(self.conditions) < outer:
                fail(directive, "#endif without an #if")
        if len(self.conditions) != outer:
            lexer.refuse("#endif is missing")
        return lexer.line

    def obey(self, directive, depth):
        word, rest = _DIRECTIVE.fullmatch(directive.text).groups()
        counts = all(self.conditions)
        if word in ("ifndef", "ifdef") or (word == "if" and not counts):
            self.conditions.append((rest in self.defined) == (word == "ifdef"))
        elif word == "else" and self.conditions:
            self.conditions[-1] = not self.conditions[-1]
        elif word == "endif" and self.conditions:
            self.conditions.pop()
        elif not counts:
            pass
        elif word == "define" and re.fullmatch(r"\w+", rest):
            self.defined.add(rest)
        elif word == "include":
            self.include(directive, rest, depth)
        elif word == "pragma":
            self.words.append(directive._replace(text=directive.text.partition("pragma")[2].strip()))
        else:
            fail(directive, f"the line '#{directive.text}' is not understood")

    def include(self, directive, rest, depth):
        form = re.fullmatch(r'"([^"]+)"|<([^>]+)>', rest)
        if not form:
            fail(directive, "#include names no file")
        if depth == _DEEPEST_INCLUDE:
            fail(directive, "files include each other without an end")
        name = form[1] or form[2]
        beside = [os.path.dirname(directive.file)] if form[1] else []
        for directory in beside + list(self.directories):
            file = os.path.join(directory, name)
            if os.path.isfile(file):
                self.read_text(file, _text_of(file), depth + 1)
                return
        if name not in _BUILT_IN_FILES:
            fail(directive, f"there is no file '{name}'")
        if name not in self.defined:
            self.defined.add(name)
            self.read_text(name, _BUILT_IN_FILES[name], depth + 1)

    def reserve_composition_words(self):
        texts = [token.text for token in self.words]
        if not any(
            texts[at] == "composition" and texts[at + 1] in _CATEGORIES and texts[at + 3] == "{"
            for at in range(len(texts) - 3)
        ):
            return
        for at, token in enumerate(self.words):
            word = COMPOSITION_WORDS.get(token.text.lower()) if token.kind == "name" else None
            if word not in (None, token.text):
                fail(token, f"the name '{token.text}' is a keyword in other letters")
            if word:
                self.words[at] = token._replace(kind="keyword")


def _text_of(file):
    with open(file, encoding="latin-1", newline="") as stream:
        return stream.read()


# --- Names ------------------------------------------------------------------------------------------

# Kinds of declarations: how they are called is what they are.
_SCOPES = frozenset(
    ("module", "struct", "union", "exception", "interface", "value type", "event type", "component", "home")
)
_TYPES = frozenset(
    ("typedef", "struct", "union", "enumeration", "native", "interface", "value type", "boxed value", "event type",
     "component", "home")
)  # fmt: skip
_INHERITED_ONCE = frozenset(  # what heirs can't declare again
    ("state member", "operation", "attribute", "facet", "receptacle", "event port")
)
_VALUES = ("value type", "event type")


class Declaration:
    def __init__(self, kind, name, place, scope):
        self.kind, self.name, self.place, self.scope = kind, name, place, scope
        self.state = "complete"  # or "forward", "open"
        self.is_abstract = self.is_custom = False
        self.is_local = False  # or holds something local
        self.type = None  # of a typedef or a constant
        self.value = None  # of a constant or an enumerator
        self.bases = []  # also what is supported
        self.related = None  # a value's concrete interface, the component of a home
        self.identity = None  # as "typeid" and "#pragma ID" set it
        self.members = {}  # by their names in small letters
        self.uses = set()  # names entered by their use, in small letters
        self.record = None  # what it means

    def full_name(self):
        return self.scope.full_name() + "::" + self.name if self.scope and self.scope.scope else self.name

    def meant(self):
        """Itself, or what it is another name for."""
        return self.type[1].meant() if self.kind == "typedef" and self.type[0] == "name" else self

    def lineage(self, key=None):
        """Itself and all its bases, each once; with a key only those below where that is declared."""
        everyone = [self]
        for each in everyone:
            if key is None or key not in each.members:
                everyone += [base for base in dict.fromkeys(each.bases) if base not in everyone]
        return everyone

    def find(self, token):
        """What has the name here or in a base, in whatever letters; None when nothing has."""
        key = token.text.lower()
        found = {each.members[key] for each in self.lineage(key) if key in each.members}
        if len(found) > 1:
            fail(token, f"'{token.text}' is ambiguous: several bases declare it")
        return next(iter(found), None)


class ScopedName(NamedTuple):
    is_absolute: bool
    parts: list


class Names:
    """All that is declared, and where one is."""

    def __init__(self):
        self.root = self.scope = Declaration("module", "", None, None)
        self.announced = []
        place = Token("name", "CORBA", None, "built-in", 1)
        self.scope = self.declare("module", place)
        self.declare("native", place._replace(text="TypeCode"))
        self.scope = self.root

    def declare(self, kind, token):
        """Declares a name in the scope; refuses what clashes with it."""
        scope, key = self.scope, token.text.lower()
        self.require_free(token, key)
        made = scope.members[key] = Declaration(kind, token.text, token, scope)
        return made

    def require_free(self, token, key):
        scope = self.scope
        inherited = [
            base.members[key] for base in scope.lineage()[1:]
            if key in base.members and base.members[key].kind in _INHERITED_ONCE
        ]  # fmt: skip
        if key in scope.members:
            clash = f"the {scope.members[key].kind} '{scope.members[key].name}'"
        elif scope.kind in _SCOPES and scope.name.lower() == key:
            clash = f"the name of the {scope.kind} around it"
        elif key in scope.uses:
            clash = "the use of that name in the same scope"
        elif inherited:
            clash = f"the inherited {inherited[0].kind} '{inherited[0].name}'"
        else:
            return
        fail(token, f"'{token.text}' clashes with {clash}")

    def same(self, kind, token):
        """The declaration of that kind and that very name in the scope, if there is one."""
        found = self.scope.members.get(token.text.lower())
        return found if found and found.kind == kind and found.name == token.text else None

    def announce(self, kind, token, heading):
        """The declaration that was announced under that name, or a new one."""
        earlier = self.same(kind, token)
        if earlier:
            is_data = kind in ("struct", "union")  # their locality is that of their members
            if is_data and earlier.place.file != token.file:
                fail(token, f"the {kind} '{token.text}' was announced in another file")
            if is_data or (earlier.is_abstract, earlier.is_local) == (heading.is_abstract, heading.is_local):
                return earlier
            fail(token, f"'{token.text}' was announced as abstract or local, and is not, or the reverse")
        made = self.declare(kind, token)
        made.state, made.is_abstract, made.is_local = "forward", heading.is_abstract, heading.is_local
        self.announced.append(made)
        return made

    def find(self, name):
        found = self.root if name.is_absolute else None
        for token in name.parts:
            scope, is_outward = found or self.scope, found is None
            if scope.state == "forward":
                fail(token, f"'{scope.name}' is not complete yet")
            if not is_outward and scope.kind not in _SCOPES:
                fail(token, f"'{scope.name}' is no scope")
            found = scope.find(token)
            while is_outward and found is None and scope.scope is not None:
                scope = scope.scope
                found = scope.find(token)
            if found is None:
                fail(token, f"'{token.text}' is not declared")
            if found.name != token.text:
                fail(token, f"'{token.text}' is declared as '{found.name}'")
        return found

    def note_use(self, name, is_far):
        """Remembers that the name is used here; `is_far`: also in all scopes around but modules."""
        key = name.parts[0].text.lower()
        scope = None if name.is_absolute else self.scope
        while scope is not None:
            is_module_around = scope.kind in ("module", "composition") and scope is not self.scope
            if is_module_around or key in scope.members:
                return
            scope.uses.add(key)
            scope = scope.scope if is_far else None

    def require_all_complete(self):
        for declared in self.announced:
            if declared.state != "complete":
                fail(declared.place, f"'{declared.name}' is announced and never declared")


def require_distinct_members(heir, token):
    """Refuses bases with members that clash with each other."""
    known = {}
    for base in heir.lineage():
        for key, member in base.members.items():
            if member.kind in _INHERITED_ONCE and known.setdefault(key, member) is not member:
                fail(token, f"'{token.text}' inherits '{member.name}' from several bases")


# --- Types and values -------------------------------------------------------------------------------
# A type is a tuple like `meaning.Type`, with declarations in place of their names. A value is a kind,
# "integer", "floating", "fixed", "boolean", "char", "string", "wchar", "wstring" or "enumerator", and
# what it is. Of expressions only signs and brackets are known.

_RANGES = {
    "octet": (0, 2**8 - 1), "short": (-(2**15), 2**15 - 1), "unsigned short": (0, 2**16 - 1),
    "long": (-(2**31), 2**31 - 1), "unsigned long": (0, 2**32 - 1),
    "long long": (-(2**63), 2**63 - 1), "unsigned long long": (0, 2**64 - 1),
}  # fmt: skip
_FLOATINGS = {"float": 3.4028234663852886e38, "double": sys.float_info.max, "long double": sys.float_info.max}
_SELECTORS = (*(set(_RANGES) - {"octet"}), "char", "boolean", "wchar")
_DEEPEST_NESTING = 400


def basic(type_):
    """Without the names that it is behind."""
    while type_[0] == "name" and type_[1].kind == "typedef":
        type_ = type_[1].type
    return type_


def leaf(type_):
    """What is declared under all names, sequences and arrays, or None; whether that is in a sequence."""
    in_sequence = False
    while type_[0] in ("sequence", "array") or (type_[0] == "name" and type_[1].kind == "typedef"):
        in_sequence |= type_[0] == "sequence"
        type_ = type_[1].type if type_[0] == "name" else type_[1]
    return type_[1] if type_[0] == "name" else None, in_sequence


def plain(type_):
    """The type as records have it."""
    if type_[0] == "name":
        return Type(("name", type_[1].full_name()))
    return Type(plain(part) if isinstance(part, tuple) else part for part in type_)


def kind_of_values(type_):
    if type_[0] in _RANGES:
        return "integer"
    if type_[0] in _FLOATINGS:
        return "floating"
    return "enumerator" if type_[0] == "name" else type_[0]


def is_in_range(value, type_):
    kind, what = value
    if kind == "integer":
        return _RANGES[type_[0]][0] <= what <= _RANGES[type_[0]][1]
    if kind == "floating":
        return abs(what) <= _FLOATINGS[type_[0]]
    if kind == "fixed":
        return abs(what) < 10 ** (type_[1] - type_[2] if len(type_) > 1 else 31)
    return kind not in ("string", "wstring") or type_[1] == 0 or len(what) <= type_[1]


def require_reckonable(value, type_, token):
    """Integers are reckoned with 64 bits only for types of 64 bits."""
    bits = 64 if type_[0] in ("long long", "unsigned long long") else 32
    if not -(2 ** (bits - 1)) <= value < 2**bits:
        fail(token, "a value is out of range")


def literal_integer(token):
    text = token.text.lower()
    value = int(text, 16 if text.startswith("0x") else 8 if text[0] == "0" else 10)
    return value if value < 2**64 else fail(token, "a value is out of range")


def literal_fixed(token):
    """Zeros in front and behind are no digits of a fixed-point number."""
    whole, _, part = token.text[:-1].partition(".")
    if len(whole.lstrip("0") + part.rstrip("0") if part.strip("0") else whole.lstrip("0")) > 31:
        fail(token, "a fixed-point number has at most 31 digits")
    return Fraction(token.text[:-1].strip(".") or 0) if not part else Fraction(token.text[:-1])


class TypeReader:
    """Reads the words, names, types and values of which declarations consist."""

    def __init__(self, words, options):
        self.words, self.options = words, options
        self.names = Names()
        self.at = self.depth = 0
        self.read_pragmas()

    # Words. A keyword or a mark is asked for by its text.

    @property
    def here(self):
        return self.words[self.at]

    @property
    def scope(self):
        return self.names.scope

    def refuse(self, what):
        fail(self.here, what)

    def is_at(self, text, ahead=0):
        token = self.words[min(self.at + ahead, len(self.words) - 1)]
        return token.kind in ("keyword", "mark") and token.text == text

    def next(self):
        token = self.here
        if token.kind == "end":
            self.refuse("the file ends too early")
        self.at += 1
        self.read_pragmas()
        return token

    def take(self, *texts):
        """Of these words the one that is there; empty when none is."""
        for text in texts:
            if self.is_at(text):
                self.next()
                return text
        return ""

    def expect(self, *texts):
        """One after the other."""
        for text in texts:
            if not self.is_at(text):
                self.refuse(f"'{text}' is expected before {self.here_quoted()}")
            self.next()

    def here_quoted(self):
        return "the end" if self.here.kind == "end" else f"'{self.here.text}'"

    def take_name(self):
        return self.next() if self.here.is_name() else self.refuse(f"a name is expected before {self.here_quoted()}")

    def take_text(self):
        if self.here.kind != "string":
            self.refuse(f"a text is expected before {self.here_quoted()}")
        return self.next()

    def listed(self, read):
        """What is read, once or more with commas between."""
        found = [read()]
        while self.take(","):
            found.append(read())
        return found

    def nested(self, read, *arguments):
        self.depth += 1
        if self.depth > _DEEPEST_NESTING:
            self.refuse("nested too deeply")
        result = read(*arguments)
        self.depth -= 1
        return result

    def inside(self, scope, read, *arguments):
        """Reads what stands in a scope."""
        outside, self.names.scope = self.names.scope, scope
        result = self.nested(read, *arguments)
        self.names.scope = outside
        return result

    def read_pragmas(self):
        """They stand between words, and say something of what is declared by then."""
        while self.here.kind == "pragma":
            text = self.here.text
            form = re.fullmatch(r'prefix\s+"[^"]*"|version\s+(\S+)\s+\d+\.\d+|ID\s+(\S+)\s+("[^"]*")', text)
            if not form and re.match(r"(prefix|version|ID)\b", text):
                self.refuse(f"#pragma {text} is malformed")
            if form and (form[1] or form[2]):
                declared = self.names.find(self.name_of_text(form[1] or form[2]))
                if form[3]:
                    self.set_identity(declared, self.here, form[3])
            self.at += 1

    def name_of_text(self, text):
        parts = [self.here._replace(text=part) for part in text.removeprefix("::").split("::")]
        return ScopedName(text.startswith("::"), parts)

    def set_identity(self, declared, token, text):
        if declared.identity not in (None, text):
            fail(token, f"'{declared.name}' has another identity already")
        declared.identity = text

    # Names.

    def scoped_name(self):
        is_absolute = bool(self.take("::"))
        parts = [self.take_name()]
        while self.take("::"):
            parts.append(self.take_name())
        return ScopedName(is_absolute, parts)

    def resolve(self, name):
        found, scope = self.names.find(name), self.scope
        while scope.scope and scope.kind not in ("interface", "value type"):
            scope = scope.scope
        self.names.note_use(name, self.options.strict or scope.scope is not None)
        return found

    def resolve_aside(self, name):
        """The same for a name in a heading or behind "raises"."""
        return self.resolve(name) if self.options.strict else self.names.find(name)

    def resolve_as(self, name, *kinds):
        """What such a name means, which must be of one of the kinds, and complete."""
        found, token = self.resolve_aside(name).meant(), name.parts[-1]
        if found.kind not in kinds:
            fail(token, f"'{token.text}' is no {kinds[0]}")
        if found.state != "complete":
            fail(token, f"'{token.text}' is not complete yet")
        return found

    # Types.

    def simple_type(self):
        if self.is_at("sequence"):
            return self.nested(self.sequence)
        return self.fixed() if self.is_at("fixed") else self.parameter_type()

    def parameter_type(self):
        """One that parameters, results and attributes may have."""
        word = self.take("short", "float", "double", "char", "wchar", "boolean", "octet", "any", "Object", "ValueBase")
        if word:
            return (word,)
        if self.take("unsigned"):
            word = self.take("short") or self.expect("long") or "long"
            return ("unsigned " + word + (" long" if word == "long" and self.take("long") else ""),)
        if self.take("long"):
            return (("long " + self.take("long", "double")).strip(),)
        return self.string() if self.is_at("string") or self.is_at("wstring") else self.declared_type()

    def passed_type(self):
        """The same where one has it."""
        token = self.here
        type_ = self.parameter_type()
        self.require_complete(type_, "elsewhere", token)
        self.require_sendable(leaf(type_)[0], token)
        return type_

    def string(self):
        word, bound = self.next().text, 0
        if self.take("<"):
            bound = self.size()
            self.expect(">")
        return (word, bound)

    def fixed(self):
        token = self.next()
        self.expect("<")
        digits = self.size()
        self.expect(",")
        scale = self.size(0)
        self.expect(">")
        if digits > 31:
            fail(token, "a fixed-point type has at most 31 digits")
        if scale > digits:
            fail(token, "a fixed-point type has more digits than its scale")
        return ("fixed", digits, scale)

    def sequence(self):
        self.expect("sequence", "<")
        element = self.simple_type()
        bound = self.size() if self.take(",") else 0
        self.expect(">")
        return ("sequence", element, bound)

    def declared_type(self):
        if not self.here.is_name() and not self.is_at("::"):
            self.refuse(f"a type is expected before {self.here_quoted()}")
        token = self.here
        found = self.resolve(self.scoped_name())
        if found.kind not in _TYPES:
            fail(token, f"the {found.kind} '{found.name}' is no type")
        return ("name", found)

    def require_complete(self, type_, place, token):
        """`place`: "alias", "member" or "elsewhere"."""
        declared, in_sequence = leaf(type_)
        if declared is None or declared.state == "complete" or declared.kind not in ("struct", "union"):
            return
        is_further_name = self.options.strict and type_[0] == "name"
        if in_sequence and place == "alias" and type_[0] != "array" and not is_further_name:
            return
        if not (in_sequence and place == "member" and declared.state == "open"):
            fail(token, f"'{declared.name}' is used before it is complete")

    def require_sendable(self, declared, token):
        """Refuses what is local in an interface that isn't."""
        scope = self.scope.scope if self.scope.kind in ("operation", "factory") else self.scope
        is_remote = scope.kind in ("component", "home") or (scope.kind == "interface" and not scope.is_local)
        if declared and declared.is_local and is_remote:
            fail(token, f"'{declared.name}' is local, and the {scope.kind} is not")

    # Values.

    def value(self, declared):
        """The value of an expression, which must be one of the type."""
        token, type_ = self.here, basic(declared)
        value = self.unary(type_)
        is_other = value[0] == "enumerator" and type_[0] == "name" and value[1].type[1] is not type_[1]
        if value[0] != kind_of_values(type_) or is_other:
            fail(token, "a value of another type than is declared")
        if not is_in_range(value, type_):
            fail(token, "a value is out of range")
        return value

    def size(self, least=1):
        token = self.here
        size = self.value(("unsigned long",))[1]
        return size if size >= least else fail(token, "a size or a bound is positive")

    def unary(self, type_):
        token = self.here
        sign = self.take("+", "-", "~")
        kind, value = self.primary(type_)
        if sign and kind not in (("integer",) if sign == "~" else ("integer", "floating", "fixed")):
            fail(token, f"'{sign}' is not for such a value")
        if sign == "~":
            bits = {"unsigned long": 32, "unsigned long long": 64}.get(type_[0])
            value = 2**bits - 1 - value if bits else ~value
        elif sign == "-":
            value = -value
        if kind == "integer":
            require_reckonable(value, type_, token)
        return kind, value

    def primary(self, type_):
        if self.here.is_name() or self.is_at("::"):
            return self.named_value()
        if not self.take("("):
            return self.literal()
        value = self.nested(self.unary, type_)
        self.expect(")")
        return value

    def named_value(self):
        token = self.here
        found = self.resolve(self.scoped_name())
        if found.kind not in ("constant", "enumerator"):
            fail(token, f"the {found.kind} '{found.name}' is no constant")
        return found.value

    def literal(self):
        token = self.next()
        if token.kind == "integer":
            return "integer", literal_integer(token)
        if token.kind == "floating":
            return "floating", float(token.text)
        if token.kind == "fixed":
            return "fixed", literal_fixed(token)
        if token.text in ("TRUE", "FALSE") and token.kind == "keyword":
            return "boolean", token.text == "TRUE"
        if token.value is None:
            fail(token, f"a value is expected before '{token.text}'")
        value = token.value
        while token.kind in ("string", "wstring") and self.here.kind == token.kind:
            value += self.next().value
        return token.kind, value


# --- Declarations -----------------------------------------------------------------------------------


class Heading:
    """What stands around the name of an interface, a value, an event, a component or a home."""

    def __init__(self, is_abstract=False, is_local=False, is_custom=False):
        self.is_abstract, self.is_local, self.is_custom = is_abstract, is_local, is_custom
        self.is_truncatable = False
        self.bases, self.supported = [], []
        self.managed = []  # the component and the key, which may be left out


_MODIFIED = ("abstract", "local", "custom", "interface", "valuetype", "eventtype")


class Parser(TypeReader):
    """Reads the words of a file as declarations and judges them one after the other."""

    def read_file(self):
        while self.take("import"):
            if self.here.kind == "string":
                self.next()
            else:
                self.scoped_name()  # of what another file declares
            self.expect(";")
        while self.here.kind != "end":
            self.definition()
        self.names.require_all_complete()

    def definition(self):
        special = {"module": self.module, "component": self.component, "home": self.home, "composition": self.composition}
        special |= dict.fromkeys(_MODIFIED, self.interface_or_value)
        reader = special.get(self.here.text) if self.here.kind == "keyword" else None
        if reader:
            reader()
        elif not self.export():
            self.refuse(f"a definition is expected before {self.here_quoted()}")
        self.expect(";")

    def export(self):
        """Reads what may stand in interfaces, too; false when there is no such thing."""
        readers = {
            "const": self.constant, "exception": self.exception, "typedef": self.alias, "native": self.native,
            "typeid": self.type_id, "typeprefix": self.type_prefix, "enum": self.enumeration,
            "struct": lambda: self.struct(True), "union": lambda: self.union(True),
        }  # fmt: skip
        reader = readers.get(self.here.text) if self.here.kind == "keyword" else None
        if reader:
            reader()
        return reader is not None

    def module(self):
        self.expect("module")
        token = self.take_name()
        self.inside(self.names.same("module", token) or self.names.declare("module", token), self.module_body)

    def module_body(self):
        self.scope.record = {"kind": "module"}
        self.expect("{")
        self.definition()
        while not self.take("}"):
            self.definition()

    def constant(self):
        self.expect("const")
        token = self.here
        type_ = ("fixed",) if self.take("fixed") else self.parameter_type()
        name = self.take_name()
        self.expect("=")
        base = basic(type_)
        is_enumeration = base[0] == "name" and base[1].kind == "enumeration"
        if not is_enumeration and base[0] in ("any", "Object", "ValueBase", "sequence", "array", "name"):
            fail(token, "a constant can't be of this type")
        value = self.value(type_)
        self_ = self.names.declare("constant", name)
        self_.type, self_.value = type_, value
        told = value[1].full_name() if is_enumeration else meaning.constant_value(base[0], value[1])
        self_.record = {"kind": "constant", "type": plain(type_), "value": told}

    def alias(self):
        self.expect("typedef")
        token = self.here
        for name, type_ in self.declarators("typedef", self.type(), token, False):
            self.scope.members[name.lower()].record = {"kind": "typedef", "type": plain(type_)}

    def native(self):
        self.expect("native")
        self.names.declare("native", self.take_name()).record = {"kind": "native"}

    def type_id(self):
        self.expect("typeid")
        declared = self.names.find(self.scoped_name())
        token = self.take_text()
        if declared.identity is not None:
            fail(token, "a further identity of the same declaration")
        self.set_identity(declared, token, token.text)

    def type_prefix(self):
        self.expect("typeprefix")
        token = self.here
        scope = self.names.find(self.scoped_name())
        if scope.kind not in _SCOPES:
            fail(token, f"the {scope.kind} '{scope.name}' is no scope")
        self.take_text()

    def exception(self):
        self.expect("exception")
        declared = self.names.declare("exception", self.take_name())
        members = self.inside(declared, self.members, declared, True)
        declared.record = {"kind": "exception", "members": members}

    def type(self):
        """Also one that is declared in its place."""
        if self.is_at("struct"):
            return self.struct(False)
        if self.is_at("union"):
            return self.union(False)
        return self.enumeration() if self.is_at("enum") else self.simple_type()

    def define(self, kind, token, heading):
        declared = self.names.announce(kind, token, heading)
        if declared.state != "forward":
            fail(token, f"'{declared.name}' clashes with the {kind} of that name")
        declared.state = "open"
        return declared

    def struct(self, may_be_forward):
        self.expect("struct")
        token = self.take_name()
        if may_be_forward and self.is_at(";"):
            return ("name", self.names.announce("struct", token, Heading()))
        declared = self.define("struct", token, Heading())
        members = self.inside(declared, self.members, declared, False)
        declared.record = {"kind": "struct", "members": members}
        declared.state = "complete"
        return ("name", declared)

    def members(self, owner, may_be_empty):
        self.expect("{")
        members = []
        while not (may_be_empty or members) or not self.is_at("}"):
            members += [[name, plain(type_)] for name, type_ in self.member("member", owner, False)]
            self.expect(";")
        self.expect("}")
        return members

    def enumeration(self):
        self.expect("enum")
        declared = self.names.declare("enumeration", self.take_name())
        self.expect("{")
        names = [self.enumerator(declared) for _ in iter(lambda: len(declared.uses) == 0 or self.take(","), "")]
        self.expect("}")
        declared.record = {"kind": "enumeration", "enumerators": names}
        return ("name", declared)

    def enumerator(self, enumeration):
        declared = self.names.declare("enumerator", self.take_name())
        declared.type, declared.value = ("name", enumeration), ("enumerator", declared)
        enumeration.uses.add(declared.name)
        return declared.name

    def union(self, may_be_forward):
        self.expect("union")
        token = self.take_name()
        if may_be_forward and self.is_at(";"):
            return ("name", self.names.announce("union", token, Heading()))
        declared = self.define("union", token, Heading())
        self.inside(declared, self.union_body, declared, token)
        declared.state = "complete"
        return ("name", declared)

    def union_body(self, declared, token):
        selector = self.selector()
        labels, cases = [], []
        self.expect("{")
        while not cases or not self.is_at("}"):
            own = self.labels(selector, labels)
            ((name, type_),) = self.member("member", declared, True)
            cases.append([sorted(map(str, own)), name, plain(type_)])
            self.expect(";")
        self.expect("}")
        self.require_sense_of_default(selector, labels, token)
        declared.record = {"kind": "union", "switch": plain(selector), "cases": cases}

    def selector(self):
        """Octets tell no cases apart; neither do wide characters, except by another name."""
        self.expect("switch", "(")
        token = self.here
        type_ = self.enumeration() if self.is_at("enum") else self.parameter_type()
        base = basic(type_)
        is_enumeration = base[0] == "name" and base[1].kind == "enumeration"
        is_plain = base[0] in _SELECTORS and (base[0] != "wchar" or type_[0] == "name")
        if not is_enumeration and not is_plain:
            fail(token, "a union can't be told apart by this type")
        self.expect(")")
        return type_

    def labels(self, selector, earlier):
        """The labels of one case, which are appended to the earlier ones, too."""
        own = []
        while not own or self.is_at("case") or self.is_at("default"):
            token = self.here
            if self.take("default"):
                label = "default"
            else:
                self.expect("case")
                what = self.value(selector)[1]
                label = what.full_name() if isinstance(what, Declaration) else what
            if label in earlier:
                fail(token, "a union has one default" if label == "default" else "a label that was there before")
            own.append(label)
            earlier.append(label)
            self.expect(":")
        return own

    def require_sense_of_default(self, selector, labels, token):
        base = basic(selector)
        counts = {"boolean": 2, "char": 256}
        count = len(base[1].uses) if base[0] == "name" else counts.get(base[0], 2**64)
        if "default" in labels and len(labels) > count:
            fail(token, "the default of a union has no values left")

    def member(self, kind, owner, is_single):
        token = self.here
        type_ = self.type()
        place = "member" if owner.kind in ("struct", "union") else "elsewhere"
        self.require_complete(type_, place, token)
        declared = leaf(type_)[0]
        if declared and declared.is_local:
            if kind == "state member":
                fail(token, "a state member can't be local")
            owner.is_local = True
        return self.declarators(kind, type_, token, is_single)

    def declarators(self, kind, type_, token, is_single):
        """Declares names with their types, which are returned."""
        found = []
        while not found or (not is_single and self.take(",")):
            name, sizes = self.take_name(), self.sizes()
            declared = meaning.array(type_, sizes)
            if kind == "typedef":
                self.require_complete(declared, "alias", token)
            self.names.declare(kind, name).type = declared
            found.append((name.text, declared))
        return found

    def sizes(self):
        sizes = []
        while self.take("["):
            sizes.append(self.size())
            self.expect("]")
        return sizes

    # Interfaces, values, event types and what stands in them.

    def interface_or_value(self):
        token = self.here
        modifier = self.take("abstract", "local", "custom")
        heading = Heading(modifier == "abstract", modifier == "local", modifier == "custom")
        if not heading.is_custom and self.is_at("interface"):
            self.interface(heading)
            return
        if heading.is_local:
            fail(token, "only an interface is local")
        self.value_type(heading)

    def forward(self, kind, token, heading):
        if not self.is_at(";"):
            return False
        if heading.is_custom:
            fail(token, "a forward declaration says nothing of 'custom'")
        self.names.announce(kind, token, heading)
        return True

    def heading_names(self, kind, heading):
        """Interfaces support nothing, and values may be cut down to their bases."""
        if self.take(":"):
            heading.is_truncatable = kind in _VALUES and bool(self.take("truncatable"))
            is_single = kind in ("component", "home")
            heading.bases = [self.scoped_name()] if is_single else self.listed(self.scoped_name)
        if kind != "interface" and self.take("supports"):
            heading.supported = self.listed(self.scoped_name)

    def resolve_bases(self, names, *kinds):
        bases = []
        for name in names:
            base = self.resolve_as(name, *kinds)
            if base in bases:
                fail(name.parts[-1], f"'{base.name}' is a base twice")
            bases.append(base)
        return bases

    def resolve_heading(self, kind, heading):
        heading.bases = self.resolve_bases(heading.bases, *((kind, "value type") if kind == "event type" else (kind,)))
        heading.supported = self.resolve_bases(heading.supported, "interface")
        kinds = ("component", "value type")
        heading.managed = [self.resolve_as(name, kind) for name, kind in zip(heading.managed, kinds)]

    def open(self, kind, token, heading):
        """A compiler may declare the name first, and find it instead of a base of the same name."""
        declared = self.define(kind, token, heading) if self.options.strict else None
        self.resolve_heading(kind, heading)
        declared = declared or self.define(kind, token, heading)
        declared.is_custom = heading.is_custom
        declared.bases = heading.bases + heading.supported
        require_distinct_members(declared, token)
        names = [[each.full_name() for each in group] for group in (heading.bases, heading.supported, heading.managed)]
        declared.record = {"kind": kind, "bases": names[0], "attributes": {}}
        if kind != "interface":
            declared.record["supports"] = names[1]
        if kind != "component":
            declared.record["operations"] = {}
        if kind == "home":
            declared.record |= {"manages": names[2][0], "key": "".join(names[2][1:]), "factories": {}, "finders": {}}
        return declared

    def interface(self, heading):
        self.expect("interface")
        token = self.take_name()
        if self.forward("interface", token, heading):
            return
        self.heading_names("interface", heading)
        declared = self.open("interface", token, heading)
        declared.record |= {"abstract": heading.is_abstract, "local": heading.is_local}
        for base in declared.bases:
            if declared.is_abstract and not base.is_abstract:
                fail(token, "a base of an abstract interface isn't")
            if not declared.is_local and base.is_local:
                fail(token, "a base is local, and the interface is not")
        self.inside(declared, self.body, declared)

    def value_type(self, heading):
        kind = "event type" if self.take("eventtype") else self.expect("valuetype") or "value type"
        token = self.take_name()
        if self.forward(kind, token, heading):
            return
        is_box = not any(map(self.is_at, (":", "supports", "{")))
        if is_box and kind == "value type" and not heading.is_abstract and not heading.is_custom:
            self.box(token)
            return
        self.heading_names(kind, heading)
        declared = self.open(kind, token, heading)
        declared.record |= {
            "abstract": heading.is_abstract, "custom": heading.is_custom, "truncatable": heading.is_truncatable,
            "state": [], "factories": {},
        }  # fmt: skip
        self.require_sound_value(declared, heading, token)
        self.inside(declared, self.body, declared)

    def box(self, name):
        token = self.here
        type_ = self.type()
        base = basic(type_)
        is_value = base[0] == "name" and base[1].kind in (*_VALUES, "boxed value")
        if is_value or base[0] == "ValueBase":
            fail(token, "a value can't be boxed")
        self.require_complete(type_, "elsewhere", token)
        self.names.declare("boxed value", name).record = {"kind": "boxed value", "type": plain(type_)}

    def require_sound_value(self, declared, heading, token):
        for base in heading.bases:
            if base.is_abstract:
                continue
            if declared.is_abstract:
                fail(token, "a base of an abstract value isn't")
            if base is not heading.bases[0]:
                fail(token, "a base that is not abstract stands first")
            if base.kind != declared.kind:
                fail(token, "a value that is no event is the base of an event")
            if base.is_custom and not declared.is_custom:
                fail(token, "a base is custom, and the value is not")
        # Nothing is cut off down to a base without state; one compiler doesn't mind.
        has_concrete = heading.bases and not heading.bases[0].is_abstract
        if heading.is_truncatable and not has_concrete and self.options.strict:
            fail(token, "truncatable to a base that is abstract")
        if heading.is_truncatable and declared.is_custom:
            fail(token, "a custom value is not truncatable")
        concrete = [each for each in heading.supported if not each.is_abstract]
        if concrete and concrete != heading.supported[:1]:
            fail(token, "an interface that is not abstract comes first")
        declared.related = concrete[0] if concrete else None
        self.inherit_supported(declared, heading, token)

    def inherit_supported(self, declared, heading, token):
        """A value that isn't abstract stands for one interface: what it supports is derived from all
        that its bases support."""
        has_own = declared.related is not None
        for base in heading.bases:
            if base.related is None:
                continue
            declared.related = declared.related or base.related
            fits = base.related in declared.related.lineage() if has_own else declared.related is base.related
            if not fits and not declared.is_abstract:
                fail(token, "what is supported isn't derived from what bases support")

    def body(self, declared):
        self.expect("{")
        while not self.take("}"):
            self.body_element(declared)
            self.expect(";")
        declared.state = "complete"

    def body_element(self, declared):
        kind = declared.kind
        if kind in _VALUES and self.value_element(declared):
            return
        if kind == "home" and (self.is_at("factory") or self.is_at("finder")):
            self.maker("operation")
        elif kind == "component" and not self.is_at("attribute") and not self.is_at("readonly"):
            self.port()
        elif not self.attribute() and not self.export():
            self.operation()

    def value_element(self, declared):
        token = self.here
        if self.is_at("factory"):
            if declared.is_abstract:
                fail(token, "an abstract value has no factories")
            self.maker("factory")
            return True
        access = self.take("public", "private")
        if access:
            if declared.is_abstract:
                fail(token, "an abstract value has no state")
            members = self.member("state member", declared, False)
            declared.record["state"] += [[access, name, plain(type_)] for name, type_ in members]
        return bool(access)

    def attribute(self):
        is_read_only = bool(self.take("readonly"))
        if not is_read_only and not self.is_at("attribute"):
            return False
        self.expect("attribute")
        type_ = plain(self.passed_type())
        names = self.listed(lambda: self.names.declare("attribute", self.take_name()).name)
        raised = {"get": [], "set": []}
        if len(names) == 1 and self.take("raises" if is_read_only else "getraises"):
            raised["get"] = self.raises()
        if len(names) == 1 and not is_read_only and self.take("setraises"):
            raised["set"] = self.raises()
        for name in names:
            self.scope.record["attributes"][name] = {"readonly": is_read_only, "type": type_, "raises": raised}
        return True

    def operation(self):
        is_oneway = bool(self.take("oneway"))
        token, result = self.here, Type(("void",))
        if not self.take("void"):
            if is_oneway:
                fail(token, "a oneway operation has no result")
            result = plain(self.passed_type())
        declared = self.names.declare("operation", self.take_name())
        record = {"oneway": is_oneway, "result": result} | self.inside(declared, self.signature, is_oneway, is_oneway)
        record["context"] = self.context() if self.take("context") else []
        self.scope.record["operations"][declared.name] = record

    def maker(self, kind):
        """A factory or a finder."""
        group = "finders" if self.next().text == "finder" else "factories"
        declared = self.names.declare(kind, self.take_name())
        self.scope.record[group][declared.name] = self.inside(declared, self.signature, True, False)

    def signature(self, is_in_only, is_oneway):
        self.expect("(")
        parameters = []
        if not self.take(")"):
            parameters = self.listed(lambda: self.parameter(is_in_only))
            self.expect(")")
        if self.is_at("raises") and is_oneway:
            self.refuse("a oneway operation raises nothing")
        return {"parameters": parameters, "raises": self.raises() if self.take("raises") else []}

    def parameter(self, is_in_only):
        token = self.here
        direction = self.take("in", "out", "inout") or self.refuse("a parameter begins with its direction")
        if is_in_only and direction != "in":
            fail(token, "only in-parameters are allowed here")
        type_ = self.passed_type()
        return [direction, self.names.declare("parameter", self.take_name()).name, plain(type_)]

    def raises(self):
        self.expect("(")
        raised = self.listed(self.raised_exception)
        self.expect(")")
        return sorted(raised)

    def raised_exception(self):
        name = self.scoped_name()
        found, token = self.resolve_aside(name), name.parts[-1]
        if found.kind != "exception":
            fail(token, f"'{found.name}' is no exception")
        self.require_sendable(found, token)
        return found.full_name()

    def context(self):
        self.expect("(")
        names = [token.value for token in self.listed(self.context_name)]
        self.expect(")")
        return names

    def context_name(self):
        token = self.take_text()
        is_name = re.fullmatch(r"[A-Za-z][A-Za-z0-9._]*\*?", token.value, re.A)
        return token if is_name else fail(token, "no name of a context")

    # Components, homes and compositions.

    def component(self):
        self.expect("component")
        token, heading = self.take_name(), Heading()
        if self.forward("component", token, heading):
            return
        self.heading_names("component", heading)
        declared = self.open("component", token, heading)
        declared.record["ports"] = {}
        self.inside(declared, self.body, declared)

    def port(self):
        word = self.take("provides", "uses", "emits", "publishes", "consumes")
        if not word:
            self.refuse(f"a port is expected before {self.here_quoted()}")
        if word == "uses" and self.take("multiple"):
            word = "uses multiple"
        kind = {"p": "facet", "u": "receptacle"}.get(word[0] if word != "publishes" else "", "event port")
        if kind == "event port":
            type_ = self.resolve_as(self.scoped_name(), "event type").full_name()
        else:
            type_ = self.take("Object") or self.resolve_as(self.scoped_name(), "interface").full_name()
        self.scope.record["ports"][self.names.declare(kind, self.take_name()).name] = [word, type_]

    def home(self):
        self.expect("home")
        token, heading = self.take_name(), Heading()
        self.heading_names("home", heading)
        self.expect("manages")
        heading.managed = [self.scoped_name()]
        if self.take("primarykey"):
            heading.managed.append(self.scoped_name())
        declared = self.open("home", token, heading)
        self.require_sound_home(declared, heading, token)
        self.inside(declared, self.body, declared)

    def require_sound_home(self, declared, heading, token):
        component = declared.related = heading.managed[0]
        if heading.bases and heading.bases[0].related not in component.lineage():
            fail(token, "the component of a home isn't derived from that of its base")
        library = self.names.root.members.get("components")
        common = library.members.get("primarykeybase") if library else None
        is_other = len(heading.managed) > 1 and common and common not in heading.managed[1].lineage()
        if is_other:
            fail(token, "the primary key isn't derived from 'Components::PrimaryKeyBase'")

    def composition(self):
        self.expect("composition")
        category = self.take(*_CATEGORIES) or self.refuse("no category of compositions")
        declared = self.names.declare("composition", self.take_name())
        declared.record = {"kind": "composition", "category": category, "segments": {}}
        self.inside(declared, self.composition_body, declared.record)

    def composition_body(self, record):
        self.expect("{")
        self.home_executor(record)
        self.expect("}")

    def home_executor(self, record):
        self.expect("home", "executor")
        record["home executor"] = self.names.declare("executor", self.take_name()).name
        self.expect("{", "implements")
        home = self.resolve_as(self.scoped_name(), "home")
        record["implements"] = home.full_name()
        self.expect(";")
        self.expect("manages")
        executor = self.names.declare("executor", self.take_name())
        record["manages"] = executor.name
        self.inside(executor, self.executor_body, home.related, record)
        self.expect("}", ";")

    def executor_body(self, component, record):
        if self.take("{"):
            done = []
            while self.is_at("segment"):
                if record["category"] not in ("entity", "process"):
                    self.refuse("a composition of this category has no segments")
                self.segment(component, done, record["segments"])
            self.expect("}")
        self.expect(";")

    def segment(self, component, done, segments):
        self.expect("segment")
        name = self.names.declare("segment", self.take_name()).name
        self.expect("{")
        self.expect("provides", "facet")
        segments[name] = sorted(self.listed(lambda: self.facet(component, done)))
        self.expect(";", "}")

    def facet(self, component, done):
        token = self.take_name()
        facet = component.find(token)
        if facet is None or facet.kind != "facet" or facet.name != token.text:
            fail(token, f"'{component.name}' has no facet of that name")
        if facet in done:
            fail(token, "a facet that is provided already")
        done.append(facet)
        return facet.name


# --- The judge --------------------------------------------------------------------------------------


def read(file, directories=(), options=Options()):
    """What a file means with all that it includes, which is looked for beside the including file and
    in the directories, in their order; "orb.idl" and "Components.idl" needn't be there. Raises a
    `Fault` when it is not legal."""
    sys.setrecursionlimit(max(sys.getrecursionlimit(), 40 * _DEEPEST_NESTING))
    parser = Parser(Reader(directories, options).read(file), options)
    parser.read_file()
    return dict(_records(parser.names.root))


def _records(scope):
    for declared in scope.members.values():
        if declared.record is not None and declared.place.file not in _BUILT_IN_FILES:
            yield declared.full_name(), declared.record
        yield from _records(declared)


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("file")
    arguments.add_argument("-I", dest="directories", action="append", default=[])
    given = arguments.parse_args()
    try:
        read(given.file, given.directories)
    except Fault as fault:
        print(fault, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
