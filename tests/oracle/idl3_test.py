#!/usr/bin/env python3
"""The checker of IDL is held against a compiler wherever that one knows the language, and against
tables of what is legal and what is not where it doesn't."""

import os
import random
import re
import tempfile
import unittest

import compiler
import generate
import idl3
import judge
import witness

# What compilers take.
SOUND = [
    "typedef long _interface, _x; /* ** */ typedef _interface a; typedef x b; // to the end",
    r"""const char A = '\''; const char B = '"'; const char C = '\x4f'; const char D = '\377';""",
    r"""const wchar A = L'\u12aB'; const wstring B = L"a" L"\n"; const string C = "a" "\"";""",
    "const long A = 0x1F; const long B = 017; const double C = .5e-3; const double D = 1E6;",
    "const double A = 5.; const fixed B = 00.5d; const fixed C = 7D; const fixed D = B;",
    '#pragma prefix "a"\ninterface I {};\n#pragma ID I "IDL:I:1"\n#pragma any thing\n',
    "typedef long process, segment, composition; typedef composition session;",
    "const short A = -32768; const octet B = 255; const long C = (-(2147483647));",
    "const unsigned long long A = 18446744073709551615; const long long B = -9223372036854775807;",
    'const double A = -1.5; const float B = A; const string<3> C = "abc";',
    "enum Hue {p, q}; typedef Hue Tint; const Tint A = q; const Hue B = A;",
    "const octet N = 3; typedef string<N> S; typedef sequence<S, N> T; typedef long A[N];",
    "typedef fixed<5, 2> F; const F A = 999.99d; typedef long B[2][3], C, D[4];",
    "struct S { fixed<31, 31> a; any b; Object c; ValueBase d; CORBA::TypeCode e; long f[2]; };",
    "struct S { struct T { long a; } b; enum E {p, q} c; E d; }; typedef S::T T;",
    "union U switch (long) { case 1: case 2: long a; case 3: default: sequence<long> b; };",
    "union U switch (enum E {p, q}) { case p: long a; case q: long b[3]; }; native N;",
    "typedef wchar W; union U switch (W) { case L'a': long a; default: long b; };",
    "valuetype A long; valuetype B struct S { long a; }; valuetype C string<10>;",
    'exception X {}; interface I { I f(in any a) raises (::X) context ("a.b*"); };',
    "interface I { oneway void f(in string<3> a); readonly attribute wstring<2> b, c; };",
    "abstract interface A {}; local interface L : A { void f(in L a); }; interface B : A {};",
    "interface I {}; typedef I J; interface K : J {}; interface K; interface K;",
    "interface A { void f(); }; interface B : A {}; interface C : A {}; interface D : C, A, B {};",
    "valuetype V { public long a, b[2]; private V c; factory f(in long a); attribute V d; };",
    "abstract valuetype A {}; valuetype B {}; valuetype C : truncatable B, A {};",
    "interface I {}; interface J : I {}; valuetype A supports I {}; valuetype B : A supports J {};",
    "valuetype A { factory f(); }; valuetype B : A { factory f(); };",
    "module M { typedef long T; }; module M { struct S { T a; M::T b; ::M::T c; }; };",
    "struct Status { long a; }; struct S { ::Status status; }; interface I { Status f(); };",
    'interface A { typedef long T; }; interface B : A { typedef string T; const T S = "a"; };',
    "interface A { typedef long T; }; interface B : A { struct S { T a; }; }; typedef B::T U;",
    "enum E {p, q}; module M { enum F {p}; const F A = p; const E B = ::p; };",
    "interface I { void f(in long i, in long f); struct S { long f; }; };",
    "interface I; struct S { I a; }; typedef sequence<I> T; interface I { void f(in T a); };",
    "struct S; typedef sequence<S> T; struct S { T a; struct R { T a; sequence<T> b; } b; };",
    "struct S { sequence<S, 3> a[4]; }; union U switch (long) { case 1: sequence<U> a; };",
    "valuetype V; valuetype W { public V a; }; valuetype V { public W a; };",
]

