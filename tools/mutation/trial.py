"""Builds all mutants at once, in a copy of the tree, and runs the tests on them."""
import collections
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import threading

from mutation import binding, rules
from mutation.place import NUMBER, root, written

folder = root / "build" / "mutate"
copy = folder / "source"
build = folder / "build"

# A test program or the replays: options, variables, and how many seconds it may take, for a change can make a loop
# endless.
Step = collections.namedtuple("Step", "program options variables seconds", defaults=[(), {}, 120])

steps_of_rules = [Step(program) for program in rules.programs[:-1]] + [Step("replays", seconds=900)]

# Tests that are scripts, and the programs that they start. Where these are what a folder is for, nothing else tries it.
scripts = {"tests/batch/program.py": ["tallyfin99-batch"], "tests/script/script_arguments.py": ["tallyfin99-script"],
           "tests/store/endings.py": ["tallyfin99-script", "tallyfin99-batch"],
           "tests/store/watched_store.py": ["tallyfin99-script"], "tests/store/killed_store.py": ["tallyfin99-script"]}
of_folder = {
    "src/batch": [Step("batch_test"), Step("tests/batch/program.py"), Step("tests/store/endings.py")],
    "src/script": [Step("script_test"), Step("tests/script/script_arguments.py"), Step("tests/store/endings.py"),
                   Step("replays", seconds=900)],
    "src/store": [Step("store_test"), Step("location_test"), Step("tests/store/watched_store.py"),
                  Step("tests/store/endings.py"), Step("tests/store/killed_store.py", seconds=300)],
}

slow = "ClosedScreen/*"  # opens each screen a hundred times
snapshots = Step("snapshot_test", seconds=60)
own = {"w4views_test": Step("w4views_test"), "paperviews_test": Step("paperviews_test"),
       "desktop_test": Step("desktop_test", (f"--gtest_filter=-{slow}",))}


def on_display(program, display):
    """A step on one of the displays that the build makes."""
    return Step(program, variables={"QT_QPA_PLATFORM": f"offscreen:configfile={build}/tests/ui/qt/{display}.json"})


other = [
    on_display("smallscreen_test", "640x480x1"),
    on_display("placement_test", "wide"),
    Step("consistency_test", variables={"TALLYFIN_CONSISTENCY_ACTS": "500"}),
    Step("desktop_test", (f"--gtest_filter={slow}",), seconds=300),
    Step("printing"),
]


def program_of(file):
    """The test program that works a part of the desktop more than the others do."""
    name = pathlib.Path(file).stem
    if re.match(r"frm(W4|2Workers|DednAdj|PersWkSht|Calendar|TableOne)View|worksheet|captions", name):
        return "w4views_test"
    of_paper = {"frmPrintView", "preview", "reportpage", "printer", "desktophelp", "helpfile", "helpwindow"}
    return "paperviews_test" if name in of_paper else "desktop_test"


def of_binding(mutant):
    return mutant.file.startswith("src/ui/qt/")


def steps_of(mutant):
    """The tests of a mutant in their order."""
    if not of_binding(mutant):
        return of_folder.get(str(pathlib.Path(mutant.file).parent), steps_of_rules)
    first = program_of(mutant.file)
    return [snapshots, own[first], *(step for name, step in own.items() if name != first), *other]


