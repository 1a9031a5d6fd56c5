#!/usr/bin/env python3
"""Judges exports of random models: a command that ends with 0 has to have written files that every
compiler takes and that mean what the model says; one that ends otherwise has to have said which
element is wrong and to have written nothing, and a model that has a legal form is not refused.

    judge.py 1-1000 --command build/release/bin/idlexport --jobs 2 --shrink
"""

import argparse
import collections
import concurrent.futures
import copy
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
from typing import NamedTuple

import compiler
import faults
import generate
import idl3
import meaning
import model
import shrink
import witness

MAPPINGS = {"one-file": "ONE_FILE", "module-flat": "MODULE_FLAT", "module-structured": "MODULE_STRUCTURED"}
MODES = ("plain", "components", "faults")
_SECONDS = 60
_LOCATED_ERROR = re.compile(r"^([^\n]+?):(\d+):(?:\d+:)? (?:fatal )?error: (.*)$", re.M)


class Exported(NamedTuple):
    status: int  # -1 when it took too long
    files: dict  # the texts of IDL files by their names
    said: str


class Failure(NamedTuple):
    kind: str
    text: str


class Case(NamedTuple):
    """A model as it is exported and judged."""

    model: model.Model
    mapping: str
    fault: str = ""
    names: tuple = ()  # of the elements at fault


class Verdict(NamedTuple):
    case: Case
    status: int
    failures: list


# --- Models and exports -----------------------------------------------------------------------------