# What compilers refuse, and a part of what is wrong with it.
UNSOUND = [
    ("typedef long Interface;", "'Interface' is a keyword in other letters"),
    ("typedef long __x;", "a name begins with a letter"),
    ("typedef long a$b;", "no place in IDL"),
    ("const long A = 08;", "'08' is no number"),
    ("const double A = 1.5f;", "'1.5f' is no number"),
    ("const char A = '';", "a character literal holds one character"),
    (r"const char A = '\400';", r"beyond \377"),
    (r"const char A = '\u0041';", r"\u stands in wide literals only"),
    (r'const string A = "a\0";', "a text holds no character 0"),
    ("typedef long A;\n#pragma version A 1\n", "malformed"),
    ('#pragma ID B "IDL:B:1.0"\n', "'B' is not declared"),
    ("#ifndef A\n", "#endif is missing"),
    ('#include "none.idl"\n', "there is no file 'none.idl'"),
    ("module M {};", "a definition is expected before '}'"),
    ("typedef long A;;", "a definition is expected before ';'"),
    ("typedef long A", "';' is expected before the end"),
    ("struct S {};", "a type is expected before '}'"),
    ("enum E {};", "a name is expected before '}'"),
    ("union U switch (long) {};", "'case' is expected before '}'"),
    ("union U switch (long) { case 1: long a, b; };", "';' is expected before ','"),
    ("typedef sequence<sequence<long>> S;", "'>' is expected before '>>'"),
    ("interface I { void f(in sequence<long> a); };", "a type is expected before 'sequence'"),
    ("interface I { attribute long a[3]; };", "';' is expected before '['"),
    ("interface I { void f(long a); };", "a parameter begins with its direction"),
    ("interface I { interface J; };", "a type is expected before 'interface'"),
    ("interface I { void f() raises (); };", "a name is expected before ')'"),
    ('interface I { void f() context ("*"); };', "no name of a context"),
    ("valuetype V { long a; };", "'(' is expected before ';'"),
    ("valuetype V { factory f(out long a); };", "only in-parameters"),
    ("custom valuetype V;", "says nothing of 'custom'"),
    ("local valuetype V {};", "only an interface is local"),
    ("const any A = 1;", "a constant can't be of this type"),
    ("const long A = - -1;", "a value is expected before '-'"),
    ("const octet A = -1;", "out of range"),
    ("const long A = 18446744073709551616;", "out of range"),
    ("const double A = 1;", "a value of another type"),
    ("const boolean A = -TRUE;", "'-' is not for such a value"),
    ("const char A = L'a';", "a value of another type"),
    ('const string<2> A = "abc";', "out of range"),
    ("enum E {p}; enum F {q}; const E A = q;", "a value of another type"),
    ("typedef long T; const long A = T;", "the typedef 'T' is no constant"),
    ("const long A = A;", "'A' is not declared"),
    ("const fixed A = 12345678901234567890123456789012d;", "at most 31 digits"),
    ("typedef fixed<32, 2> F;", "at most 31 digits"),
    ("typedef fixed<5, 6> F;", "more digits than its scale"),
    ("typedef string<0> S;", "a bound is positive"),
    ("typedef long A[-1];", "out of range"),
    ("union U switch (octet) { case 1: long a; };", "can't be told apart"),
    ("union U switch (short) { case 40000: long a; };", "out of range"),
    (r"union U switch (char) { case 'a': long a; case '\141': long b; };", "there before"),
    ("union U switch (long) { default: long a; default: long b; };", "a union has one default"),
    ("enum E {p, q}; union U switch (E) { case p: case q: default: long a; };", "no values left"),
    ("module M { enum E {p}; }; union U switch (M::E) { case p: long a; };", "is not declared"),
    ("interface I { oneway long f(); };", "a oneway operation has no result"),
    ("interface I { oneway void f(out long a); };", "only in-parameters"),
    ("exception X {}; interface I { oneway void f() raises (X); };", "raises nothing"),
    ("struct S {long a;}; interface I { void f() raises (S); };", "'S' is no exception"),
    ("exception X {}; struct S { X a; };", "the exception 'X' is no type"),
    ("valuetype V {}; interface I : V {};", "'V' is no interface"),
    ("interface I {}; interface J : I, I {};", "'I' is a base twice"),
    ("interface I {}; abstract interface J : I {};", "a base of an abstract interface isn't"),
    ("local interface L {}; interface J : L {};", "a base is local"),
    ("local interface L {}; struct S {L a;}; interface I { void f(in S a); };", "'S' is local"),
    ("local interface L {}; valuetype V { public L a; };", "a state member can't be local"),
    ("local interface I; interface I {};", "was announced as abstract or local"),
    ("abstract valuetype V { public long a; };", "an abstract value has no state"),
    ("valuetype A {}; abstract valuetype B : A {};", "a base of an abstract value isn't"),
    ("valuetype A {}; valuetype B {}; valuetype C : A, B {};", "not abstract stands first"),
    ("valuetype A {}; custom valuetype B : truncatable A {};", "a custom value is not trunc"),
    ("custom valuetype A {}; valuetype B : A {};", "a base is custom"),
    ("interface I {}; interface J {}; valuetype V supports I, J {};", "not abstract comes first"),
    (
        "interface I {}; interface J {}; valuetype A supports I {}; valuetype B : A supports J {};",
        "isn't derived from what bases support",
    ),
    ("valuetype A {}; valuetype B A;", "a value can't be boxed"),
    ("typedef long A; typedef long a;", "'a' clashes with the typedef 'A'"),
    ("typedef long A; typedef a B;", "'a' is declared as 'A'"),
    ("struct S { long s; };", "'s' clashes with the name of the struct around it"),
    ("enum E {p}; enum F {P};", "'P' clashes with the enumerator 'p'"),
    ("typedef long T; struct S { T t; };", "'t' clashes with the use of that name"),
    ("typedef long T; struct S { long t; T a; };", "'T' is declared as 't'"),
    ("typedef long T; interface I { void f(in T t); };", "'t' clashes with the use"),
    ("typedef long T; interface I { struct S { T a; }; void t(); };", "'t' clashes with the use"),
    ("typedef long T; module M { typedef T A; }; module M { typedef T T; };", "with the use"),
    ("module M { typedef long T; }; struct S { M::T m; };", "'m' clashes with the use"),
    ("interface A { void f(); }; interface B : A { typedef long F; };", "inherited operation"),
    ("interface A { void f(); }; interface B { attribute long F; }; interface C : A, B {};", "from several bases"),
    (
        "interface A { typedef long T; }; interface B { typedef long t; };interface C : A, B { T f(); };",
        "'T' is ambiguous",
    ),
    ("valuetype V { public long a; }; valuetype W : V { void a(); };", "inherited state member"),
    (
        "module A { typedef long T; }; module B { module A { typedef long U; }; typedef A::T V; };",
        "'T' is not declared",
    ),
    ("interface I { void f(in long a); }; const long A = I::f::a;", "'f' is no scope"),
    ("interface CORBA {};", "clashes with the module 'CORBA'"),
    ("struct S { S a; };", "'S' is used before it is complete"),
    ("struct S; typedef S T; struct S { long a; };", "'S' is used before it is complete"),
    ("struct S; typedef sequence<S> T; struct R { T a; }; struct S { T a; };", "before it is"),
    ("struct S; typedef sequence<S> T; interface I { T f(); }; struct S { T a; };", "before it"),
    ("struct S; exception X { sequence<S> a; }; struct S { long a; };", "before it is complete"),
    ("struct S; typedef sequence<S> T[3]; struct S { long a; };", "before it is complete"),
    ("interface I; interface J : I {}; interface I {};", "'I' is not complete yet"),
    ("interface I; typedef I::T T; interface I { typedef long T; };", "'I' is not complete yet"),
    ("interface I; struct I { long a; };", "clashes with the interface 'I'"),
    ("struct S;", "'S' is announced and never declared"),
]

