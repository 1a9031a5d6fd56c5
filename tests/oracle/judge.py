#!/usr/bin/env python3
"""Judges an exporter by its exports of random models.

    judge.py --command build/release/bin/idlexport --seeds 1-200 [--mode MODE] [--mapping MAPPING]
             [--jobs N] [--seconds N] [--shrink] [--keep DIR]

Every seed is a model; the same seed, mode and mapping are always the same model. Modes, which the seed
decides unless one is given:

    plain         what every IDL compiler knows; judged by omniidl and by idl3.py
    components    also components, homes, event types and compositions; judged by idl3.py
    faults        a sound plain model with one mistake in it (faults.py)
    permutations  a plain or a component model in several drawing orders

A line for each seed that fails names seed, mode, mapping, class and cause; a table at the end counts
seeds by class and cause, each with the first seeds of it. With --shrink the model is made small, and its
declarations are printed as IDL; with --keep the model, its export, its legal form ("legal"), where one is
known, and all that was said are left in DIR/SEED. The exit status is 1 when a seed fails. Classes:

    compiler-refuses      omniidl takes a written file amiss
    stricter-refuses      only idl3.py does: it is as strict as the strictest compilers, and all that
                          judges components
    meaning-differs       what is written is legal, and says something else than the model
    refused-though-legal  no export of a model of which the judge knows a legal form (witness.py)
    order-dependent       exported well in one drawing order, and not in another
    fault-accepted        status 0 in spite of a mistake
    fault-misnamed        a mistake is refused without a word of an element that has to do with it
    error-without-place   a refusal that names no line of the model
    files-despite-errors  a refusal that wrote files
    repaired-needlessly   other bytes than with --verbatim (once the command knows that option), though
                          those are legal and mean the same
    crash, timeout, status

A refusal of a model without a known legal form is taken for right, and counted in the table: that
happens with a file for each module, when modules need each other in a circle.

judge_test.py and idl3_test.py hold the judge itself against what it has to find (a few seconds each;
MUTATIONS=3000 idl3_test.py compares idl3.py with omniidl on more files). Pieces: model.py (models and
their XMI), generate.py (models from seeds), faults.py, witness.py (a legal form), compiler.py (omniidl),
idl3.py (a judge of IDL with components), meaning.py (what models and files say), shrink.py.
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
MODES = ("plain", "components", "faults", "permutations")
_ORDERS = 4  # in which a model is drawn to see whether that matters
_SECONDS = 60
_LOCATED_ERROR = re.compile(r"^([^\n]+?):(\d+):(?:\d+:)? (?:fatal )?error: (.*)$", re.M)


class Exported(NamedTuple):
    status: int  # -1 when it took too long
    files: dict  # the texts of IDL files by their names
    said: str


class Failure(NamedTuple):
    kind: str  # its class
    text: str

    def first_line(self):
        """The first that is no warning, without the names of files."""
        lines = [line for line in self.text.strip().splitlines() if "arning:" not in line] or [""]
        return re.sub(r"^\S*?:\d+:(\d+:)? (error: )?", "", lines[0])

    def cause(self):
        """What such failures have in common: the first line without names and numbers."""
        line = self.first_line()
        rule = re.search(r"\[([\w-]+)\]$", line)
        if rule and self.kind != "meaning-differs":
            return rule[1]
        if self.kind == "meaning-differs":
            path, _, what = line.partition(": ")
            field = re.sub(r"[^.]*\.|^[^.]*$|\[\d+\]", "", path)
            return f"{field} {what if ' instead of ' not in what else 'is another'}".strip()
        return re.sub(r"\d+", "N", re.sub(r"'[^']*'", "'…'", line))


class Case(NamedTuple):
    """A model as it is exported and judged."""

    seed: int
    mode: str
    model: model.Model
    mapping: str
    fault: str = ""
    names: tuple = ()  # of the elements at fault


# --- Models and exports -----------------------------------------------------------------------------


def made_case(seed, mapping=None, mode=None):
    mode = mode or MODES[seed % 4]
    mapping = mapping or ("one-file", "one-file", "module-flat", "module-structured")[seed // 4 % 4]
    has_components = mode == "components" or mode == "permutations" and seed // 16 % 2 == 1
    drawn = generate.Generator(seed, has_components).made()
    if mode != "faults":
        return Case(seed, mode, drawn, mapping)
    fault, names = faults.plant(drawn, seed)
    if faults.needs_files(fault) and mapping == "one-file":
        mapping = "module-flat"
    return Case(seed, mode, drawn, mapping, faults.told(fault), tuple(names))


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
        said = done.stderr.decode(errors="replace").replace(directory + os.sep, "")
        return Exported(done.returncode, files_of(output), said)

    return export


def files_of(directory):
    files = {}
    for path, _, names in os.walk(directory):
        for name in names:
            if name.endswith(".idl"):
                with open(os.path.join(path, name), encoding="latin-1", newline="") as stream:
                    files[os.path.relpath(os.path.join(path, name), directory)] = stream.read()
    return dict(sorted(files.items()))


def write_files(files, directory):
    for name, text in files.items():
        path = os.path.join(directory, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="latin-1", newline="") as stream:
            stream.write(text)


# --- The judgement of files -------------------------------------------------------------------------


def needs_idl3(drawn):
    kinds = (model.Component, model.Home, model.Composition)
    return any(isinstance(each, kinds) or getattr(each, "is_event", False) for each in model.everything(drawn))


def judged_files(drawn, files):
    """What is wrong with the files as a legal form of the model; None when nothing is."""
    readers = {"stricter-refuses": (idl3.read, idl3.Fault)}
    if not needs_idl3(drawn):
        readers = {"compiler-refuses": (compiler.read, compiler.Refused)} | readers
    with tempfile.TemporaryDirectory() as directory:
        write_files(files, directory)
        expected = meaning.of_model(drawn)
        for kind, (read, fault) in readers.items():
            meanings = []
            for name in files:  # each alone is where a compiler may start
                try:
                    meanings.append((name, read(os.path.join(directory, name), [directory])))
                except fault as refusal:
                    return Failure(kind, str(refusal).replace(directory + os.sep, ""))
            union, conflicts = meaning.merged(meanings)
            found = conflicts + meaning.differences(expected, union)
            if found:
                return Failure("meaning-differs", "\n".join(found))
    return None


def legal_form(case):
    """The files of a witness that is legal; none when nothing is known."""
    try:
        files = witness.files(case.model, case.mapping == "one-file")
    except witness.NoWitness:
        return {}
    return files if judged_files(case.model, files) is None else {}


# --- The judgement of exports -----------------------------------------------------------------------


class Judge:
    def __init__(self, export, has_verbatim=False):
        self.export, self.has_verbatim = export, has_verbatim

    def verdict(self, case):
        """The exporter's status and the first failure, or None."""
        with tempfile.TemporaryDirectory() as directory:
            exported = self.export(case, directory)
            failure = self.of_status(exported) or self.of_answer(case, exported, directory)
        return exported.status, failure

    def of_status(self, exported):
        if exported.status in (0, 1):
            return None
        kind = {-1: "timeout", 2: "status", 3: "status"}.get(exported.status, "crash")
        return Failure(kind, f"status {exported.status}\n{exported.said}")

    def of_answer(self, case, exported, directory):
        if case.mode == "permutations":
            return self.of_orders(case, exported, directory)
        if case.fault:
            return self.of_fault(case, exported, directory)
        if exported.status == 1:
            return self.of_refusal(exported) or self.of_refused_model(case, exported)
        return judged_files(case.model, exported.files) or self.of_verbatim(case, exported, directory)

    def of_refusal(self, exported):
        if exported.files:
            return Failure("files-despite-errors", ", ".join(exported.files))
        return None if errors_of(exported) else Failure("error-without-place", exported.said)

    def of_refused_model(self, case, exported):
        return Failure("refused-though-legal", "\n".join(errors_of(exported))) if legal_form(case) else None

    def of_fault(self, case, exported, directory):
        if exported.status == 0:
            return Failure("fault-accepted", case.fault)
        failure = self.of_refusal(exported)
        words = [rf"(?<!\w){re.escape(name)}(?!\w)" for name in case.names if len(name) > 1]
        words += ["has no name"] if "" in case.names else []
        if failure or not words or any(re.search("|".join(words), error) for error in errors_of(exported)):
            return failure
        sound = case._replace(model=generate.Generator(case.seed).made(), fault="")
        without = self.export(sound, directory)
        if without.status == 1:  # so the fault isn't the reason
            return self.of_refused_model(sound, without)
        return Failure("fault-misnamed", f"{case.fault}\n{exported.said}")

    def of_orders(self, case, exported, directory):
        """In each order the same: exported well or not."""
        first = self.well_exported(case, exported)
        for number in range(_ORDERS):
            other = case._replace(model=copy.deepcopy(case.model))
            generate.redrawn(other.model, number)
            again = self.export(other, directory)
            second = self.of_status(again) or self.well_exported(other, again)
            if (first is None) != (second is None):
                worse = first or second
                return Failure("order-dependent", f"{worse.kind}: {worse.first_line()}\n{worse.text}")
        return None

    @staticmethod
    def well_exported(case, exported):
        if exported.status != 0:
            return Failure("refused", "\n".join(errors_of(exported)))
        return judged_files(case.model, exported.files)

    def of_verbatim(self, case, exported, directory):
        if not self.has_verbatim:
            return None
        verbatim = self.export(case, directory, "--verbatim")
        if verbatim.status != 0 or verbatim.files == exported.files or judged_files(case.model, verbatim.files):
            return None
        # A main file that would hold nothing includes all others; nobody needs an empty one.
        names = [name for name, text in exported.files.items()
                 if verbatim.files.get(name) != text and not name.endswith("drawn.idl")]
        return Failure("repaired-needlessly", "\n".join(names)) if names else None


