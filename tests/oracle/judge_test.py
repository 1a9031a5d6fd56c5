#!/usr/bin/env python3
"""The judge is held against what it has to find: its models have a legal form, its faults have none, a
meaning that was changed silently is noticed, and every class of failures is told of an exporter that
has it."""

import copy
import random
import unittest

import faults
import generate
import judge
import meaning
import model
import shrink
import witness
from model import Basic, Interface, Literal, Member, Module, Named, Sequence, Struct

SEEDS = range(1, 41)


def one_file(drawn):
    return witness.files(drawn)


class Models(unittest.TestCase):
    def test_every_model_has_a_legal_form(self):
        for seed in SEEDS:
            for has_components in (False, True):
                with self.subTest(seed=seed, has_components=has_components):
                    drawn = generate.Generator(seed, has_components).made()
                    self.assertIsNone(judge.judged_files(drawn, one_file(drawn)))

    def test_a_seed_is_always_the_same_model(self):
        for mode in judge.MODES:
            texts = {judge.Run.declarations(judge.made_case(7, None, mode)) for _ in range(2)}
            self.assertEqual(len(texts), 1, mode)

    def test_no_fault_has_a_legal_form(self):
        for fault in faults.FAULTS:
            for seed in range(8):
                with self.subTest(faults.told(fault), seed=seed):
                    drawn = model.Model("drawn", [Module("M")])
                    faults.plant(drawn, seed, fault)
                    mapping = "module-flat" if faults.needs_files(fault) else "one-file"
                    self.assertEqual(judge.legal_form(judge.Case(seed, "plain", drawn, mapping)), {})


# Changes of one element that leave a model legal more often than not; false where they don't apply.


def another_type(element, chance, drawn):
    type_ = None if isinstance(element, model.Constant) else getattr(element, "type", None)
    if isinstance(type_, Named):
        alike = [each for each in model.everything(drawn) if type(each) is type(type_.target) and each is not type_.target]
        element.type = Named(chance.choice(alike)) if alike else Basic("octet")
    elif isinstance(type_, Basic):
        element.type = Basic("octet" if type_.name != "octet" else "char")
    elif isinstance(type_, (Sequence, model.String)):
        element.type = copy.copy(type_)
        element.type.bound = 77
    else:
        return False
    return True


def another_value(element, chance, drawn):
    value = meaning.evaluated(element.value) if isinstance(element, model.Constant) else None
    if not isinstance(value, Literal) or isinstance(value.value, (bool, str)):
        return False
    element.value = Literal(value.value + 1 if value.value < 100 else value.value - 1)
    return True


def another_order(element, chance, drawn):
    group = next(iter(model.lists_of_children(element)), [])
    if len(group) < 2 or not isinstance(element, (Struct, model.Enumeration, model.Operation)):
        return False
    group.reverse()
    return True


def another_flag(element, chance, drawn):
    flags = {model.Attribute: "is_readonly", model.Operation: "is_oneway", Interface: "is_local", model.StateMember: "is_public"}
    flag = flags.get(type(element))
    if flag is None or getattr(element, "kind", "operation") != "operation":
        return False
    setattr(element, flag, not getattr(element, flag))
    return True


def less(element, chance, drawn):
    for group in [getattr(element, name, ()) for name in ("bases", "supports", "raises", "labels", "enumerators")]:
        if group and not getattr(element, "is_simple", False):
            group.pop()
            return True
    return False


def another_direction(element, chance, drawn):
    if not isinstance(element, model.Parameter):
        return False
    element.direction = "in" if element.direction != "in" else "out"
    return True


CHANGES = (another_type, another_value, another_order, another_flag, less, another_direction)