# Compilers that declare, enter or complete a name earlier than the one at hand refuse all of this.
REFUSED_BY_SOME = [
    ("exception X {}; interface I { void f() raises (X); void x(); };", "clashes with the use"),
    ("interface B {}; module M { interface I : B {}; typedef long B; };", "clashes with the use"),
    ("interface B {}; module M { interface B : B {}; };", "'B' is not complete yet"),
    ("typedef long T; struct S { struct R { T a; } b; long t; };", "clashes with the use"),
    ("struct S; typedef sequence<S> T; typedef T U; struct S { U a; };", "before it is complete"),
    ("abstract valuetype A {}; valuetype B : truncatable A {};", "a base that is abstract"),
]

# What the compiler at hand takes although it isn't legal.
OVERLOOKED = [
    ("interface I;", "never declared"),
    ("typedef long component;", "a name is expected"),
    ("typedef long manages;", "a name is expected"),
    (r"const char A = '\q';", "without a meaning"),
    ('const string A = "a\n";', "a literal without an"),
    ("const long N = 1; struct S { N a; };", "is no type"),
    ("const float A = 1e40;", "out of range"),
    ("typedef fixed<5, 2> F; const F A = 1234.5d;", "out of range"),
    ("const fixed A = 0.00000000000000000000000000000001d;", "31 "),
    ("// \\\ntypedef long A;\n", "extends to the next line"),
]