def errors_of(exported):
    return [text for file, _, text in _LOCATED_ERROR.findall(exported.said) if file.endswith("model.uml")]


# --- The command ------------------------------------------------------------------------------------


def shrunk(judge, case, failure):
    """The same failure with a smaller model; of faults all but the fault goes at once."""
    mappings = [] if case.fault else [name for name in MAPPINGS if legal_form(case._replace(mapping=name))]

    def holds(smaller):
        tried = case._replace(model=smaller)
        try:
            found = judge.verdict(tried)[1]
            is_same = found is not None and (found.kind, found.cause()) == (failure.kind, failure.cause())
            return is_same and all(legal_form(tried._replace(mapping=name)) for name in mappings)
        except (AttributeError, IndexError, StopIteration, TypeError, ValueError):  # too much was taken away
            return False

    if case.fault:
        bare = model.Model("drawn", [model.Module("M")])
        faults.plant(bare, case.seed)
        return case._replace(model=bare) if holds(bare) else case
    return case._replace(model=shrink.shrunk(case.model, holds))


class Run:
    """What one process does for each seed."""

    def __init__(self, options):
        self.options = options
        text = subprocess.run([options.command, "--help"], capture_output=True, text=True, check=True).stdout
        self.judge = Judge(exporter(options.command), "--verbatim" in text)

    def __call__(self, seed):
        """The case without its model, the status, the failure, and what is to be told of it."""
        case = made_case(seed, self.options.mapping, self.options.mode)
        status, failure = self.judge.verdict(case)
        told = ""
        if failure and self.options.shrink:
            case = shrunk(self.judge, case, failure)
            status, failure = self.judge.verdict(case)
            told = self.declarations(case)
        if failure and status == 0 and case.mode != "faults" and not legal_form(case):
            told = "(no legal form is known: a refusal would be right)\n" + told
        if failure and self.options.keep:
            self.keep(case, failure)
        return case._replace(model=None), status, failure, told

    def keep(self, case, failure):
        directory = os.path.join(self.options.keep, str(case.seed))
        shutil.rmtree(directory, ignore_errors=True)
        os.makedirs(directory)
        said = self.judge.export(case, directory).said
        write_files(legal_form(case), os.path.join(directory, "legal"))
        write_files({"failure.txt": f"{failure.kind}\n{failure.text}\n\n{said}".encode().decode("latin-1")}, directory)

    @staticmethod
    def declarations(case):
        """The model, as its witness has it."""
        try:
            return "".join(witness.files(case.model).values())
        except (witness.NoWitness, AttributeError, IndexError, TypeError):
            return "(no IDL tells it)\n"


