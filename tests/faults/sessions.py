"""A session of each headless program, what it answers when nothing fails, and what it may answer and leave behind when
something does: nothing that is stored is lost or half, each figure is right, and what can't go on ends with one line and 2."""
import dataclasses
import json
import os
import pathlib
import stat
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from support import paychecks  # noqa: E402

PATIENCE = 120  # seconds; only a hanging program takes as long
NAME = "Tallyfin99.sqlite"
# A disk in memory, where there is one, makes the runs fast.
DISK = "/dev/shm" if os.path.isdir("/dev/shm") else None

STORED = {("User", "UName"): "Pat", ("User", "USSN"): "123-45-6789", ("User", "UAdd"): "1 Main St",
          ("User", "UCity"): "Boston", ("Settings", "IncAmt"): "1000", ("Settings", "MaritalStat"): "1",
          ("StateInfo", "Other"): "x" * 9000}
START = ["start", "get frmName.txtName text", "get frmName.txtSSN text", "click frmName.cmdExit"]
CALCULATION = ['type frmMain.txtIncome "1234.56"', 'type frmMain.txtHours "40"', "pick frmMain.lstFrequency 2",
               "pick frmMain.cboExemptions 3", "click frmMain.optStatus(1)", "pick frmMain.cboState 20",
               "click frmMain.cmdToolBar(0)"]
FIGURES = ["pay", "explain"]
SAVE = 'store put User UCity "Albany"'
# The acts are repeated: where the first were refused, the second ones must give the right figures.
LINES = [*START, *CALCULATION, *FIGURES, SAVE, *CALCULATION, *FIGURES]
SECOND = len(START) + len(CALCULATION) + len(FIGURES) + 1
SHOWN = {1: '= "Pat"', 2: '= "123-45-6789"'}
UNREAD = '= "-"'  # as the screen shows what can't be read


def environment(**more):
    # Leak detection doesn't work under strace, and the counts of a coverage build aren't a file of the program.
    return os.environ | {"ASAN_OPTIONS": "detect_leaks=0", "LLVM_PROFILE_FILE": "/dev/null"} | more


@dataclasses.dataclass
class Run:
    status: int
    answers: list
    error: str


def run(command, text, **options):
    done = subprocess.run(command, input=text.encode(), capture_output=True, timeout=PATIENCE,
                          env=environment(**options.pop("variables", {})), **options)
    return Run(done.returncode, done.stdout.decode().split("\n"), done.stderr.decode())


def one_line(name, error):
    return error.startswith(f"{name}: ") and error.count("\n") == 1 and error.endswith("\n")


class Folder:
    """A temporary folder for a store."""

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(dir=DISK)
        self.store = pathlib.Path(self._folder.name) / "folder" / NAME
        self.store.parent.mkdir(mode=0o700)
        return self.store

    def __exit__(self, *_):
        self._folder.cleanup()


class Script:
    """The session of tallyfin99-script."""

    name = "tallyfin99-script"
    begins = "umask("  # its first system call that isn't the loader's

    def __init__(self, program):
        self.program = str(program)
        self.text = "".join(line + "\n" for line in LINES)
        with Folder() as store:
            puts = [f"store put {section} {key} {json.dumps(text)}" for (section, key), text in STORED.items()]
            assert run([self.program, store], "\n".join(puts) + "\n").status == 0
            self._bytes = store.read_bytes()
            right = run([self.program, store], self.text)
            assert (right.status, right.error) == (0, ""), right
            self.right = right.answers
            assert {number: right.answers[number] for number in SHOWN} == SHOWN
            assert not any(answer.startswith("!") for answer in right.answers), right.answers
            self.after = self.stored(store)

    def prepare(self, store):
        store.write_bytes(self._bytes)
        store.chmod(0o600)

    def command(self, store):
        return [self.program, str(store)]

    def stored(self, store):
        """What the next start finds; it leaves the store's file alone in the folder, and the user's alone."""
        done = run([self.program, store], "store\n")
        assert (done.status, done.error) == (0, ""), done
        assert os.listdir(store.parent) == [NAME], os.listdir(store.parent)
        assert stat.S_IMODE(store.stat().st_mode) == 0o600
        return {(section, key): text for section, keys in json.loads(done.answers[0][2:]).items()
                for key, text in keys.items()}

    def check_store(self, store, saved=False):
        """Each text is the one before the session or the one after it, whole; where the save was answered and nothing
        but an end came, the new one."""
        found = self.stored(store)
        for place in STORED:
            assert place in found, f"{place} is lost"
        for place, text in found.items():
            assert text in (STORED.get(place), self.after.get(place)), f"{place} is {text[:80]!r}"
        if saved:
            assert found["User", "UCity"] == "Albany", "an answered save is lost"

    def check_killed(self, store, done):
        *whole, last = done.answers
        assert whole == self.right[:len(whole)] and self.right[len(whole)].startswith(last), "other answers"
        self.check_store(store, saved=len(whole) > LINES.index(SAVE))

    def check_failed(self, store, done, heard=True):
        """After calls that failed: what was answered is right, and it either went on to the end or says why not, as far as
        that can be heard."""
        if done.status == 0:
            assert done.error == "", done.error
            assert len(done.answers) == len(self.right), "it ended early, and says nothing"
        else:
            assert done.status == 2 and (one_line(self.name, done.error) or not heard), (done.status, done.error)
        refused = [number for number, answer in enumerate(done.answers) if answer.startswith("! memory")]
        for number, answer in enumerate(done.answers[:-1]):
            if answer == self.right[number] or number in refused:
                continue
            # A store that can't be read shows as one without the entry. An act that was refused for want of memory has
            # not been carried out to its end, until it is done again.
            excused = (number in SHOWN and answer == UNREAD) or any(
                earlier < number and (earlier < len(START) or number < SECOND or earlier >= SECOND)
                for earlier in refused)
            assert excused, f"line {number + 1}, {LINES[number]}: {answer[:200]} instead of {self.right[number][:200]}"
        self.check_store(store)


class Batch:
    """The session of tallyfin99-batch: some hundred rows from a file."""

    name = "tallyfin99-batch"
    begins = "rt_sigaction(SIGPIPE"

    def __init__(self, program, jobs=1):
        self.program = str(program)
        self._jobs = jobs
        rows = "\n".join(",".join(f'"{cell}"' for cell in row) for row in [paychecks.COLUMNS, *paychecks.rows(150)]) + "\n"
        self.text = ""
        self._bytes = rows.encode()
        with Folder() as store:
            self.prepare(store)
            right = run(self.command(store), "")
            assert right.status == 0, right
            self.right, self._error = "\n".join(right.answers), right.error
            assert self.right.count("\n") == 151

    def prepare(self, store):
        store.write_bytes(self._bytes)

    def command(self, store):
        return [self.program, "--problems-ok", "--quiet", f"--jobs={self._jobs}", str(store)]

    def check_killed(self, store, done):
        assert self.right.startswith("\n".join(done.answers)), "other rows"

    def check_failed(self, store, done, heard=True):
        out = "\n".join(done.answers)
        if done.status == 0:
            assert out == self.right, "it says that all went well"
            assert done.error == self._error or not heard, done.error
        else:
            assert done.status == 2 and (one_line(self.name, done.error) or not heard), (done.status, done.error)
            assert self.right.startswith(out), "other rows"
