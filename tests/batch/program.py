#!/usr/bin/env python3
"""program.py PROGRAM: the batch program as a process: its options, its exit statuses, its one line on standard error, a
terminal, a closed output, and memory that doesn't grow with the file."""
import fcntl
import os
import pathlib
import pty
import re
import resource
import select
import shutil
import subprocess
import sys
import tempfile
import time

program = os.path.abspath(sys.argv[1])
sanitized = b"__asan_init" in pathlib.Path(program).read_bytes()
row = b"1000,6,Weekly,Single,2,New York,1\n"
header = b"income,rate_401k,frequency,status,exemptions,state,local_rate\n"


def run(*arguments, stdin=b""):
    return subprocess.run([program, *arguments], input=stdin, capture_output=True)


def expect(what, holds):
    if not holds:
        sys.exit(f"not so: {what}")


def options():
    answer = run("--help")
    expect("--help tells the options", answer.returncode == 0 and not answer.stderr and
           all(option in answer.stdout for option in (b"--header", b"--no-header", b"--quiet", b"--version", b"--jobs",
                                                      b"--delimiter", b"--problems-ok", b"--states")))
    expect("nothing behind --help counts", run("--help", "--faster").stdout == answer.stdout and
           run("--states", "--help").stdout == answer.stdout)
    answer = run("--version")
    expect("--version", answer.returncode == 0 and answer.stdout.startswith(b"tallyfin99-batch ") and not answer.stderr)
    plain = run(stdin=header + row)
    expect("a clean run", plain.returncode == 0 and not plain.stderr and plain.stdout.count(b"\n") == 2)
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "--rows.csv")
        file.write_bytes(header + row)
        for arguments in ([str(file)], ["--", "--rows.csv"], ["--quiet", "-"], ["--no-header", "--header"]):
            answer = subprocess.run([program, *arguments], input=header + row, capture_output=True, cwd=folder)
            expect(f"{arguments} gives the same", answer.stdout == plain.stdout and answer.returncode == 0)
    for arguments in (["--jobs", "3"], ["--jobs=0"], ["--delimiter", ","], ["--problems-ok"]):
        answer = run(*arguments, stdin=header + row)
        expect(f"{arguments} gives the same", answer.stdout == plain.stdout and answer.returncode == 0 and not answer.stderr)
    tabs = run("--delimiter", "tab", stdin=(header + row).replace(b",", b"\t"))
    expect("--delimiter tab", tabs.stdout == plain.stdout.replace(b",", b"\t") and tabs.returncode == 0)
    expect("--delimiter=;", run("--delimiter=;", stdin=(header + row).replace(b",", b";")).returncode == 0)
    expect("--no-header", run("--no-header", stdin=header + row).stdout == plain.stdout.split(b"\n", 1)[1])


def refusals():
    """One clear line on standard error, exit status 2, nothing written."""
    with tempfile.TemporaryDirectory() as folder:
        for what, arguments, stdin in (("an unknown option", ["--faster"], header), ("an unknown letter", ["-q"], header),
                                       ("two files", ["a", "b"], b""), ("no such file", [folder + "/none"], b""),
                                       ("a folder", [folder], b""), ("no header", [], b""),
                                       ("a column twice", [], b"income,income\n1,2\n"),
                                       ("a column named like a result", [], b"fica\n1\n"),
                                       ("no column of the program's", [], b"a,b\n1,2\n"),
                                       ("semicolons", [], b"income;frequency\n"),
                                       ("a compressed file", [], b"\x1f\x8b\x08\n"),
                                       ("no number of jobs", ["--jobs"], header), ("bad jobs", ["--jobs", "x"], header),
                                       ("negative jobs", ["--jobs=-1"], header), ("many jobs", ["--jobs", "1001"], header),
                                       ("jobs and more", ["--jobs", "2x"], header),
                                       ("no delimiter", ["--delimiter"], header), ("empty", ["--delimiter", ""], header),
                                       ("a digit", ["--delimiter", "0"], header), ("a word", ["--delimiter", "ab"], header),
                                       ("a quote", ["--delimiter", '"'], header), ("a prefix", ["--jobsx"], header)):
            answer = run(*arguments, stdin=stdin)
            expect(f"{what} is refused: {answer}", answer.returncode == 2 and answer.stdout == b"" and
                   answer.stderr.startswith(b"tallyfin99-batch: ") and answer.stderr.count(b"\n") == 1)
    if os.path.exists("/dev/full"):
        with open("/dev/full", "wb") as full:
            answer = subprocess.run([program], input=header + row, stdout=full, stderr=subprocess.PIPE)
        expect("a full disk is told", answer.returncode == 2 and answer.stderr.count(b"\n") == 1)