def run(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace", **options)


def put(name, content):
    """Writes a file of the copy where it differs, so that what is unchanged isn't built again."""
    target = copy / name
    if not (target.exists() and target.read_bytes() == content):
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(content)


def with_switches(file, numbered, instead=None):
    """A file with all its mutants in it, of which none is chosen; `instead` is there for good."""
    edits = [(start, end, text.replace(NUMBER, str(number))) for mutant, number in numbered.items()
             if mutant.file == file and (not mutant.built or mutant is instead) for start, end, text in mutant.edits]
    text = written((root / file).read_text(), edits)
    return (binding if file.startswith("src/ui/qt/") else rules).switchable(file, text).encode()


def prepare(numbered, mutants):
    """Makes the copy and builds the tests that these mutants need, which must pass while no mutant is chosen."""
    mutated = {mutant.file for mutant in numbered}
    for name in run("git", "ls-files", "--cached", "--others", "--exclude-standard", cwd=root).stdout.split("\n"):
        if name and (root / name).is_file():
            put(name, with_switches(name, numbered) if name in mutated or rules.has(name) else (root / name).read_bytes())
    made = run("cmake", "-S", copy, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DTALLYFIN_TESTS=ON",
               "-DTALLYFIN_DESKTOP=ON",
               f"-DCMAKE_CXX_FLAGS=-O1 -g0 -w -Wno-error -Wno-narrowing -include {root}/tools/mutated.h")
    if made.returncode != 0:
        sys.exit(made.stdout)
    kinds = {pathlib.Path(mutant.file).parent: mutant for mutant in mutants}
    built = compiled(*sorted({program for mutant in kinds.values() for program in programs_of(mutant)}))
    if built.returncode != 0:
        sys.exit("the unchanged program doesn't build\n" + built.stdout)
    for mutant in kinds.values():
        found = noticed(0, steps_of(mutant))
        if found:
            sys.exit(f"the tests fail on the unchanged program: {found[0]}")


def programs_of(mutant):
    """The programs that the tests of a mutant run."""
    if of_binding(mutant):
        return binding.programs
    steps = steps_of(mutant)
    return [program for step in steps
            for program in scripts.get(step.program, ["tallyfin99-script" if step.program == "replays" else step.program])]


def compiled(*programs):
    return run("cmake", "--build", build, "-j", str(os.cpu_count()), "--target", *programs)


def surroundings():
    """No screen, and for each thread a home of its own."""
    home = folder / f"home-{threading.get_native_id()}"
    home.mkdir(exist_ok=True)
    return {**{name: value for name, value in os.environ.items() if not name.startswith(("QT_", "XDG_"))},
            "QT_QPA_PLATFORM": "offscreen", "HOME": str(home)}


def failing(number, step, tests=()):
    """The name of the first test of a step that fails with that mutant, or None. Of a test program these tests only."""
    environment = {**surroundings(), "TALLYFIN_MUTANT": str(number), **step.variables}
    options = [f"--gtest_filter={':'.join(tests)}"] if tests else step.options
    command = [build / "bin" / step.program, "--gtest_fail_fast", "--gtest_brief=1", *options]
    if step.program in ("replays", "printing"):
        chosen = "^printing$" if step.program == "printing" else r"^(Replay|Transcript)\."
        command = ["ctest", "--test-dir", build, "--stop-on-failure", "-R", chosen]
    elif step.program in scripts:
        command = [sys.executable, copy / step.program, *(build / "bin" / program for program in scripts[step.program])]
    try:
        ran = run(*command, timeout=step.seconds, env=environment)
    except subprocess.TimeoutExpired:
        return step.program + " that doesn't end"
    if ran.returncode == 0:
        return None
    failed = re.search(r"^\[  FAILED  \] ([^\s,]+)", ran.stdout, re.M)
    whole = step.program == "replays" or step.program in scripts
    return failed[1] if failed else step.program + ("" if whole else " that breaks off")


def noticed(number, steps, likely=()):
    """The name of what notices a mutant and its step, or None. The tests that are likely to, (name, step), go first."""
    for name, step in likely:
        if failing(number, step, [name]):
            return name, step
    for step in steps:
        name = failing(number, step)
        if name is not None:
            return name, step
    return None


def fates(mutants, numbered):
    """Each mutant with the name of what notices it, or None."""
    latest = collections.defaultdict(list)  # of each file, the tests that noticed something last

    def fate(mutant):
        likely = latest[mutant.file]
        found = noticed(numbered[mutant], steps_of(mutant), likely)
        if found and "." in found[0] and found[1].program not in scripts and found not in likely:
            latest[mutant.file] = [found, *likely][:3]
        return mutant, found and found[0]

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        yield from pool.map(fate, [mutant for mutant in mutants if not mutant.built])
    for mutant in mutants:
        if mutant.built:
            yield mutant, rebuilt(mutant, numbered)


def rebuilt(mutant, numbered):
    """What becomes of a mutant that is built for itself."""
    programs = programs_of(mutant)
    put(mutant.file, with_switches(mutant.file, numbered, mutant))
    try:
        if compiled(*programs).returncode != 0:
            return "the compiler"
        found = noticed(0, steps_of(mutant))
        return found and found[0]
    finally:
        put(mutant.file, with_switches(mutant.file, numbered))
        compiled(*programs)