# What is legal although the compiler at hand refuses it.
UNKNOWN_TO_COMPILER = [
    "const long A = -2147483648; const long long B = -9223372036854775808;",
    "const long A = ~1; const short B = ~1;",
    "exception X {}; interface I { attribute long a getraises (X) setraises (X); };",
    "exception X {}; interface I { readonly attribute long a raises (X); };",
    'import ::M; import "IDL:N:1.0"; typedef long T;',
    'module M { interface I {}; typeid I "IDL:I:1.0"; }; typeprefix M "a.b";',
]

# The same with faults.
UNKNOWN_AND_UNSOUND = [
    ("typedef long T; import M;", "a definition is expected before 'import'"),
    ('interface I {}; typeid I "a"; typeid I "a";', "a further identity"),
    ('typedef long T; typeprefix T "a";', "the typedef 'T' is no scope"),
    ("interface I { attribute long a raises (X); };", "';' is expected"),
    ("interface I { attribute long a, b getraises (X); };", "';' is expected"),
]

# Components and homes.
COMPONENTS = [
    "component C; interface I { void f(in C a); }; component C {}; component D : C {};",
    "interface I {}; component C supports I { provides I a; uses I b; uses multiple I d;  provides Object e; attribute long f, g; readonly attribute string h; };",
    "eventtype E {}; component C { emits E a; publishes E b; consumes E d; };",
    "eventtype E; eventtype E { public long a; factory f(in long a); void g(); };",
    "abstract eventtype E {}; eventtype F : E {}; eventtype G : truncatable F { private F a; };",
    "abstract valuetype V {}; interface I {}; custom eventtype E : V supports I {};",
    "component C {}; interface I {}; valuetype K { public long a; }; exception X {};home H supports I manages C primarykey K { factory f(in K a) raises (X); finder g(in K a);  void op(); attribute long i; typedef long T; }; typedef H::T T;",
    "component C {}; component D : C {}; home H manages C {}; home G : H manages D {};",
    '#include <Components.idl>\n#include "Components.idl"\n#include "orb.idl"\ncomponent C {};abstract valuetype B : Components::PrimaryKeyBase {};valuetype K : B { public CORBA::TypeCode a; }; home H manages C primarykey K {};',
]