def states():
    """What each state reads, as CSV."""
    answer = run("--states")
    lines = answer.stdout.decode().splitlines()
    expect("--states", answer.returncode == 0 and not answer.stderr and
           lines[0] == "state,postal,column,value,meaning" and
           "Illinois,IL,illinois_dependents,0 to 15,For Use in Computing Illinois Tax" in lines and
           'Alabama,AL,state_marital,1,"Single, claiming full personal exemption(S)"' in lines)
    expect("of all 41 states", len({line.split(",")[0] for line in lines[1:]}) == 40)  # North Dakota reads nothing
    tabs = run("--delimiter", "tab", "--states").stdout.decode().splitlines()
    expect("with tabs", len(tabs) == len(lines) and
           "Alabama\tAL\tstate_marital\t1\tSingle, claiming full personal exemption(S)" in tabs)


def names():
    """A file that can't be read is reported with its name and the reason."""
    answer = run("/no/such/rows.csv")
    expect(f"name and reason: {answer.stderr}",
           answer.stderr == b'tallyfin99-batch: "/no/such/rows.csv": No such file or directory\n')
    answer = run("/")
    expect(f"of a folder: {answer.stderr}", answer.stderr == b'tallyfin99-batch: "/": Is a directory\n')
    if os.path.exists("/dev/full"):
        with open("/dev/full", "wb") as full:
            answer = subprocess.run([program], input=header + row, stdout=full, stderr=subprocess.PIPE)
        expect(f"of the output: {answer.stderr}",
               answer.stderr == b"tallyfin99-batch: standard output: No space left on device\n")
    # Bytes of file names, options and headers are escaped for the terminal.
    for argument in (b"\x1b[31m\x9b.csv", b"--a\x1b[31m\x9b"):
        answer = run(argument)
        expect(f"escaped: {answer.stderr}", answer.returncode == 2 and b"\\x1b[31m\\x9b" in answer.stderr and
               b"\x1b" not in answer.stderr and b"\x9b" not in answer.stderr)
    long_name = "/none/" + "x" * 200
    expect("a path stays whole", long_name.encode() in run(long_name).stderr)
    answer = run(stdin=b"a\x1b[31m\x9b\n")
    expect(f"escaped: {answer.stderr}", b"a\\x1b[31m\\x9b" in answer.stderr and b"\x1b" not in answer.stderr)


def problems():
    some = header + row + b"1000,,0,,16,,\n" + row + b"abc,,0,,,,\n"
    answer = run(stdin=some)
    line = b"tallyfin99-batch: 2 of 4 rows had problems, the first in line 3\n"
    expect(f"rows with problems: {answer}", answer.returncode == 1 and answer.stdout.count(b"\n") == 5 and
           answer.stderr == line)
    fine = run("--problems-ok", stdin=some)
    expect("--problems-ok", fine.returncode == 0 and fine.stderr == line and fine.stdout == answer.stdout)
    for jobs in ("1", "4"):
        answer = run("--jobs", jobs, stdin=header + row + b'"1000,\n' + row)
        expect("a quote that doesn't end", answer.returncode == 2 and answer.stdout.count(b"\n") == 2 and
               answer.stderr == b"tallyfin99-batch: line 3: a quoted cell doesn't end\n")
    answer = run(stdin=b"income\n100\n")
    expect(f"no frequency: {answer.stderr}", answer.returncode == 1 and answer.stderr.startswith(
        b"tallyfin99-batch: there is no column frequency\n"))


