#!/usr/bin/env python3
"""program.py PROGRAM: the batch program as a process: its options, its exit statuses, its one line on standard error, a
terminal, a reader that goes away, and memory that doesn't grow with the file."""
import os
import pathlib
import pty
import re
import subprocess
import sys
import tempfile
import time

program = os.path.abspath(sys.argv[1])
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
           all(option in answer.stdout for option in (b"--header", b"--no-header", b"--quiet", b"--version")))
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
    expect("--no-header", run("--no-header", stdin=header + row).stdout == plain.stdout.split(b"\n", 1)[1])


def refusals():
    """One clear line on standard error, exit status 2, nothing written."""
    with tempfile.TemporaryDirectory() as folder:
        for what, arguments, stdin in (("an unknown option", ["--faster"], header), ("an unknown letter", ["-q"], header),
                                       ("two files", ["a", "b"], b""), ("no such file", [folder + "/none"], b""),
                                       ("a folder", [folder], b""), ("no header", [], b""),
                                       ("a column twice", [], b"income,income\n1,2\n"),
                                       ("a column named like a result", [], b"fica\n1\n")):
            answer = run(*arguments, stdin=stdin)
            expect(f"{what} is refused: {answer}", answer.returncode == 2 and answer.stdout == b"" and
                   answer.stderr.startswith(b"tallyfin99-batch: ") and answer.stderr.count(b"\n") == 1)
    if os.path.exists("/dev/full"):
        with open("/dev/full", "wb") as full:
            answer = subprocess.run([program], input=header + row, stdout=full, stderr=subprocess.PIPE)
        expect("a full disk is told", answer.returncode == 2 and answer.stderr.count(b"\n") == 1)


def problems():
    answer = run(stdin=header + row + b"1000,,,,16,,\n" + row + b"abc,,,,,,\n")
    expect("rows with problems", answer.returncode == 1 and answer.stdout.count(b"\n") == 5 and
           answer.stderr == b"tallyfin99-batch: 2 of 4 rows had problems\n")
    answer = run(stdin=header + row + b'"1000,\n' + row)
    expect("a quote that doesn't end", answer.returncode == 2 and answer.stdout.count(b"\n") == 2 and
           answer.stderr == b"tallyfin99-batch: line 3: a quoted cell doesn't end\n")


def closed_pipe():
    with subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
        process.stdout.close()
        try:
            process.stdin.write(header + row * 100_000)
            process.stdin.close()
        except BrokenPipeError:
            pass
        expect("a reader that goes away ends it", process.wait(60) == 0 and process.stderr.read() == b"")


def terminal(*arguments):
    """What a run of a little over a second shows on a terminal."""
    screen, end = pty.openpty()
    with tempfile.TemporaryFile() as file:
        process = subprocess.Popen([program, *arguments], stdin=subprocess.PIPE, stdout=file, stderr=end)
        os.close(end)
        for part in (header + row, row, row):
            process.stdin.write(part)
            process.stdin.flush()
            time.sleep(1.2)
        process.stdin.close()
        expect("a run before a terminal", process.wait(60) == 0)
    seen = b""
    while True:
        try:
            part = os.read(screen, 4096)
        except OSError:
            break
        if not part:
            break
        seen += part
    os.close(screen)
    return seen


def progress():
    seen = terminal()
    expect(f"a terminal is told rows and rows a second: {seen}", b" rows, " in seen and b" a second" in seen)
    expect("a quiet run tells a terminal nothing", terminal("--quiet") == b"")


def share_done():
    """Of a file the share done is told too. Its output isn't taken for a while, so that the run lasts."""
    screen, end = pty.openpty()
    with tempfile.NamedTemporaryFile() as file:
        file.write(header + row * 50_000)
        file.flush()
        with subprocess.Popen([program, file.name], stdout=subprocess.PIPE, stderr=end) as process:
            os.close(end)
            time.sleep(1.2)
            process.stdout.read()
            expect("a run over a file before a terminal", process.wait(60) == 0)
    seen = os.read(screen, 4096)
    os.close(screen)
    expect(f"a terminal is told the share: {seen}", b" a second, " in seen and b" %" in seen)


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


for check in (options, refusals, problems, closed_pipe, progress, share_done, memory):
    check()
print("the program keeps its word")