def made_case(seed, mapping=None, mode=None):
    mode = mode or ("plain", "plain", "components", "faults")[seed % 4]
    mapping = mapping or ("one-file", "one-file", "module-flat", "module-structured")[seed // 4 % 4]
    drawn = generate.Generator(seed, has_components=mode == "components").made()
    planted = faults.plant(drawn, seed) if mode == "faults" else ("", [])
    return Case(drawn, mapping, planted[0], tuple(planted[1]))


def exporter(command):
    """Exports by a command: a function of a case, a directory and further arguments."""

    def export(case, directory, *arguments):
        file, output = os.path.join(directory, "model.uml"), os.path.join(directory, "idl")
        model.write_xmi(case.model, file, MAPPINGS[case.mapping])
        shutil.rmtree(output, ignore_errors=True)
        call = [command, "-o", output, "--diagnostics=gcc", *arguments, file]
        try:
            done = subprocess.run(call, capture_output=True, timeout=_SECONDS, check=False)
        except subprocess.TimeoutExpired:
            return Exported(-1, {}, "")
        return Exported(done.returncode, files_of(output), done.stderr.decode(errors="replace"))

    return export


def files_of(directory):
    files = {}
    for path, _, names in os.walk(directory):
        for name in names:
            if name.endswith(".idl"):
                with open(os.path.join(path, name), encoding="latin-1", newline="") as stream:
                    files[os.path.relpath(os.path.join(path, name), directory)] = stream.read()
    return dict(sorted(files.items()))


# --- The judgement of files -------------------------------------------------------------------------


def needs_idl3(drawn):
    kinds = (model.Component, model.Home, model.Composition)
    return any(isinstance(each, kinds) or getattr(each, "is_event", False) for each in model.everything(drawn))


def judged_files(drawn, files):
    """What is wrong with the files as a legal form of the model; None when nothing is."""
    readers = {"idl3": (idl3.read, idl3.Fault)}
    if not needs_idl3(drawn):
        readers = {"omniidl": (compiler.read, compiler.Refused)} | readers
    with tempfile.TemporaryDirectory() as directory:
        for name, text in files.items():
            path = os.path.join(directory, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="latin-1", newline="") as stream:
                stream.write(text)
        expected = meaning.of_model(drawn)
        for reader, (read, fault) in readers.items():
            meanings = []
            for name in files:  # each alone is where a compiler may start
                try:
                    meanings.append((name, read(os.path.join(directory, name), [directory])))
                except fault as refusal:
                    return Failure(f"refused by {reader}", str(refusal).replace(directory + os.sep, ""))
            union, conflicts = meaning.merged(meanings)
            found = conflicts + meaning.differences(expected, union)
            if found:
                return Failure("other meaning", "\n".join(found))
    return None


def has_legal_form(case):
    """Whether a witness tells so."""
    try:
        files = witness.files(case.model, case.mapping == "one-file")
    except witness.NoWitness:
        return False
    return judged_files(case.model, files) is None


# --- The judgement of exports -----------------------------------------------------------------------


class Judge:
    def __init__(self, export, redraws=2, has_verbatim=False):
        self.export, self.redraws, self.has_verbatim = export, redraws, has_verbatim

    def verdict(self, case):
        with tempfile.TemporaryDirectory() as directory:
            exported = self.export(case, directory)
            failures = list(self.failures(case, exported, directory))
        return Verdict(case, exported.status, failures)

    def failures(self, case, exported, directory):
        if exported.status not in (0, 1):
            kinds = {-1: "timeout", 2: "status", 3: "status"}
            yield Failure(kinds.get(exported.status, "crash"), f"status {exported.status}: {exported.said}")
        elif exported.status == 1:
            yield from self.of_refusal(case, exported)
            if not case.fault:
                yield from self.of_refused_model(case, directory)
        elif case.fault:
            yield Failure("fault exported", case.fault)
        else:
            found = judged_files(case.model, exported.files)
            yield from [found] if found else self.of_success(case, exported, directory)

    def of_refusal(self, case, exported):
        if exported.files:
            yield Failure("files in spite of errors", ", ".join(exported.files))
        errors = [found for found in _LOCATED_ERROR.findall(exported.said) if found[0].endswith("model.uml")]
        if not errors:
            yield Failure("error without a place", exported.said)
        elif any(case.names) and not any(name and name in text for name in case.names for _, _, text in errors):
            yield Failure("error names no element at fault", f"{case.fault}: {exported.said}")

    def of_refused_model(self, case, directory):
        if has_legal_form(case):
            said = self.export(case, directory).said
            yield Failure("sound model refused", "\n".join(line for line in said.splitlines() if " error: " in line))
        elif any(self.export(other, directory).status == 0 for other in self.redrawn(case)):
            yield Failure("drawing order decides", "exported in another drawing order only")

    def redrawn(self, case):
        for number in range(self.redraws):
            other = copy.deepcopy(case.model)
            generate.redrawn(other, number)
            yield case._replace(model=other)

    def of_success(self, case, exported, directory):
        for other in self.redrawn(case):
            again = self.export(other, directory)
            if again.status != 0:
                yield Failure("drawing order decides", again.said)
                return
            found = judged_files(other.model, again.files)
            if found:
                yield Failure(found.kind + " when redrawn", found.text)
                return
        if self.has_verbatim:
            yield from self.of_verbatim(case, exported, directory)

    def of_verbatim(self, case, exported, directory):
        """What needs no repair isn't repaired, but for types that were without a name."""
        verbatim = self.export(case, directory, "--verbatim")
        is_legal = verbatim.status == 0 and judged_files(case.model, verbatim.files) is None
        if is_legal and verbatim.files != exported.files and not adds_types(case.model, exported.files):
            names = [name for name, text in exported.files.items() if verbatim.files.get(name) != text]
            yield Failure("repaired without need", ", ".join(names))


def adds_types(drawn, files):
    declared = {each.name for each in model.everything(drawn)}
    return any(name not in declared for text in files.values() for name in re.findall(r"typedef[^;]*?(\w+)[][\w]*;", text))


# --- The command ------------------------------------------------------------------------------------


def shrunk(judge, verdict):
    """The same failure with a smaller model."""
    kind = verdict.failures[0].kind
    was_sound = not verdict.case.fault and has_legal_form(verdict.case)

    def holds(smaller):
        case = verdict.case._replace(model=smaller)
        try:
            found = judge.verdict(case).failures
            return bool(found) and found[0].kind == kind and (not was_sound or has_legal_form(case))
        except (AttributeError, IndexError, StopIteration, ValueError):  # too much was taken away
            return False

    return judge.verdict(verdict.case._replace(model=shrink.shrunk(verdict.case.model, holds)))


class Run:
    """What one process does for each seed."""

    def __init__(self, options):
        self.options = options
        text = subprocess.run([options.command, "--help"], capture_output=True, text=True, check=True).stdout
        self.judge = Judge(exporter(options.command), options.redraws, options.verbatim and "--verbatim" in text)

    def __call__(self, seed):
        case = made_case(seed, self.options.mapping, self.options.mode)
        verdict = self.judge.verdict(case)
        if verdict.failures and self.options.shrink and not case.fault:
            verdict = shrunk(self.judge, verdict)
        if verdict.failures and self.options.keep:
            self.keep(seed, verdict.case)
        return seed, self.mode_of(case), verdict.status, verdict.failures, self.told(verdict.case)

    @staticmethod
    def mode_of(case):
        return "faults" if case.fault else "components" if needs_idl3(case.model) else "plain"

    def keep(self, seed, case):
        directory = os.path.join(self.options.keep, str(seed))
        os.makedirs(directory, exist_ok=True)
        self.judge.export(case, directory)

    def told(self, case):
        """The model, as its witness has it."""
        try:
            return f"{case.mapping}\n{''.join(witness.files(case.model).values())}"
        except (witness.NoWitness, AttributeError):
            return case.mapping


def seeds_of(texts):
    for text in texts:
        first, _, last = text.partition("-")
        yield from range(int(first), int(last or first) + 1)


def parsed_options(arguments):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("seeds", nargs="+", help="seeds and ranges of seeds")
    parser.add_argument("--command", default="idlexport")
    parser.add_argument("--mapping", choices=list(MAPPINGS), help="by default the seed decides")
    parser.add_argument("--mode", choices=MODES, help="by default the seed decides")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--seconds", type=float, default=float("inf"), help="begin nothing new after that time")
    parser.add_argument("--redraws", type=int, default=2, help="further drawing orders of each model")
    parser.add_argument("--shrink", action="store_true", help="make failing models small")
    parser.add_argument("--keep", metavar="DIR", help="leave failing models and their export there")
    parser.add_argument("--verbatim", action="store_true", help="judge that no more is repaired than needed")
    parser.add_argument("--most", type=int, default=10, help="failures of a kind that are shown")
    return parser.parse_args(arguments)


def main(arguments=None):
    options = parsed_options(arguments)
    counts, shown = collections.Counter(), collections.Counter()
    for seed, mode, status, failures, told in judged(options):
        outcomes = {0: "exported", 1: "refused"}
        counts[mode, outcomes.get(status, "other")] += 1
        for failure in failures[:1]:
            counts[mode, "FAILED: " + failure.kind] += 1
            shown[failure.kind] += 1
            if shown[failure.kind] <= options.most:
                print(f"--- seed {seed}, {mode}: {failure.kind}\n{failure.text.strip()}\n{told}", flush=True)
    for (mode, what), count in sorted(counts.items()):
        print(f"{mode:10} {what:45} {count}")
    return 1 if shown else 0


def judged(options):
    """The results for all seeds, in their order."""
    begin = time.monotonic()
    with concurrent.futures.ProcessPoolExecutor(options.jobs, initializer=_begin, initargs=(options,)) as pool:
        waiting = collections.deque()
        for seed in seeds_of(options.seeds):
            if time.monotonic() - begin > options.seconds:
                break
            waiting.append(pool.submit(_run, seed))
            if len(waiting) > 4 * options.jobs:
                yield waiting.popleft().result()
        while waiting:
            yield waiting.popleft().result()


def _begin(options):
    global _run_of_process
    _run_of_process = Run(options)


def _run(seed):
    return _run_of_process(seed)


if __name__ == "__main__":
    sys.exit(main())