def same_file():
    """Input and output that are one file would never end."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "same.csv")
        for arguments, from_file in (([str(file)], False), ([], True)):
            file.write_bytes(header + row)
            with open(file, "rb") as source, open(file, "ab") as sink:
                answer = subprocess.run([program, *arguments], stdin=source if from_file else subprocess.DEVNULL,
                                        stdout=sink, stderr=subprocess.PIPE, timeout=60)
            expect(f"one file is refused: {answer.stderr}", answer.returncode == 2 and
                   answer.stderr.endswith(b": input and output are the same file\n") and
                   file.read_bytes() == header + row)
        other = pathlib.Path(folder, "other.csv")
        with open(other, "ab") as sink:
            answer = subprocess.run([program, str(file)], stdout=sink, stderr=subprocess.PIPE)
        expect("two files are fine", answer.returncode == 0 and other.read_bytes().count(b"\n") == 2)
        with open("/dev/null", "r+b") as null:
            answer = subprocess.run([program], stdin=null, stdout=null, stderr=subprocess.PIPE)
        expect("a device is no file", b"same file" not in answer.stderr)


def short_writes():
    """A limit of the file's size cuts off the last block; that is reported."""
    with tempfile.TemporaryDirectory() as folder:
        rows = pathlib.Path(folder, "rows.csv")
        rows.write_bytes(header + row * 10_000)
        paid = pathlib.Path(folder, "paid.csv")

        def paid_with(limit):
            with open(paid, "wb") as sink:
                return subprocess.run([program, str(rows)], stdout=sink, stderr=subprocess.PIPE, preexec_fn=lambda:
                                      resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))
        expect("a file without a limit", paid_with(resource.RLIM_INFINITY).returncode == 0)
        whole = paid.read_bytes()
        answer = paid_with(len(whole) - 8311)
        expect(f"a write cut short is reported: {answer}", answer.returncode == 2 and
               answer.stderr == b"tallyfin99-batch: standard output: File too large\n" and
               paid.read_bytes() == whole[:-8311])


def never_waiting():
    """The program waits for non-blocking streams."""
    out, end = os.pipe()
    start, into = os.pipe()
    for descriptor in (end, start):
        fcntl.fcntl(descriptor, fcntl.F_SETFL, fcntl.fcntl(descriptor, fcntl.F_GETFL) | os.O_NONBLOCK)
    rows = 20_000
    with subprocess.Popen([program], stdin=start, stdout=end, stderr=subprocess.PIPE) as process:
        os.close(end)
        os.close(start)
        writer = os.fork()
        if writer == 0:
            os.close(out)
            with os.fdopen(into, "wb") as sink:
                sink.write(header)
                for _ in range(rows):
                    sink.write(row)
            os._exit(0)
        os.close(into)
        with os.fdopen(out, "rb") as source:
            seen = source.read()
        os.waitpid(writer, 0)
        errors = process.stderr.read()
        expect(f"streams that never wait: {errors}", process.wait(60) == 0 and seen.count(b"\n") == rows + 1)


def interrupted():
    """A signal in the middle of a call only delays it."""
    if shutil.which("strace") is None:
        return
    # The address sanitizer ends where its own writes fail by anything but EFAULT.
    with tempfile.NamedTemporaryFile() as file, tempfile.NamedTemporaryFile() as log:
        file.write(header + row * 20_000)
        file.flush()
        plain = run(file.name)
        for call in ("read",) if sanitized else ("read", "write"):
            for error in ("EINTR", "EAGAIN"):
                path = ["-P", file.name] if call == "read" else []
                answer = run_under("strace", "-qq", "-o", log.name, *path, "-e", f"inject={call}:error={error}:when=1+3",
                                   program, file.name)
                expect(f"{call} fails by {error}", b"(INJECTED)" in pathlib.Path(log.name).read_bytes())
                expect(f"{call} {error}: {answer.stderr}", answer.returncode == 0 and answer.stdout == plain.stdout)
        answer = run_under("strace", "-qq", "-o", "/dev/null", "-P", file.name, "-e", "inject=read:error=EIO:when=2",
                           program, file.name)
        expect(f"a read that fails: {answer}", answer.returncode == 2 and
               answer.stderr == f'tallyfin99-batch: "{file.name}": Input/output error\n'.encode())