def seeds_of(texts):
    for text in texts:
        first, _, last = text.partition("-")
        yield from range(int(first), int(last or first) + 1)


def parsed_options(arguments):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--command", default="idlexport", help="the exporter")
    parser.add_argument("--seeds", nargs="+", default=["1-200"], metavar="SEED", help="seeds and ranges of seeds")
    parser.add_argument("--mode", choices=MODES, help="by default the seed decides")
    parser.add_argument("--mapping", choices=list(MAPPINGS), help="by default the seed decides")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--seconds", type=float, default=float("inf"), help="begin nothing new after that time")
    parser.add_argument("--shrink", action="store_true", help="make failing models small")
    parser.add_argument("--keep", metavar="DIR", help="leave failing models, their exports and legal forms there")
    return parser.parse_args(arguments)


def main(arguments=None):
    options = parsed_options(arguments)
    begin, seeds, outcomes = time.monotonic(), collections.defaultdict(list), collections.Counter()
    for case, status, failure, told in judged(options, begin):
        outcomes["failed" if failure else "exported" if status == 0 else "refused rightly"] += 1
        if failure:
            seeds[failure.kind, failure.cause()].append(case.seed)
            line = f"seed {case.seed} {case.mode} {case.mapping} {failure.kind}: {failure.first_line()}"
            print(line + "\n" + re.sub("^(?=.)", "    ", told, flags=re.M), end="", flush=True)
    counts = ", ".join(f"{count} {what}" for what, count in sorted(outcomes.items()))
    print(f"\n{sum(outcomes.values())} models in {time.monotonic() - begin:.1f} s: {counts}")
    for (kind, cause), found in sorted(seeds.items(), key=lambda item: (item[0][0], -len(item[1]))):
        print(f"{len(found):5}  {kind:21} {cause[:90]:90}  {' '.join(map(str, found[:3]))}")
    return 1 if seeds else 0


def judged(options, begin):
    """The results for all seeds, in their order."""
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