# The same with faults.
UNSOUND_COMPONENTS = [
    ("interface I; component C { provides I a; }; interface I {};", "'I' is not complete yet"),
    ("valuetype V {}; component C { consumes V a; };", "'V' is no event type"),
    ("eventtype E {}; component C { provides E a; };", "'E' is no interface"),
    ("eventtype E; component C { emits E a; }; eventtype E {};", "'E' is not complete yet"),
    ("interface I {}; component C { provides multiple I a; };", "before 'multiple'"),
    ("interface I {}; component C { provides I; };", "a name is expected before ';'"),
    ("component C { void f(); };", "a port is expected before 'void'"),
    ("component A {}; component B {}; component C : A, B {};", "'{' is expected before ','"),
    ("interface I {}; component C : I {};", "'I' is no component"),
    ("component B {}; component C supports B {};", "'B' is no interface"),
    ("component C;", "'C' is announced and never declared"),
    ("interface I {}; component C { provides I a; uses I A; };", "clashes with the facet 'a'"),
    (
        "interface I {}; component B { uses I a; }; component C : B { attribute long a; };",
        "the inherited receptacle 'a'",
    ),
    ("interface I { void f(); }; component C supports I { provides I f; };", "operation 'f'"),
    ("interface Tool {}; component C { provides Tool tool; };", "clashes with the use"),
    ("interface I {}; component C { provides I c; };", "the component around it"),
    ("local interface L {}; component C { attribute L a; };", "'L' is local"),
    ("valuetype V {}; eventtype E : V {};", "a value that is no event"),
    ("eventtype E {}; valuetype V : E {};", "'E' is no value type"),
    ("eventtype E long;", "'{' is expected before 'long'"),
    ("component C; home H manages C {}; component C {};", "'C' is not complete yet"),
    ("interface I {}; home H manages I {};", "'I' is no component"),
    ("home H {};", "'manages' is expected before '{'"),
    ("component C {}; interface K {}; home H manages C primarykey K {};", "'K' is no value type"),
    ("component C {}; home H manages C { factory f(out long a); };", "only in-parameters"),
    ("component C {}; home H manages C { factory f(); finder F(); };", "clashes with"),
    (
        "component C {}; home G manages C { finder f(); }; home H : G manages C { finder f(); };",
        "the inherited operation 'f'",
    ),
    (
        "component C {}; component D {}; home G manages C {}; home H : G manages D {};",
        "isn't derived from that of its base",
    ),
    ("component C {}; home H manages C { public long a; };", "before 'public'"),
]


# Files of which the first is read, and a part of what is wrong with them.
_GUARDED = "#ifndef {0}\n#define {0}\n{1}\n#endif\n"
_HARD = _GUARDED.format("x_idl", '#include "y.idl"\nmodule X { interface I {}; struct S { ::Y::T a; }; };')
_SOFT_LAST = _GUARDED.format("y_idl", 'module X { interface I; };\nmodule Y { struct T { ::X::I a; }; };\n#include "x.idl"')
_SOFT_FIRST = _GUARDED.format("y_idl", 'module X { interface I; };\n#include "x.idl"\nmodule Y { struct T { ::X::I a; }; };')
FILES = [
    ({"x.idl": _HARD, "y.idl": _SOFT_LAST}, ""),
    ({"y.idl": _SOFT_LAST, "x.idl": _HARD}, ""),
    ({"x.idl": _HARD, "y.idl": _SOFT_FIRST}, ""),
    ({"y.idl": _SOFT_FIRST, "x.idl": _HARD}, "is not declared"),
    ({"a.idl": 'struct S;\n#include "b.idl"\n', "b.idl": "struct S { long a; };\n"}, "announced in another file"),
    ({"a.idl": '#include "b.idl"\nstruct S;\nstruct S { long a; };\n', "b.idl": "struct S;\n"}, "announced in another file"),
    ({"a.idl": 'interface I;\n#include "b.idl"\n', "b.idl": "interface I {};\n"}, ""),
    ({"a.idl": 'valuetype V;\n#include "b.idl"\n', "b.idl": "valuetype V;\nvaluetype V {};\n"}, ""),
]

_WORDS = re.compile(r"""L?"(?:\\.|[^"\\])*"|L?'(?:\\.|[^'\\])*'|::|[A-Za-z_]\w*|\d[\w.]*|\s+|.""", re.S)