def run_under(*command):
    # The sanitizer can't look for leaks in a program that is traced already.
    return subprocess.run(command, capture_output=True, stdin=subprocess.DEVNULL,
                          env=os.environ | {"ASAN_OPTIONS": "detect_leaks=0"})


def little_memory():
    """No memory, or no threads, is one line and status 2."""
    if sanitized:  # which takes all addresses for itself
        return

    def limited(megabytes, *arguments):
        size = megabytes << 20
        with tempfile.NamedTemporaryFile() as file:
            file.write(header + b'"' + b"x" * (15 << 20) + b'"\n')
            file.flush()
            return subprocess.run([program, *arguments, file.name], capture_output=True, preexec_fn=lambda:
                                  resource.setrlimit(resource.RLIMIT_AS, (size, size)))
    answer = limited(30)
    expect(f"no memory: {answer.stderr}", answer.returncode == 2 and
           answer.stderr == b"tallyfin99-batch: there is not enough memory\n")
    answer = limited(300, "--jobs", "1000")
    expect(f"no threads: {answer.stderr}", answer.returncode == 2 and answer.stderr.count(b"\n") == 1)
    expect("enough memory", limited(300).returncode == 1)  # its one row has a text for a number


def closed_pipe():
    with subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
        process.stdout.close()
        try:
            process.stdin.write(header + row * 100_000)
            process.stdin.close()
        except BrokenPipeError:
            pass
        expect("a reader that goes away ends it", process.wait(60) == 0 and process.stderr.read() == b"")


class Terminal:
    """A run with a terminal for its standard error. `seen` is what the terminal has been told."""
    line = rb"\r(\d+) rows, \d+ a second(?:, (\d+) %)?\x1b\[K"

    def __init__(self, *arguments, **streams):
        self.screen, end = pty.openpty()
        self.began = time.monotonic()
        self.process = subprocess.Popen([program, *arguments], stderr=end, **streams)
        os.close(end)
        self.seen = b""

    def look(self, seconds):
        """Takes what the terminal is told, for so long or until there is something. False once the program has ended."""
        if select.select([self.screen], [], [], seconds)[0]:
            try:
                self.seen += os.read(self.screen, 4096)
            except OSError:
                return False
        return True

    def lines(self):
        return re.findall(self.line, self.seen)

    def end(self):
        while self.look(60):
            expect("a run before a terminal ends", time.monotonic() < self.began + 120)
        os.close(self.screen)
        expect("a run before a terminal", self.process.wait(60) == 0)
        expect(f"the terminal's one line is rewritten, and taken away at the end: {self.seen}",
               re.fullmatch(b"(?:" + self.line + rb")+\r\x1b\[K", self.seen))
        expect(f"once a second at most: {self.seen}", len(self.lines()) <= time.monotonic() - self.began)


def rows_told(times):
    """Writes rows to a run before a terminal until it has been told of them so often; the numbers of rows."""
    with tempfile.TemporaryFile() as file:
        run_before = Terminal(stdin=subprocess.PIPE, stdout=file)
        run_before.process.stdin.write(header)
        while len(run_before.lines()) < times:
            expect(f"the rows are told each second: {run_before.seen}", time.monotonic() < run_before.began + 60)
            run_before.process.stdin.write(row)
            run_before.process.stdin.flush()
            run_before.look(0.05)
        run_before.process.stdin.close()
        run_before.end()
    return [int(line[0]) for line in run_before.lines()]