class Meanings(unittest.TestCase):
    def test_a_silent_change_is_noticed(self):
        silent = dict.fromkeys(CHANGES, 0)
        for seed in range(1, 301):
            chance, change = random.Random(seed), CHANGES[seed % len(CHANGES)]
            drawn = generate.Generator(seed // 6, seed % 3 == 0).made()
            changed = copy.deepcopy(drawn)
            candidates = list(model.everything(changed))
            chance.shuffle(candidates)
            if not any(change(each, chance, changed) for each in candidates) or not self.is_legal(changed):
                continue
            silent[change] += 1
            with self.subTest(change.__name__, seed=seed):
                self.assertEqual(judge.judged_files(drawn, one_file(changed)).kind, "meaning-differs")
        for change, count in silent.items():
            self.assertGreater(count, 5, f"{change.__name__} is hardly tried")

    @staticmethod
    def is_legal(drawn):
        try:
            return judge.judged_files(drawn, one_file(drawn)) is None
        except (witness.NoWitness, AttributeError, KeyError):
            return False

    def test_what_repairs_may_write(self):
        text = Struct("S", [Member("a", Sequence(Basic("long"), None, True))])
        user = Interface("I", [], [model.Attribute("all", Sequence(Basic("long"), 3)), model.Attribute("one", Named(text))])
        drawn = model.Model("drawn", [Module("M", [text, user])])
        struct, attributes = "struct S { sequence<long> a; };", "attribute TSeq all; attribute S one;"
        rows = {
            f"module M {{ {struct} typedef sequence<long, 3> TSeq; interface I {{ {attributes} }}; }};": None,
            f"module M {{ {struct} interface I {{ typedef sequence<long, 3> TSeq; {attributes} }}; }};": None,
            f"module M {{ {struct} }}; typedef sequence<long, 3> TSeq; module M {{ interface I {{ {attributes} }}; }};": None,
            f"module M {{ {struct} typedef sequence<long> TSeq; interface I {{ {attributes} }}; }};": "meaning-differs",
            f"module M {{ {struct} typedef long T; typedef sequence<T, 3> TSeq; interface I {{ {attributes} }}; }};": "meaning-differs",
            f"module M {{ {struct} typedef S R; typedef sequence<long, 3> TSeq; interface I {{ attribute TSeq all; attribute R one; }}; }};": "meaning-differs",
            f"module M {{ {struct} interface I {{ {attributes} }}; }};": "compiler-refuses",
        }
        for idl, kind in rows.items():
            with self.subTest(idl):
                found = judge.judged_files(drawn, {"main.idl": idl + "\n"})
                self.assertEqual(found and found.kind, kind)


def well(case, _directory, *_arguments):
    return judge.Exported(0, witness.files(case.model, case.mapping == "one-file"), "")


def changed(case, directory, *arguments):
    files = well(case, directory).files
    return judge.Exported(0, {name: text.replace("long", "short") for name, text in files.items()}, "")


def extended(case, directory, *arguments):
    files = well(case, directory).files
    return judge.Exported(0, {name: text + "// to the next \\\n\n" for name, text in files.items()}, "")


def refused(said, files=()):
    return lambda case, directory, *arguments: judge.Exported(1, dict(files), said)


def only_as_drawn(case, directory, *arguments):
    names = [each.name for each in case.model.members]
    return well(case, directory) if names == sorted(names) else judge.Exported(1, {}, "model.uml:1: error: x")


def with_verbatim(case, directory, *arguments):
    files = well(case, directory).files
    return judge.Exported(0, files if arguments else {name: "// other\n" + text for name, text in files.items()}, "")


LOCATED = "model.uml:3:1: error: struct M::Bad is wrong [a-rule]"
EXPORTS = [
    ("plain", well, None),
    ("permutations", well, None),
    ("plain", changed, "meaning-differs"),
    ("plain", lambda case, *_: judge.Exported(0, {"main.idl": "module M { struct S { T a; }; };\n"}, ""), "compiler-refuses"),
    ("plain", extended, "stricter-refuses"),
    ("plain", lambda case, *_: judge.Exported(0, {}, ""), "meaning-differs"),
    ("plain", refused(LOCATED), "refused-though-legal"),
    ("plain", refused("no place"), "error-without-place"),
    ("plain", refused(LOCATED, {"main.idl": ""}), "files-despite-errors"),
    ("plain", lambda case, *_: judge.Exported(-11, {}, ""), "crash"),
    ("plain", lambda case, *_: judge.Exported(-1, {}, ""), "timeout"),
    ("plain", with_verbatim, "repaired-needlessly"),
    ("permutations", only_as_drawn, "order-dependent"),
    ("faults", well, "fault-accepted"),
    ("faults", refused(LOCATED), None),
    ("faults", refused("model.uml:3: error: module N is wrong"), "refused-though-legal"),
]


class Classes(unittest.TestCase):
    @staticmethod
    def case(mode):
        members = [Module("A", [Struct("R", [Member("a", Basic("long"))])]), Module("M", [Struct("Bad", [Member("a", Basic("long"))])])]
        fault = ("a fault", ("Bad",)) if mode == "faults" else ()
        return judge.Case(1, mode, model.Model("drawn", members), "one-file", *fault)

    def test_every_class_of_failures_is_told(self):
        for number, (mode, export, kind) in enumerate(EXPORTS):
            with self.subTest(number, kind=kind):
                failure = judge.Judge(export, True).verdict(self.case(mode))[1]
                self.assertEqual(failure and failure.kind, kind)

    def test_a_failing_model_is_made_small(self):
        case = judge.made_case(4, "one-file", "plain")
        judge_ = judge.Judge(changed)
        _, failure = judge_.verdict(case)
        small = judge.shrunk(judge_, case, failure)
        self.assertEqual(judge_.verdict(small)[1].cause(), failure.cause())
        self.assertLess(len(list(model.everything(small.model))), 8)


if __name__ == "__main__":
    unittest.main()