def mutated(text, chance):
    """The text with a few words, lines or "::" replaced, exchanged or left out."""
    for _ in range(chance.choice([1, 1, 1, 2])):
        words = _WORDS.findall(text)
        names = [at for at, word in enumerate(words) if word[0].isalpha() or word[0] == "_"]
        at, marks = chance.choice(names), [at for at, word in enumerate(words) if word == "::"] or names
        what = chance.random()
        if what < 0.45:
            words[at] = words[chance.choice(names)]
        elif what < 0.55:
            words[at] = words[at].swapcase()
        elif what < 0.8:
            words[chance.choice(marks if what < 0.75 else range(len(words)))] = ""
        text = "".join(words)
        if what >= 0.8:
            lines = text.split("\n")
            one, other = chance.randrange(len(lines)), chance.randrange(len(lines))
            lines[one : one + 1] = [lines[other]] if what < 0.9 else []
            text = "\n".join(lines)
    return text


class Checker(unittest.TestCase):
    def told(self, read, fault, idl, *arguments):
        """What a file, or the first of files, means, and what is said of it."""
        files = idl if isinstance(idl, dict) else {"tried.idl": idl}
        with tempfile.TemporaryDirectory() as directory:
            judge.write_files(files, directory)
            try:
                return read(os.path.join(directory, next(iter(files))), (), *arguments), ""
            except fault as refusal:
                return None, str(refusal) or "refused"

    def checked(self, idl, **options):
        return self.told(idl3.read, idl3.Fault, idl, idl3.Options(**options))

    def compiled(self, idl):
        return self.told(compiler.read, compiler.Refused, idl)

    def test_legal_idl(self):
        for idl in SOUND + UNKNOWN_TO_COMPILER + COMPONENTS:
            with self.subTest(idl):
                self.assertEqual(self.checked(idl)[1], "")

    def test_faults(self):
        for idl, fault in UNSOUND + REFUSED_BY_SOME + OVERLOOKED + UNKNOWN_AND_UNSOUND + UNSOUND_COMPONENTS:
            with self.subTest(idl):
                self.assertIn(fault, self.checked(idl)[1])

    def test_files(self):
        for files, fault in FILES:
            with self.subTest(files):
                self.assertIn(fault, self.checked(files)[1])
                self.assertEqual(self.checked(files)[1] == "", fault == "")
                self.assertEqual(self.compiled(files)[1] == "", fault == "")

    def test_tables_are_true_of_the_compiler(self):
        for idl in SOUND:
            with self.subTest(idl):
                self.assertEqual(self.compiled(idl), self.checked(idl))
        taken = [idl for idl, _ in OVERLOOKED + REFUSED_BY_SOME]
        refused = [idl for idl, _ in UNSOUND + UNKNOWN_AND_UNSOUND] + UNKNOWN_TO_COMPILER
        for idl in taken + refused:
            with self.subTest(idl):
                is_announced_only = "announced" in self.checked(idl)[1]
                self.assertEqual(self.compiled(idl)[1] != "", idl in refused or is_announced_only)
        for idl, _ in REFUSED_BY_SOME:
            with self.subTest(idl):
                self.assertEqual(self.checked(idl, strict=False)[1], "")

    def test_verdicts_on_mutated_files_are_those_of_the_compiler(self):
        """The strict verdict may refuse more, never less."""
        taken = 0
        for seed in range(int(os.environ.get("MUTATIONS", 200))):
            drawn = generate.Generator(seed // 4).made()
            text = mutated("".join(witness.files(drawn).values()), random.Random(seed))
            with self.subTest(seed=seed):
                meant, fault = self.checked(text, strict=False)
                if "the constant" in fault and "is no type" in fault:
                    continue  # which the compiler overlooks
                compiled, refusal = self.compiled(text)
                self.assertEqual(fault == "", refusal == "", f"{fault}\n{refusal}")
                self.assertEqual(meant, compiled)
                self.assertFalse(fault and not self.checked(text)[1], fault)
                taken += not fault
        self.assertGreater(taken, 20)


if __name__ == "__main__":
    unittest.main()