def progress():
    rows = rows_told(2)
    expect(f"all rows that are done are told: {rows}", 0 < rows[0] < rows[1])


def quiet():
    """With --quiet, and where standard error is no terminal, there is no progress."""
    for arguments, errors in ((["--quiet"], pty.openpty()), ([], os.pipe())):
        screen, end = errors
        with tempfile.TemporaryFile() as file:
            with subprocess.Popen([program, *arguments], stdin=subprocess.PIPE, stdout=file, stderr=end) as process:
                process.stdin.write(header + row)
                process.stdin.flush()
                while os.fstat(file.fileno()).st_size < len(header) + len(row):
                    time.sleep(0.01)
                rows_told(1)  # by a run that began later
                process.stdin.write(row)
                process.stdin.close()
                expect("a quiet run", process.wait(60) == 0)
        expect(f"{arguments} shows no progress", not select.select([screen], [], [], 0)[0])
        os.close(end)
        os.close(screen)


def share_done():
    """Of a file the share done is told too, and grows. Its output isn't taken for a while, so that the run lasts."""
    with tempfile.NamedTemporaryFile() as file:
        file.write(header + row * 50_000)
        file.flush()
        run_before = Terminal(file.name, stdout=subprocess.PIPE)
        while len(run_before.lines()) < 2 and run_before.process.stdout.read(20_000):
            run_before.look(0.05)
        run_before.process.stdout.read()
        run_before.end()
    shares = [int(line[1]) for line in run_before.lines()]
    expect(f"a terminal is told the share: {shares}", len(shares) >= 2 and 0 < shares[0] < shares[-1] <= 100)


def closing():
    """What a file system reports only when the output is closed."""
    if shutil.which("strace") is None:
        return
    with tempfile.NamedTemporaryFile() as file, tempfile.NamedTemporaryFile() as paid:
        file.write(header + row)
        file.flush()
        for argument in (file.name, "--help", "--states"):
            answer = subprocess.run(["strace", "-qq", "-o", "/dev/null", "-P", paid.name, "-e", "inject=close:error=EDQUOT",
                                     program, argument], stdin=subprocess.DEVNULL, stdout=paid, stderr=subprocess.PIPE,
                                    env=os.environ | {"ASAN_OPTIONS": "detect_leaks=0"})
            expect(f"{argument}: an output that fails as it is closed is reported: {answer}", answer.returncode == 2 and
                   answer.stderr == b"tallyfin99-batch: standard output: Disk quota exceeded\n")


def memory():
    """The largest memory in use over a small and a large input, in KiB."""
    def of(rows):
        with subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL) as process:
            process.stdin.write(header)
            for _ in range(rows // 1000):
                process.stdin.write(row * 1000)
            process.stdin.flush()
            # That of the process after it ends would count what it had before it became this program.
            status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
            process.stdin.close()
            expect("a run over many rows", process.wait(60) == 0)
        return int(re.search(r"VmHWM:\s*(\d+)", status)[1])
    small, large = of(20_000), of(400_000)
    expect(f"memory stays as it is: {small} and {large} KiB", large <= small + 1024)


def open_quote():
    """A quote that doesn't end doesn't take a long file into memory."""
    with subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE) as process:
        process.stdin.write(header + b'"')
        written = 0
        try:
            while written < 400 << 20:
                process.stdin.write(row * 10_000)
                written += len(row) * 10_000
            process.stdin.close()
        except BrokenPipeError:
            pass
        expect("it ends", process.wait(60) == 2 and process.stderr.read().endswith(b"line 2: a quoted cell doesn't end\n"))
    expect(f"it has stopped reading early: {written}", written < 64 << 20)


for check in (options, refusals, states, names, problems, same_file, short_writes, never_waiting, interrupted, little_memory,
              closed_pipe, closing, progress, quiet, share_done, memory, open_quote):
    check()
print("the program keeps its word")
